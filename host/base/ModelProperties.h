// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QJsonValue>
#include <QMetaObject>
#include <QMetaProperty>
#include <QObject>
#include <QString>
#include <QStringList>

#include <vector>

namespace Host {

/// The Qt properties of \a object that its class has beyond \a base, the most derived class's first: the settings of a
/// model.
std::vector<QMetaProperty> propertiesOf(const QObject& object, const QMetaObject& base = QObject::staticMetaObject);

/// How a document spells the property: "frames_per_second" for "framesPerSecond".
QString documentName(const QMetaProperty& property);

/// The names of the values that the property may have; none unless it is an enumeration.
QStringList choicesOf(const QMetaProperty& property);

/// \a value of the property as a document has it: that of an enumeration by its name.
QJsonValue toJson(const QMetaProperty& property, const QVariant& value);

} // namespace Host
