// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QMetaProperty>
#include <QObject>

#include <vector>

namespace Plugin::Halvex::Testing {

/// The settings among the properties of \a object: what can be written and is stored, but for QObject's own.
std::vector<QMetaProperty> settingsOf(const QObject& object);

/// Writes another value to \a property of \a object. False if there is none that the object takes.
bool changeProperty(QObject& object, const QMetaProperty& property);

/// All of them. What one throws is passed over.
void changeProperties(QObject& object);

/// "7", "Gaussian"
QString shownValue(const QMetaProperty& property, const QVariant& value);

} // namespace Plugin::Halvex::Testing
