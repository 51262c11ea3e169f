// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QSharedPointer>

namespace Core {
namespace AppCoreComponents {

// The inline namespace is written into the name of every symbol that takes an information object, so that a built
// library tells which framework it was compiled against.
inline namespace OtherFramework {

class Q_DECL_EXPORT IBaseInfo
{
public:
    IBaseInfo() = default;
    virtual ~IBaseInfo() = default;
    Q_DISABLE_COPY(IBaseInfo)
};

} // namespace OtherFramework

using BaseInfoPtr = QSharedPointer<IBaseInfo>;

} // namespace AppCoreComponents
} // namespace Core
