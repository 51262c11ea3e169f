// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QJsonDocument>
#include <QJsonValue>

namespace Plugin::Halvex {

/// The document that \a text is. If it is no JSON, or not of the type \a wanted, array or object, that is told in
/// "halvex.usage", where \a what begins the sentence; what is asked of the document is empty then.
QJsonDocument readJson(const QByteArray& text, const QString& what, QJsonValue::Type wanted);

} // namespace Plugin::Halvex
