// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/IHostModels.h"
#include "host/plugins/CServiceManager.h"

#include <Halvex/platform/IPlugin.h>
#include <Halvex/service/CNodeService.h>

#include <QPluginLoader>
#include <QTest>

#include <memory>

using namespace Host;
using Plugin::Halvex::CNodeService;

class tst_CHostModelsPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void publishesTheModelsAndRegistersThem();
    void withoutANodeServiceItFails();
    void withoutAManagerItFails();
    void managerThatGoesInBetween();

private:
    std::unique_ptr<QPluginLoader> m_loader;
    Core::Plugin::IPlugin* m_plugin = nullptr;
    QSharedPointer<CServiceManager> m_manager;
};

void tst_CHostModelsPlugin::init()
{
    m_manager = QSharedPointer<CServiceManager>::create();
    m_loader = std::make_unique<QPluginLoader>(QStringLiteral(HOST_PLUGINS "/libHalvexHostModels.so"));
    m_plugin = dynamic_cast<Core::Plugin::IPlugin*>(m_loader->instance());
    QVERIFY2(m_plugin, qPrintable(m_loader->errorString()));
}

void tst_CHostModelsPlugin::cleanup()
{
    m_manager.reset();
    QVERIFY(m_loader->unload());
}

void tst_CHostModelsPlugin::publishesTheModelsAndRegistersThem()
{
    const auto service = QSharedPointer<CNodeService>::create(nullptr);
    m_manager->registerService(service);
    QVERIFY(m_plugin->initialize(m_manager));
    QVERIFY(m_manager->findService(qobject_interface_iid<IHostModels*>()));
    QVERIFY(service->registry()->registeredModelCreators().empty());
    QVERIFY(m_plugin->extensionsInitialized());
    QVERIFY(service->createModel(QStringLiteral("Camera Source")));

    QVERIFY(m_plugin->uninitialize(m_manager));
    QVERIFY(!m_manager->findService(qobject_interface_iid<IHostModels*>()));
    QVERIFY(m_manager->findService("Plugin::Halvex::INodeService"));
    // The registry's creators are code of the plugin, which goes next.
    m_manager->unregisterService(service);
}

void tst_CHostModelsPlugin::withoutANodeServiceItFails()
{
    QVERIFY(m_plugin->initialize(m_manager));
    QVERIFY(!m_plugin->extensionsInitialized());
    QVERIFY(m_plugin->uninitialize(m_manager));
}

void tst_CHostModelsPlugin::withoutAManagerItFails()
{
    QVERIFY(!m_plugin->initialize({}));
    QVERIFY(!m_plugin->extensionsInitialized());
    QVERIFY(m_plugin->uninitialize({}));
}

void tst_CHostModelsPlugin::managerThatGoesInBetween()
{
    QVERIFY(m_plugin->initialize(m_manager));
    m_manager.reset();
    QVERIFY(!m_plugin->extensionsInitialized());
    QVERIFY(m_plugin->uninitialize({}));
}

QTEST_GUILESS_MAIN(tst_CHostModelsPlugin)
#include "tst_CHostModelsPlugin.moc"
