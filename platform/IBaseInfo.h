// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QSharedPointer>

namespace Core {
namespace AppCoreComponents {

/**
 * The host's information object for a scene.
 *
 * The library stores it, hands it on and compares pointers; it never looks inside. A host derives from it,
 * and a model that knows the host's class casts back.
 *
 * Ownership: shared. Threads: the library touches it in the graph's thread, and releases it there.
 */
class Q_DECL_EXPORT IBaseInfo
{
public:
    IBaseInfo() = default;
    virtual ~IBaseInfo() = default;
    Q_DISABLE_COPY(IBaseInfo)
};

/// A share of it; null means that there is none.
using BaseInfoPtr = QSharedPointer<IBaseInfo>;

} // namespace AppCoreComponents
} // namespace Core
