// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/base/Shown.h"

#include <exception>

namespace Host {

/// What is wrong when \a step, told as \a name, returns false or throws: one line, empty when all is well.
template <typename S>
QString attempt(const QString& name, const S& step)
{
    try {
        return step() ? QString() : QStringLiteral("%1 fails").arg(name);
    } catch (const std::exception& exception) {
        return QStringLiteral("%1 throws: %2")
            .arg(name, printable(QString::fromLocal8Bit(exception.what()).simplified()));
    } catch (...) {
        return QStringLiteral("%1 throws").arg(name);
    }
}

} // namespace Host
