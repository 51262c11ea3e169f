// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CSettingsCheck.h"

#include "host/base/Attempt.h"
#include "host/base/ClosestWords.h"
#include "host/base/Shown.h"
#include "host/check/CFaultList.h"
#include "host/check/CJsonTree.h"
#include "host/check/CWordFinder.h"
#include "host/check/SettingProperty.h"

#include <Halvex/graph/CNodeDataModel.h>
#include <Halvex/graph/DocumentKeys.h>
#include <Halvex/models/CNodeDecouplerDataModelBase.h>

#include <QHash>

#include <algorithm>
#include <iterator>
#include <vector>

namespace Host {

using namespace Plugin::Halvex;

namespace {

QJsonObject settings(const QJsonObject& model)
{
    return model.value(DocumentKeys::property).toObject();
}

// Whether a model that saves \a kept has taken what was given: a fraction to the accuracy of a float, and in an object
// whatever else it keeps.
bool isTaken(const QJsonValue& given, const QJsonValue& kept)
{
    if (given.isDouble() && kept.isDouble())
        return given == kept || (!isWholeNumber(given) && float(given.toDouble()) == float(kept.toDouble()));
    if (!given.isObject() || !kept.isObject())
        return given == kept;
    const QJsonObject object = given.toObject();
    const QStringList keys = object.keys();
    return std::all_of(keys.begin(), keys.end(),
                       [&](const QString& key) { return isTaken(object.value(key), kept[key]); });
}

// What counts of an object: of a double key, which was told, the last.
std::vector<const SJsonNode*> lastOfEachKey(const SJsonNode& object)
{
    QHash<QString, const SJsonNode*> last;
    for (const SJsonNode* member : object.children)
        last.insert(member->key, member);
    std::vector<const SJsonNode*> members;
    std::copy_if(object.children.begin(), object.children.end(), std::back_inserter(members),
                 [&last](const SJsonNode* member) { return last.value(member->key) == member; });
    return members;
}

bool isSameKind(QJsonValue::Type type, const QJsonValue& value)
{
    return value.isUndefined() || value.isNull() || value.type() == type;
}

} // namespace

CSettingsCheck::CSettingsCheck(CNodeDataModel& model, const SJsonNode& json, CFaultList& faults, CWordFinder& words)
    : m_model(model)
    , m_json(json)
    , m_faults(faults)
    , m_words(words)
{
}

void CSettingsCheck::check()
{
    if (m_json.children.size() == 1)
        return; // the name alone, as most elements have it
    const QString error = attempt(tr("making %1").arg(shown(m_model.name())), [this] {
        m_before = m_model.save();
        m_model.restore(valueOf(m_json).toObject());
        m_after = m_model.save();
        checkKeys();
        checkSettings();
        return true;
    });
    if (!error.isEmpty())
        m_faults.addError(EFaultRule::UnusableModel, m_json, error);
}

void CSettingsCheck::checkKeys()
{
    for (const SJsonNode* member : lastOfEachKey(m_json)) {
        const QString& key = member->key;
        if (key == DocumentKeys::name || key == DocumentKeys::property)
            continue;
        const QJsonValue given = valueOf(*member);
        const QJsonValue kept = m_after.value(key);
        if (isTaken(given, kept) || (key == DocumentKeys::isUnique && given == false))
            continue;
        if (kept.isUndefined()) {
            QStringList keys = m_after.keys();
            if (!keys.contains(DocumentKeys::property) && !settingNames().isEmpty())
                keys << QString(DocumentKeys::property);
            m_faults.addKeyError(
                EFaultRule::UnknownKey, *member,
                withHint(tr("unknown key %1, which %2 does not keep").arg(shown(key), shown(m_model.name())),
                         m_words.hint(key, keys)));
        } else {
            m_faults.addError(
                EFaultRule::Setting, *member,
                tr("%1 for %2 is not taken; it stays %3").arg(description(*member), shown(key), jsonText(kept)));
        }
    }
}

void CSettingsCheck::checkSettings()
{
    const SJsonNode* const all = m_json.member(DocumentKeys::property);
    if (!all || !all->isObject())
        return;
    for (const SJsonNode* setting : lastOfEachKey(*all))
        checkSetting(*setting);
}

void CSettingsCheck::checkSetting(const SJsonNode& setting)
{
    const QStringList names = settingNames();
    if (!names.contains(setting.key)) {
        const QString text = names.isEmpty() ? tr("%1 has no setting %2, nor any other") : tr("%1 has no setting %2");
        m_faults.addKeyError(
            EFaultRule::Setting, setting,
            withHint(text.arg(shown(m_model.name()), shown(setting.key)), m_words.hint(setting.key, names)));
        return;
    }
    if (checkType(setting) && checkRate(setting))
        checkValue(setting);
}

bool CSettingsCheck::checkType(const SJsonNode& setting)
{
    const QString expected = expectedBySetting(m_model, setting);
    if (expected.isEmpty() && isSameKind(setting.type, settings(m_before).value(setting.key)))
        return true;
    const QString belongs =
        expected.isEmpty() ? tr("a value like %1").arg(jsonText(settings(m_before).value(setting.key))) : expected;
    const QString meant = m_words.closest(setting.text(), settingChoices(m_model, setting.key));
    const QString hint = meant.isNull() ? QString() : didYouMean(QStringList(meant));
    m_faults.addError(EFaultRule::Setting, setting,
                      withHint(tr("%1, where %2 belongs").arg(description(setting), belongs), hint));
    return false;
}

// A decoupler keeps any rate, but its timer follows none but these. In a document another one is a mistake; who sets it
// for a run sees in its table what the timer does instead.
bool CSettingsCheck::checkRate(const SJsonNode& setting)
{
    const bool isRate =
        setting.key == DocumentKeys::framesPerSecond && qobject_cast<CNodeDecouplerDataModelBase*>(&m_model) != nullptr;
    if (!isRate || setting.scalar.toDouble() > 0)
        return true;
    m_faults.addError(EFaultRule::Setting, setting, tr("%1, where a rate above 0 belongs").arg(description(setting)));
    return false;
}

void CSettingsCheck::checkValue(const SJsonNode& setting)
{
    const QJsonValue now = present(setting.key);
    const bool isKept = now.isUndefined() || isTaken(valueOf(setting), now);
    if (isKept && isInRangeOfSetting(m_model, setting))
        return;
    const QString taken = takenBySetting(m_model, setting.key);
    const QString refusal =
        taken.isEmpty()
            ? tr("%1 refuses %2").arg(shown(setting.key), description(setting))
            : tr("%1 takes %2, not %3").arg(shown(setting.key), taken, setting.scalar.toVariant().toString());
    const QString stays = isKept ? QString() : tr("it stays %1").arg(jsonText(now));
    m_faults.addError(EFaultRule::Setting, setting, withHint(refusal, stays));
}

QJsonValue CSettingsCheck::present(const QString& key) const
{
    const QJsonValue saved = settings(m_after).value(key);
    return saved.isUndefined() ? settingProperty(m_model, key) : saved;
}

QStringList CSettingsCheck::settingNames() const
{
    QStringList names = settings(m_before).keys() + settings(m_after).keys() + settingProperties(m_model);
    names.removeDuplicates();
    names.sort();
    return names;
}

} // namespace Host
