// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

/// A value written with ' for ". Text that is no JSON ends the process.
inline QJsonValue json(QByteArray text)
{
    const QJsonDocument document = QJsonDocument::fromJson('[' + text.replace('\'', '"') + ']');
    if (document.array().size() != 1)
        qFatal("no JSON: %s", text.constData());
    return document.array().at(0);
}

/// \a array with \a value at \a place, or behind its end.
inline QJsonArray replaced(QJsonArray array, int place, const QJsonValue& value)
{
    if (place < array.size())
        array[place] = value;
    else
        array.append(value);
    return array;
}
