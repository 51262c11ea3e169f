// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/support/JsonText_p.h"

#include "graph/support/Reports_p.h"

namespace Plugin::Halvex {

QJsonDocument readJson(const QByteArray& text, const QString& what, QJsonValue::Type wanted)
{
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    const bool wantsArray = wanted == QJsonValue::Array;
    if (error.error != QJsonParseError::NoError)
        warnOnce("% is no JSON and is left out: %, at byte %.", what, error.errorString(),
                 QString::number(error.offset));
    else if (document.isArray() != wantsArray)
        warnOnce("% is no JSON % and is left out.", what,
                 wantsArray ? QStringLiteral("array") : QStringLiteral("object"));
    return document;
}

} // namespace Plugin::Halvex
