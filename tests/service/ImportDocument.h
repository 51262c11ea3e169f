// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <QStringList>

/// An element of an import document: a model under a label, and whatever \a more says of it.
inline QJsonObject element(const QString& label, const QString& model = QStringLiteral("View"),
                           const QJsonObject& more = {})
{
    QJsonObject json = more;
    json["name"] = label;
    json["model"] = QJsonObject{{"name", model}};
    return json;
}

/// What an element may say besides: which sources feed its first port.
inline QJsonObject fedBy(const QStringList& sources)
{
    return {{"unique_sources", QJsonArray{QJsonValue(QJsonArray::fromStringList(sources))}}};
}

/// The same: which labels it feeds.
inline QJsonObject feeding(const QStringList& labels)
{
    return {{"connection", QJsonArray{QJsonValue(QJsonArray::fromStringList(labels))}}};
}

/// The text of an import document.
inline QString document(const QJsonArray& elements)
{
    return QString::fromUtf8(QJsonDocument(elements).toJson(QJsonDocument::Compact));
}
