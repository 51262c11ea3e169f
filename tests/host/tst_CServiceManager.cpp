// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/plugins/CServiceManager.h"

#include <Halvex/service/CNodeService.h>

#include <QCoreApplication>
#include <QPointer>
#include <QTest>

using namespace Host;
using Core::Service::IService;

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
    const auto other = QSharedPointer<IService>::create(nullptr);
    const auto service = QSharedPointer<Plugin::Halvex::CNodeService>::create(nullptr);
    manager.registerService(other);
    manager.registerService(service);
    QCOMPARE(manager.findService("Plugin::Halvex::INodeService").data(), service.data());
    QCOMPARE(manager.findService("Plugin::Halvex::CNodeService").data(), service.data());
    QCOMPARE(manager.findService("QObject"), other);
    QVERIFY(!manager.findService("INodeService"));
}

void tst_CServiceManager::firstPublishedIsFound()
{
    CServiceManager manager;
    const auto first = QSharedPointer<IService>::create(nullptr);
    const auto second = QSharedPointer<IService>::create(nullptr);
    manager.registerService(first);
    manager.registerService(second);
    QCOMPARE(manager.findService("QObject"), first);
    manager.unregisterService(first);
    QCOMPARE(manager.findService("QObject"), second);
}

void tst_CServiceManager::sharesUntilWithdrawn()
{
    CServiceManager manager;
    auto service = QSharedPointer<IService>::create(nullptr);
    const QPointer<IService> watched(service.data());
    manager.registerService(service);
    service.reset();
    QVERIFY(watched);
    manager.unregisterService(manager.findService("QObject"));
    QVERIFY(!watched);

    service = QSharedPointer<IService>::create(nullptr);
    const QPointer<IService> left(service.data());
    manager.registerService(service);
    service.reset();
    manager.truncate(0);
    QVERIFY(!left);
}

void tst_CServiceManager::truncatedFromTheEnd()
{
    CServiceManager manager;
    const auto publish = [&manager] {
        const auto service = QSharedPointer<IService>::create(nullptr);
        manager.registerService(service);
        return service.toWeakRef();
    };
    const QWeakPointer<IService> first = publish();
    const QWeakPointer<IService> second = publish();
    const QWeakPointer<IService> third = publish();
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
