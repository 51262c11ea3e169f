// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/ENodePortType.h>
#include <Halvex/graph/SNodeDataType.h>

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace Plugin::Halvex {
class CNodeDataModel;
class CNodeDataModelRegistry;
} // namespace Plugin::Halvex

namespace Host {

/// The types of the ports of one side, by their numbers.
using PortTypes = std::vector<Plugin::Halvex::SNodeDataType>;

PortTypes portTypes(const Plugin::Halvex::CNodeDataModel& model, Plugin::Halvex::ENodePortType side);

/// The captions of the ports of one side, by their numbers; most models have none.
QStringList portNames(const Plugin::Halvex::CNodeDataModel& model, Plugin::Halvex::ENodePortType side);

/**
 * What a registry offers, for messages.
 *
 * Threads: the registry's.
 */
class CModelCatalogue
{
    Q_DECLARE_TR_FUNCTIONS(Host::CModelCatalogue)

public:
    /// \a registry outlives this object, and nothing is registered meanwhile.
    explicit CModelCatalogue(Plugin::Halvex::CNodeDataModelRegistry& registry);

    /// All names, sorted.
    const QStringList& names() const { return m_names; }

    /// A new model. Null if there is none, or with what is wrong in \a error if it cannot be made.
    std::unique_ptr<Plugin::Halvex::CNodeDataModel> create(const QString& name, QString* error) const;

    bool converts(const QString& from, const QString& to) const;

    /// The model to put between ports of these types, by their ids; null if there is none.
    QString modelBetween(const QString& from, const QString& to);

private:
    struct SPassage
    {
        QString model;
        QString from;
        QString to;
    };

    void findPassages();

    Plugin::Halvex::CNodeDataModelRegistry& m_registry;
    QStringList m_names;
    std::vector<SPassage> m_passages; // what models with one input make of what; found when it is asked for
    bool m_arePassagesFound = false;
};

} // namespace Host
