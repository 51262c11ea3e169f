// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/ModelProperties.h"

#include <QMetaEnum>
#include <QVariant>

namespace Host {

std::vector<QMetaProperty> propertiesOf(const QObject& object, const QMetaObject& base)
{
    std::vector<QMetaProperty> properties;
    for (const QMetaObject* each = object.metaObject(); each && each != &base; each = each->superClass()) {
        for (int i = each->propertyOffset(); i < each->propertyCount(); ++i)
            properties.push_back(each->property(i));
    }
    return properties;
}

QString documentName(const QMetaProperty& property)
{
    QString name;
    for (const char* c = property.name(); *c != '\0'; ++c) {
        const QChar letter = QLatin1Char(*c);
        if (letter.isUpper())
            name += QLatin1Char('_');
        name += letter.toLower();
    }
    return name;
}

QStringList choicesOf(const QMetaProperty& property)
{
    QStringList names;
    const QMetaEnum values = property.enumerator();
    for (int i = 0; property.isEnumType() && i < values.keyCount(); ++i)
        names << QString::fromLatin1(values.key(i));
    return names;
}

QJsonValue toJson(const QMetaProperty& property, const QVariant& value)
{
    if (property.isEnumType())
        return QString::fromLatin1(property.enumerator().valueToKey(value.toInt()));
    return QJsonValue::fromVariant(value);
}

} // namespace Host
