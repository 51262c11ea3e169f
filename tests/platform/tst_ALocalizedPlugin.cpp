// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "platform/ALocalizedPlugin.h"

#include <QtTest>

#include <type_traits>

using Core::Plugin::ALocalizedPlugin;
using Core::Plugin::IPlugin;
using Core::Service::IService;
using Core::Service::IServiceManager;

static_assert(std::is_abstract_v<IPlugin> && std::is_abstract_v<ALocalizedPlugin>,
              "a plugin says what its start and end do");
static_assert(std::is_abstract_v<IServiceManager>, "the host implements it");
static_assert(!std::is_convertible_v<QObject*, IService>, "a service is made on request");

namespace {

class CService : public IService
{
public:
    using IService::IService;
};

class CServiceManager : public IServiceManager
{
public:
    void registerService(const QSharedPointer<IService>& service) override { m_services.append(service); }
    void unregisterService(const QSharedPointer<IService>& service) override { m_services.removeAll(service); }
    QSharedPointer<IService> findService(const char* className) const override
    {
        for (const auto& service : m_services) {
            if (service->inherits(className))
                return service;
        }
        return {};
    }

    const QVector<QSharedPointer<IService>>& services() const { return m_services; }

private:
    QVector<QSharedPointer<IService>> m_services;
};

/// Overrides only what it must.
class CPlugin : public ALocalizedPlugin
{
public:
    bool initialize(const QWeakPointer<IServiceManager>& manager) override
    {
        const auto strong = manager.toStrongRef();
        if (strong.isNull())
            return false;
        strong->registerService(m_service);
        return true;
    }
    bool extensionsInitialized() override { return true; }
    bool uninitialize(const QWeakPointer<IServiceManager>& manager) override
    {
        const auto strong = manager.toStrongRef();
        if (strong.isNull())
            return false;
        strong->unregisterService(m_service);
        return true;
    }

private:
    QSharedPointer<IService> m_service{new CService(nullptr)};
};

} // namespace

class tst_ALocalizedPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mayCloseAtAnyTime();
    void isTakenDownAtOnce();
    void ignoresTheLanguage();
    void belongsToItsParent();
    void publishesAndWithdrawsAService();
    void startsWithoutAManagerFail();
};

void tst_ALocalizedPlugin::mayCloseAtAnyTime()
{
    CPlugin plugin;
    IPlugin& base = plugin;
    QVERIFY(base.checkPluginClosability(false));
    QVERIFY(base.checkPluginClosability(true));
}

void tst_ALocalizedPlugin::isTakenDownAtOnce()
{
    CPlugin plugin;
    QCOMPARE(plugin.aboutToUninitialize(), IPlugin::UninitializeMode::Synchronous);
}

void tst_ALocalizedPlugin::ignoresTheLanguage()
{
    CPlugin plugin;
    plugin.setObjectName(QStringLiteral("name"));
    plugin.setLanguage(QStringLiteral("ko"));
    plugin.setLanguage(QString());
    QCOMPARE(plugin.objectName(), QStringLiteral("name"));
}

void tst_ALocalizedPlugin::belongsToItsParent()
{
    QObject parent;
    QCOMPARE((new CService(&parent))->parent(), &parent);
    QVERIFY(CPlugin().parent() == nullptr);
}

void tst_ALocalizedPlugin::publishesAndWithdrawsAService()
{
    const QSharedPointer<CServiceManager> manager(new CServiceManager);
    CPlugin plugin;
    QVERIFY(plugin.initialize(manager));
    QVERIFY(plugin.extensionsInitialized());
    QCOMPARE(manager->services().size(), 1);
    QVERIFY(plugin.uninitialize(manager));
    QVERIFY(manager->services().isEmpty());
}

void tst_ALocalizedPlugin::startsWithoutAManagerFail()
{
    CPlugin plugin;
    QVERIFY(!plugin.initialize(QWeakPointer<IServiceManager>()));
    QVERIFY(!plugin.uninitialize(QWeakPointer<IServiceManager>()));
}

QTEST_GUILESS_MAIN(tst_ALocalizedPlugin)

#include "tst_ALocalizedPlugin.moc"
