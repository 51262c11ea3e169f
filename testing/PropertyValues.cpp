// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "testing/PropertyValues_p.h"

#include "testing/Thrown_p.h"

#include <QMetaEnum>
#include <QPointer>
#include <QVariant>

#include <algorithm>

namespace Plugin::Halvex::Testing {

namespace {

// Values that a setting may take which has this one; near ones first, since most settings have a range.
std::vector<QVariant> otherValues(const QMetaProperty& property, const QVariant& value)
{
    if (property.isEnumType()) {
        std::vector<QVariant> values;
        const QMetaEnum keys = property.enumerator();
        values.reserve(std::size_t(keys.keyCount()));
        for (int i = 0; i < keys.keyCount(); ++i)
            values.emplace_back(keys.value(i));
        return values;
    }
    switch (value.userType()) {
    case QMetaType::Bool:
        return {!value.toBool()};
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong: {
        const qlonglong number = value.toLongLong();
        return {number + 1, number + 2, number - 1, number - 2, number * 2, 0, 1};
    }
    case QMetaType::Float:
    case QMetaType::Double:
        return {value.toDouble() + 1, value.toDouble() / 2, value.toDouble() - 1, 0.5};
    case QMetaType::QString:
        return {value.toString() + QLatin1Char('x'), QStringLiteral("1")};
    default:
        return {};
    }
}

bool isStored(const QMetaProperty& property, const QObject& object)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return property.isStored(&object); // may be for the object to say
#else
    Q_UNUSED(object)
    return property.isStored();
#endif
}

} // namespace

std::vector<QMetaProperty> settingsOf(const QObject& object)
{
    std::vector<QMetaProperty> settings;
    const QMetaObject& meta = *object.metaObject();
    for (int i = QObject::staticMetaObject.propertyCount(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        if (property.isReadable() && property.isWritable() && isStored(property, object))
            settings.push_back(property);
    }
    return settings;
}

bool changeProperty(QObject& object, const QMetaProperty& property)
{
    const QVariant before = property.read(&object);
    const std::vector<QVariant> others = otherValues(property, before);
    const QPointer<QObject> self(&object); // who hears of a change may destroy it
    return std::any_of(others.begin(), others.end(), [&](const QVariant& other) {
        return self && property.write(self, other) && self && property.read(self) != before;
    });
}

void changeProperties(QObject& object)
{
    for (const QMetaProperty& property : settingsOf(object))
        thrownBy([&] { changeProperty(object, property); });
}

QString shownValue(const QMetaProperty& property, const QVariant& value)
{
    if (property.isEnumType())
        return QString::fromLatin1(property.enumerator().valueToKey(value.toInt()));
    return value.toString();
}

} // namespace Plugin::Halvex::Testing
