// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/base/Shown.h"

#include <QCoreApplication>

#include <exception>

namespace Host {

/// What is wrong when \a step, told as \a name, returns false or throws: one line in the user's language, empty when
/// all is well.
template <typename S>
QString attempt(const QString& name, const S& step)
{
    try {
        return step() ? QString() : QCoreApplication::translate("Host::attempt", "%1 fails").arg(name);
    } catch (const std::exception& exception) {
        return QCoreApplication::translate("Host::attempt", "%1 throws: %2")
            .arg(name, printable(QString::fromLocal8Bit(exception.what()).simplified()));
    } catch (...) {
        return QCoreApplication::translate("Host::attempt", "%1 throws").arg(name);
    }
}

} // namespace Host
