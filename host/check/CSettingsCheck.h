// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QCoreApplication>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

namespace Plugin::Halvex {
class CNodeDataModel;
}

namespace Host {

class CFaultList;
class CWordFinder;
struct SJsonNode;

/**
 * Gives a new model its part of a document and finds what does not arrive in it.
 *
 * A model tells its settings by its Qt properties ("framesPerSecond" stands under "property" as "frames_per_second")
 * and by what it saves. A setting that is neither of these is none of its own. One that is different when it is saved
 * again was refused; so is one beyond its range that a model keeps without effect.
 *
 * Threads: the model's.
 */
class CSettingsCheck
{
    Q_DECLARE_TR_FUNCTIONS(Host::CSettingsCheck)

public:
    /// \a json: the model's object in the document. All arguments outlive this object.
    CSettingsCheck(Plugin::Halvex::CNodeDataModel& model, const SJsonNode& json, CFaultList& faults,
                   CWordFinder& words);

    void check();

private:
    void checkKeys();
    void checkSettings();
    void checkSetting(const SJsonNode& setting);
    bool checkType(const SJsonNode& setting);
    bool checkRate(const SJsonNode& setting);
    void checkValue(const SJsonNode& setting);
    QJsonValue present(const QString& key) const;
    QStringList settingNames() const;

    Plugin::Halvex::CNodeDataModel& m_model;
    const SJsonNode& m_json;
    CFaultList& m_faults;
    CWordFinder& m_words;
    QJsonObject m_before; // what the model saves
    QJsonObject m_after;
};

} // namespace Host
