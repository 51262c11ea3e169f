// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/SettingProperty.h"

#include "host/base/Shown.h"
#include "host/check/CJsonTree.h"
#include "host/check/CWordFinder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QMetaEnum>
#include <QMetaProperty>
#include <QObject>

namespace Host {

namespace {

QString documentName(const QString& property)
{
    QString name;
    for (const QChar c : property) {
        if (c.isUpper())
            name += QLatin1Char('_');
        name += c.toLower();
    }
    return name;
}

// Not valid if there is none.
QMetaProperty propertyOf(const QObject& model, const QString& setting)
{
    const QMetaObject& meta = *model.metaObject();
    for (int i = QObject::staticMetaObject.propertyCount(); i < meta.propertyCount(); ++i) {
        if (documentName(QString::fromLatin1(meta.property(i).name())) == setting)
            return meta.property(i);
    }
    return {};
}

QStringList keysOf(const QMetaEnum& values)
{
    QStringList keys;
    for (int i = 0; i < values.keyCount(); ++i)
        keys << QString::fromLatin1(values.key(i));
    return keys;
}

} // namespace

QStringList settingProperties(const QObject& model)
{
    QStringList names;
    const QMetaObject& meta = *model.metaObject();
    for (int i = QObject::staticMetaObject.propertyCount(); i < meta.propertyCount(); ++i)
        names << documentName(QString::fromLatin1(meta.property(i).name()));
    return names;
}

QJsonValue settingProperty(const QObject& model, const QString& setting)
{
    const QMetaProperty property = propertyOf(model, setting);
    if (!property.isValid())
        return QJsonValue::Undefined;
    const QVariant value = property.read(&model);
    if (property.isEnumType())
        return QString::fromLatin1(property.enumerator().valueToKey(value.toInt()));
    return QJsonValue::fromVariant(value);
}

QStringList settingChoices(const QObject& model, const QString& setting)
{
    const QMetaProperty property = propertyOf(model, setting);
    return property.isValid() && property.isEnumType() ? keysOf(property.enumerator()) : QStringList();
}

QString expectedBySetting(const QObject& model, const SJsonNode& setting)
{
    const QMetaProperty property = propertyOf(model, setting.key);
    if (!property.isValid())
        return {};
    if (property.isEnumType()) {
        const QStringList keys = keysOf(property.enumerator());
        const bool isOne = setting.isString() && keys.contains(setting.text());
        return isOne ? QString() : QStringLiteral("one of %1").arg(listed(keys, QStringLiteral("or")));
    }
    switch (property.userType()) {
    case QMetaType::Bool:
        return setting.type == QJsonValue::Bool ? QString() : QStringLiteral("true or false");
    case QMetaType::Int:
    case QMetaType::UInt:
        return isWholeNumber(setting.scalar) ? QString() : QStringLiteral("a whole number");
    case QMetaType::Double:
    case QMetaType::Float:
        return setting.type == QJsonValue::Double ? QString() : QStringLiteral("a number");
    case QMetaType::QString:
        return setting.isString() ? QString() : QStringLiteral("a string");
    default:
        return {};
    }
}

QString jsonText(const QJsonValue& value)
{
    const QByteArray text = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return printable(QString::fromUtf8(text.mid(1, text.size() - 2)));
}

} // namespace Host
