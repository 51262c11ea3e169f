// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "CPluginFile.h"
#include "support/CServiceManager.h"

#include <Halvex/platform/ALocalizedPlugin.h>
#include <Halvex/service/INodeService.h>

#include <QByteArray>
#include <QSharedPointer>
#include <QString>

/// The test's own plugin; HALVEX_TEST_MODELS names another build of it.
inline QByteArray testModelsFile()
{
    const QByteArray other = qgetenv("HALVEX_TEST_MODELS");
    return other.isEmpty() ? QByteArray(TEST_MODELS_PLUGIN_FILE) : other;
}

/// A host of the library's plugin and of the test's own, from initialize() to uninitialize() and unloading. It knows
/// no more of the library than its headers.
class CTestHost
{
public:
    CTestHost()
        : m_isUp(m_halvex.plugin().initialize(m_manager) && m_models.plugin().initialize(m_manager) &&
                 m_halvex.plugin().extensionsInitialized() && m_models.plugin().extensionsInitialized())
    {
    }
    ~CTestHost() { shutDown(); }
    Q_DISABLE_COPY(CTestHost)

    bool isUp() const { return m_isUp; }

    /// Uninitializes both plugins, once; they stay loaded.
    void shutDown()
    {
        if (!m_isUp)
            return;
        m_isUp = false;
        m_models.plugin().uninitialize(m_manager);
        m_halvex.plugin().uninitialize(m_manager);
    }

    Plugin::Halvex::INodeService* service() const
    {
        return static_cast<Plugin::Halvex::INodeService*>(
            m_manager->findService("Plugin::Halvex::INodeService").data());
    }
    const QSharedPointer<CServiceManager>& manager() const { return m_manager; }
    CPluginFile& halvex() { return m_halvex; }
    CPluginFile& models() { return m_models; }

    void setLanguage(const QString& language)
    {
        dynamic_cast<Core::Plugin::ALocalizedPlugin&>(*m_halvex.instance()).setLanguage(language);
    }

private:
    // In this order: the test's plugin links the library, so it goes first.
    CPluginFile m_halvex{HALVEX_PLUGIN_FILE};
    CPluginFile m_models{testModelsFile().constData()};
    QSharedPointer<CServiceManager> m_manager{new CServiceManager};
    bool m_isUp;
};

/// A source, a decoupler and a sink in a host's graph, connected with each other, and a worker behind the source.
struct SFrameChain
{
    explicit SFrameChain(Plugin::Halvex::INodeService& service, double framesPerSecond)
        : source(add(service, "TestSource"))
        , decoupler(add(service, "DecouplerVGR"))
        , sink(add(service, "TestSink"))
        , worker(add(service, "TestWorker"))
    {
        if (!decoupler->setProperty("framesPerSecond", framesPerSecond))
            qFatal("The decoupler has no rate.");
        service.connectModels(decoupler, 0, source, 0);
        service.connectModels(sink, 0, decoupler, 0);
        service.connectModels(worker, 0, source, 0);
    }

    /// Sends a frame of that number.
    void send(qulonglong number) const { QMetaObject::invokeMethod(source, "send", Q_ARG(qulonglong, number)); }

    Plugin::Halvex::ANodeDataModel* source;
    Plugin::Halvex::ANodeDataModel* decoupler;
    Plugin::Halvex::ANodeDataModel* sink;
    Plugin::Halvex::ANodeDataModel* worker; ///< Works on a frame until the test's plugin goes.

private:
    static Plugin::Halvex::ANodeDataModel* add(Plugin::Halvex::INodeService& service, const char* modelName)
    {
        auto model = service.createModel(QString::fromLatin1(modelName));
        if (!model)
            qFatal("There is no model %s.", modelName);
        Plugin::Halvex::ANodeDataModel* const added = model.get();
        service.addNode(std::move(model), {});
        return added;
    }
};
