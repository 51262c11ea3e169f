// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/ModelSettings.h"

#include "host/base/ClosestWords.h"
#include "host/base/FolderName.h"
#include "host/base/ModelProperties.h"
#include "host/base/SettingRange.h"
#include "host/base/Shown.h"
#include "host/sinks/IFrameSink.h"

#include <QCoreApplication>
#include <QMetaClassInfo>
#include <QMetaProperty>
#include <QPointer>

namespace Host {

namespace {

class CSettingTexts
{
    Q_DECLARE_TR_FUNCTIONS(Host::CSettingTexts)
};

QString helpText(const QMetaObject& meta, const QMetaProperty& property)
{
    const int index = meta.indexOfClassInfo((QByteArray(property.name()) + ".help").constData());
    return index < 0 ? QString() : QString::fromUtf8(meta.classInfo(index).value());
}

QString typeName(const QMetaProperty& property)
{
    if (property.isEnumType())
        return QStringLiteral("one of");
    return property.type() == QVariant::String ? QStringLiteral("text") : QString::fromLatin1(property.typeName());
}

QString valueText(const QMetaProperty& property, const QVariant& value)
{
    return property.isEnumType() ? toJson(property, value).toString() : value.toString();
}

QString rangeText(const QObject& model, const QMetaProperty& property)
{
    return property.isEnumType() ? choicesOf(property).join(QStringLiteral(", ")) : rangeOf(model, property);
}

// A name however it is spelt.
QString folded(QString name)
{
    return name.remove(QLatin1Char('_')).toLower();
}

bool toBool(const QString& text, bool* ok)
{
    static const QStringList yes{QStringLiteral("true"), QStringLiteral("on"), QStringLiteral("yes"),
                                 QStringLiteral("1")};
    static const QStringList no{QStringLiteral("false"), QStringLiteral("off"), QStringLiteral("no"),
                                QStringLiteral("0")};
    const bool isYes = yes.contains(text.toLower());
    *ok = isYes || no.contains(text.toLower());
    return isYes;
}

// The value that \a text spells; an invalid one if it spells none.
QVariant valueOf(const QMetaProperty& property, const QString& text)
{
    bool ok = true;
    QVariant value(text);
    if (property.isEnumType())
        value = property.enumerator().keyToValue(text.toLatin1().constData(), &ok);
    else if (property.type() == QVariant::Bool)
        value = toBool(text, &ok);
    else if (property.type() == QVariant::Int)
        value = text.toInt(&ok);
    else if (property.type() == QVariant::Double)
        value = text.toDouble(&ok);
    else
        ok = value.convert(property.userType());
    return ok ? value : QVariant();
}

QString takes(const QObject& model, const QMetaProperty& property, const QString& value)
{
    const QString name = QString::fromLatin1(property.name());
    const QString range = rangeText(model, property);
    if (property.isEnumType())
        return withHint(CSettingTexts::tr("'%1' takes one of %2, not %3").arg(name, range, shown(value)),
                        didYouMean(value, choicesOf(property)));
    if (property.type() == QVariant::String)
        return CSettingTexts::tr("'%1' takes text, not %2").arg(name, shown(value));
    const QString type = QString::fromLatin1(property.typeName());
    if (range.isEmpty())
        return CSettingTexts::tr("'%1' takes %2, not %3").arg(name, type, shown(value));
    return CSettingTexts::tr("'%1' takes %2, %3, not %4", "name, type, range").arg(name, type, range, shown(value));
}

// Only a document can say what such a setting is. Of a sink's name one hears first when it would not do there either.
QString notWritable(const QObject& model, const QMetaProperty& property, const QString& value)
{
    const bool isSinkName = dynamic_cast<const IFrameSink*>(&model) && qstrcmp(property.name(), "sinkName") == 0;
    if (isSinkName && !makesASinkFolder(value))
        return CSettingTexts::tr("the sink's name %1 makes no folder").arg(shown(value));
    return CSettingTexts::tr("'%1' cannot be set; a chain gives it").arg(QLatin1String(property.name()));
}

} // namespace

bool isChoice(const SModelSetting& setting)
{
    return setting.type == QLatin1String("one of");
}

std::vector<SModelSetting> settingsOf(const QObject& model)
{
    const QMetaObject& meta = *model.metaObject();
    std::vector<SModelSetting> settings;
    for (const QMetaProperty& property : propertiesOf(model)) {
        settings.push_back({QString::fromLatin1(property.name()), typeName(property),
                            valueText(property, property.read(&model)), rangeText(model, property),
                            helpText(meta, property)});
    }
    return settings;
}

QString setSetting(QObject& model, const QString& name, const QString& value)
{
    QStringList known;
    for (const QMetaProperty& property : propertiesOf(model)) {
        known << QString::fromLatin1(property.name());
        if (folded(known.constLast()) != folded(name))
            continue;
        const QVariant wanted = valueOf(property, value);
        if (!wanted.isValid() || !isInRange(model, property, value.toDouble()))
            return takes(model, property, value);
        if (!property.isWritable() && property.read(&model) != wanted)
            return notWritable(model, property, value);
        // A model that does not take the value leaves the setting as it is.
        const QPointer<QObject> self(&model);
        property.write(&model, wanted);
        if (!self)
            return CSettingTexts::tr("it is gone");
        const QVariant present = property.read(&model);
        return valueText(property, present) == valueText(property, wanted) ? QString() : takes(model, property, value);
    }
    if (known.isEmpty())
        return CSettingTexts::tr("it has no settings");
    const QString others = known.join(QStringLiteral(", "));
    const QString question = didYouMean(name, known);
    if (question.isEmpty())
        return CSettingTexts::tr("it has no setting %1; it has %2").arg(shown(name), others);
    return CSettingTexts::tr("it has no setting %1; %2 It has %3", "%2 is a question")
        .arg(shown(name), question, others);
}

} // namespace Host
