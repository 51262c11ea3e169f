// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QJsonObject>
#include <QLatin1String>
#include <QString>

#include <initializer_list>
#include <utility>

namespace Plugin::Halvex {

/// An object with these entries.
///
/// Not by QJsonObject's own constructor: newer headers make that, insert() with a QLatin1String, and moving an object
/// a call into Qt that is missing in Qt 5.12.
inline QJsonObject jsonObject(std::initializer_list<std::pair<QLatin1String, QJsonValue>> entries)
{
    QJsonObject json;
    for (const auto& entry : entries)
        json.insert(QString(entry.first), entry.second);
    return json;
}

} // namespace Plugin::Halvex
