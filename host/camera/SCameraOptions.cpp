// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/SCameraOptions.h"

#include <QRegularExpression>

namespace Host {

bool SCameraOptions::isFake(const QString& address)
{
    static const QRegularExpression fake(QRegularExpression::anchoredPattern(QStringLiteral("fake(-[1-9][0-9]*)?")));
    return fake.match(address).hasMatch();
}

} // namespace Host
