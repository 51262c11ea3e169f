// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/SettingProperty.h"

#include "host/base/ModelProperties.h"
#include "host/base/SettingRange.h"
#include "host/base/Shown.h"
#include "host/check/CJsonTree.h"
#include "host/check/CWordFinder.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QObject>

#include <algorithm>

namespace Host {

namespace {

// Not valid if there is none.
QMetaProperty propertyOf(const QObject& model, const QString& setting)
{
    const auto properties = propertiesOf(model);
    const auto found = std::find_if(properties.begin(), properties.end(), [&setting](const QMetaProperty& property) {
        return documentName(property) == setting;
    });
    return found == properties.end() ? QMetaProperty() : *found;
}

QString typeText(const QMetaProperty& property)
{
    switch (property.userType()) {
    case QMetaType::Bool:
        return QCoreApplication::translate("Host::SettingProperty", "true or false");
    case QMetaType::Int:
    case QMetaType::UInt:
        return QCoreApplication::translate("Host::SettingProperty", "a whole number");
    case QMetaType::Double:
    case QMetaType::Float:
        return QCoreApplication::translate("Host::SettingProperty", "a number");
    case QMetaType::QString:
        return QCoreApplication::translate("Host::SettingProperty", "a string");
    default:
        return {};
    }
}

// Whether a value of a document can be one of the property; true of types that documents do not have.
bool hasType(const SJsonNode& setting, const QMetaProperty& property)
{
    switch (property.userType()) {
    case QMetaType::Bool:
        return setting.type == QJsonValue::Bool;
    case QMetaType::Int:
    case QMetaType::UInt:
        return isWholeNumber(setting.scalar);
    case QMetaType::Double:
    case QMetaType::Float:
        return setting.type == QJsonValue::Double;
    case QMetaType::QString:
        return setting.isString();
    default:
        return true;
    }
}

} // namespace

QStringList settingProperties(const QObject& model)
{
    QStringList names;
    const auto properties = propertiesOf(model);
    for (const QMetaProperty& property : properties)
        names << documentName(property);
    return names;
}

QJsonValue settingProperty(const QObject& model, const QString& setting)
{
    const QMetaProperty property = propertyOf(model, setting);
    if (!property.isValid())
        return QJsonValue::Undefined;
    return toJson(property, property.read(&model));
}

QStringList settingChoices(const QObject& model, const QString& setting)
{
    return choicesOf(propertyOf(model, setting));
}

QString expectedBySetting(const QObject& model, const SJsonNode& setting)
{
    const QMetaProperty property = propertyOf(model, setting.key);
    if (!property.isValid())
        return {};
    if (property.isEnumType()) {
        const QStringList keys = choicesOf(property);
        const bool isOne = setting.isString() && keys.contains(setting.text());
        if (isOne)
            return {};
        return QCoreApplication::translate("Host::SettingProperty", "one of %1").arg(listChoices(keys));
    }
    return hasType(setting, property) ? QString() : typeText(property);
}

QString takenBySetting(const QObject& model, const QString& setting)
{
    const QMetaProperty property = propertyOf(model, setting);
    if (!property.isValid())
        return {};
    const QString range = rangeOf(model, property);
    const QString type = typeText(property);
    if (range.isEmpty() || type.isEmpty())
        return range;
    return QCoreApplication::translate("Host::SettingProperty", "%1, %2", "a type and its range").arg(type, range);
}

bool isInRangeOfSetting(const QObject& model, const SJsonNode& setting)
{
    const QMetaProperty property = propertyOf(model, setting.key);
    return !property.isValid() || isInRange(model, property, setting.scalar.toDouble());
}

QString jsonText(const QJsonValue& value)
{
    const QByteArray text = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return printable(QString::fromUtf8(text.mid(1, text.size() - 2)));
}

} // namespace Host
