// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/SRunOptions.h"

namespace Host {

SNodeSetting SNodeSetting::read(const QString& text)
{
    const int sign = text.indexOf(QLatin1Char('='));
    const QString place = text.left(sign);
    const int dot = place.lastIndexOf(QLatin1Char('.'));
    if (sign < 0 || dot < 1)
        return {};
    return {place.left(dot), place.mid(dot + 1), text.mid(sign + 1)};
}

QStringList SRunOptions::addresses() const
{
    QStringList list;
    for (const SCameraOptions& camera : cameras)
        list << camera.address;
    return list;
}

} // namespace Host
