// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/plugins/CServiceManager.h"

#include <Halvex/service/CNodeService.h>

#include <QCoreApplication>
#include <QTest>

using namespace Host;
using Core::Service::IService;

namespace {

// Publishes a service that the manager alone keeps.
QWeakPointer<IService> publish(CServiceManager& manager)
{
    const auto service = QSharedPointer<IService>::create(nullptr);
    manager.registerService(service);
    return service;
}

} // namespace

class tst_CServiceManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsByClass();
    void firstPublishedIsFound();
    void sharesUntilWithdrawn();
    void truncatedFromTheEnd();
    void nullAndTwice();
};

void tst_CServiceManager::findsByClass()
{
    CServiceManager manager;
    QVERIFY(!manager.findService("Plugin::Halvex::INodeService"));
    const auto other = publish(manager);
    const auto service = QSharedPointer<Plugin::Halvex::CNodeService>::create(nullptr);
    manager.registerService(service);
    QCOMPARE(manager.findService("Plugin::Halvex::INodeService").data(), service.data());
    QCOMPARE(manager.findService("Plugin::Halvex::CNodeService").data(), service.data());
    QCOMPARE(manager.findService("QObject"), other);
    QVERIFY(!manager.findService("INodeService"));
}

void tst_CServiceManager::firstPublishedIsFound()
{
    CServiceManager manager;
    const auto first = publish(manager);
    const auto second = publish(manager);
    QCOMPARE(manager.findService("QObject"), first);
    manager.unregisterService(first.toStrongRef());
    QCOMPARE(manager.findService("QObject"), second);
}

void tst_CServiceManager::sharesUntilWithdrawn()
{
    CServiceManager manager;
    const auto service = publish(manager);
    QVERIFY(service);
    manager.unregisterService(manager.findService("QObject"));
    QVERIFY(!service);
    const auto left = publish(manager);
    manager.truncate(0);
    QVERIFY(!left);
}

void tst_CServiceManager::truncatedFromTheEnd()
{
    CServiceManager manager;
    const auto first = publish(manager);
    const auto second = publish(manager);
    const auto third = publish(manager);
    QCOMPARE(manager.size(), std::size_t(3));
    manager.truncate(5);
    QVERIFY(third);
    // One that withdraws another as it goes.
    QObject::connect(third.toStrongRef().data(), &QObject::destroyed, qApp,
                     [&manager, second] { manager.unregisterService(second.toStrongRef()); });
    manager.truncate(1);
    QVERIFY(!third);
    QVERIFY(!second);
    QVERIFY(first);
    QCOMPARE(manager.size(), std::size_t(1));
}

void tst_CServiceManager::nullAndTwice()
{
    CServiceManager manager;
    manager.registerService({});
    QVERIFY(!manager.findService("QObject"));
    const auto service = QSharedPointer<IService>::create(nullptr);
    manager.registerService(service);
    manager.registerService(service);
    manager.unregisterService(service);
    QVERIFY(!manager.findService("QObject"));
    manager.unregisterService(service);
    manager.unregisterService({});
}

QTEST_GUILESS_MAIN(tst_CServiceManager)
#include "tst_CServiceManager.moc"
