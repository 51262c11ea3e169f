// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QObject>

namespace Core {
namespace Service {

/// Base of everything that a plugin publishes to the host. Lives in the host's main thread.
class Q_DECL_EXPORT IService : public QObject
{
public:
    /// A \a parent owns the service: one that is published by a QSharedPointer has none.
    explicit IService(QObject* parent)
        : QObject(parent)
    {
    }
};

} // namespace Service
} // namespace Core
