// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "testing/CLoadedPlugin_p.h"
#include "testing/CServiceList_p.h"

#include <Halvex/scene/CNodeDataModelRegistry.h>

#include <QSharedPointer>
#include <QString>
#include <QStringList>

#include <map>
#include <memory>
#include <vector>

namespace Plugin::Halvex::Testing {

/**
 * A host for one plugin: brings up the library's own plugin, the companions and then the one that is checked, and takes
 * all down again when it goes.
 *
 * \code
 * CPluginBench bench(file, companions);
 * if (!bench.error().isEmpty())
 *     return bench.error();
 * for (const auto& [name, creator] : bench.models())
 *     checkModel(creator);
 * \endcode
 *
 * Threads: the main thread. Models and creators must be gone before the bench is.
 */
class CPluginBench
{
public:
    CPluginBench(const QString& file, const QStringList& companions);
    ~CPluginBench();
    Q_DISABLE_COPY(CPluginBench)

    /// What went wrong first, in one line; empty if the plugin is up.
    QString error() const { return m_error; }

    /// What the plugin has registered, by name.
    std::map<QString, ModelCreator> models() const;

    /// What all plugins have registered; null if there is no node service.
    std::shared_ptr<CNodeDataModelRegistry> registry() const;

    /// Data for the models; null if no plugin brings any.
    const ITestData* testData() const { return m_services->testData(); }

    /// The name of a model, or its category, whose text lies in the plugin's file; empty if there is none.
    QString textOfTheFile() const;

    /// Uninitializes the plugin. Returns how many of its services are still published then.
    std::size_t shutDown();

private:
    bool bringUp(Core::Plugin::IPlugin* plugin);
    bool load(const QString& file);
    void takeDown(Core::Plugin::IPlugin& plugin);

    const QSharedPointer<CServiceList> m_services{new CServiceList};
    std::unique_ptr<Core::Plugin::IPlugin> m_library;     // null if that is what is checked
    std::vector<std::unique_ptr<CLoadedPlugin>> m_loaded; // the last is what is checked
    std::vector<Core::Plugin::IPlugin*> m_up;             // in the order in which they came up
    std::size_t m_servicesBefore = 0;
    QStringList m_modelsBefore;
    bool m_isUp = false;
    QString m_error;
};

/// What a plugin says of itself, by QPluginLoader, without a line of its code being run.
QJsonObject metadataOf(const QString& file);

} // namespace Plugin::Halvex::Testing
