// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QJsonValue>
#include <QString>
#include <QStringList>

class QObject;

namespace Host {

struct SJsonNode;

/// The Qt properties that the model's own classes have, under the names that documents use: "framesPerSecond" is
/// "frames_per_second".
QStringList settingProperties(const QObject& model);

/// The value of the property that stands under \a setting in a document; undefined if there is none.
QJsonValue settingProperty(const QObject& model, const QString& setting);

/// The values that a setting may have, if they have names; empty otherwise.
QStringList settingChoices(const QObject& model, const QString& setting);

/// What the property of a setting is, if the value in the document is something else: "a number", "one of 'A' or 'B'".
/// Empty if it may be one, or if there is no such property.
QString expectedBySetting(const QObject& model, const SJsonNode& setting);

/// What a setting with a range takes: "a whole number, 1 to 99, odd", or the range alone of a type that documents do
/// not have. Empty without a range.
QString takenBySetting(const QObject& model, const QString& setting);

/// Whether the value in the document, which is of the right type, lies between the bounds of the range, if there is
/// one.
bool isInRangeOfSetting(const QObject& model, const SJsonNode& setting);

/// The value as JSON has it.
QString jsonText(const QJsonValue& value);

} // namespace Host
