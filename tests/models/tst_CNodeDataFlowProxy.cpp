// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/CNodeDataFlowProxy.h>

#include "TestModels.h"
#include "support/CContextTranslator.h"
#include "support/MetaMethods.h"

#include <QtTest>

#include <type_traits>

using namespace Plugin::Halvex;

static_assert(!std::is_base_of_v<CNodeDataModel, CNodeDataFlowProxy>, "no part of a graph");

namespace {

/// Connected by the texts of signal and slot, as code that has not the headers at hand does it.
class CReceiver : public QObject
{
    Q_OBJECT

public:
    QList<CNodeDataPtr> received;

public Q_SLOTS:
    void receive(const CNodeDataPtr& data) { received << data; }
};

} // namespace

class tst_CNodeDataFlowProxy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void defaultHasNoParent();
    void belongsToItsParent();
    void emitsOncePerCall();
    void emitsInTheCallersThread();
    void keepsNoData();
    void queuesDataByTheNamesOfSignalAndSlot();
    void listenerMayDestroyIt();
    void metaObject();
    void textsAreTranslatedUnderTheClassName();
};

void tst_CNodeDataFlowProxy::cleanup()
{
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeDataFlowProxy::defaultHasNoParent()
{
    const CNodeDataFlowProxy proxy;
    QVERIFY(!proxy.parent());
    QCOMPARE(proxy.thread(), QThread::currentThread());
}

void tst_CNodeDataFlowProxy::belongsToItsParent()
{
    auto parent = std::make_unique<QObject>();
    const QPointer<CNodeDataFlowProxy> proxy = new CNodeDataFlowProxy(parent.get());
    QCOMPARE(proxy->parent(), parent.get());
    parent.reset();
    QVERIFY(!proxy);
}

void tst_CNodeDataFlowProxy::emitsOncePerCall()
{
    CNodeDataFlowProxy proxy;
    QList<CNodeDataPtr> heard;
    connect(&proxy, &CNodeDataFlowProxy::newDataAvailable, &proxy,
            [&heard](const CNodeDataPtr& data) { heard << data; });

    const CNodeDataPtr data = CTestData::make(1);
    proxy.setData(CNodeDataPtr());
    proxy.setData(data);
    proxy.setData(data);
    QCOMPARE(heard, QList<CNodeDataPtr>({CNodeDataPtr(), data, data}));
}

void tst_CNodeDataFlowProxy::emitsInTheCallersThread()
{
    CNodeDataFlowProxy proxy;
    QThread* heardIn = nullptr;
    connect(
        &proxy, &CNodeDataFlowProxy::newDataAvailable, &proxy, [&heardIn] { heardIn = QThread::currentThread(); },
        Qt::DirectConnection);

    QThread* calledIn = nullptr;
    runInWorker([&] {
        calledIn = QThread::currentThread();
        proxy.setData(CTestData::make(1));
    });
    QVERIFY(calledIn && calledIn != QThread::currentThread());
    QCOMPARE(heardIn, calledIn);

    proxy.setData(CTestData::make(2));
    QCOMPARE(heardIn, QThread::currentThread());
}

void tst_CNodeDataFlowProxy::keepsNoData()
{
    CNodeDataFlowProxy proxy;
    int heard = -1;
    connect(&proxy, &CNodeDataFlowProxy::newDataAvailable, &proxy,
            [&heard](const CNodeDataPtr& data) { heard = CTestData::valueOf(data); });
    proxy.setData(CTestData::make(1));
    QCOMPARE(heard, 1);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeDataFlowProxy::queuesDataByTheNamesOfSignalAndSlot()
{
    const CSource anyModel; // which makes the name of the argument's type known
    CNodeDataFlowProxy proxy;
    CReceiver receiver;
    // clazy:excludeall=old-style-connect,fully-qualified-moc-types
    QVERIFY(connect(&proxy, SIGNAL(newDataAvailable(CNodeDataPtr)), &receiver, SLOT(receive(CNodeDataPtr)),
                    Qt::QueuedConnection));

    const CNodeDataPtr data = CTestData::make(1);
    proxy.setData(data);
    QVERIFY(receiver.received.isEmpty());
    QTRY_COMPARE(receiver.received, QList<CNodeDataPtr>({data}));
}

void tst_CNodeDataFlowProxy::listenerMayDestroyIt()
{
    auto proxy = std::make_unique<CNodeDataFlowProxy>();
    CNodeDataPtr heard;
    connect(proxy.get(), &CNodeDataFlowProxy::newDataAvailable, this, [&](const CNodeDataPtr& data) {
        proxy.reset();
        heard = data;
    });
    const CNodeDataPtr data = CTestData::make(1);
    proxy->setData(data);
    QVERIFY(!proxy);
    QCOMPARE(heard, data);
}

void tst_CNodeDataFlowProxy::metaObject()
{
    const QMetaObject& metaObject = CNodeDataFlowProxy::staticMetaObject;
    QCOMPARE(metaObject.className(), "Plugin::Halvex::CNodeDataFlowProxy");
    QCOMPARE(metaObject.superClass(), &QObject::staticMetaObject);
    QCOMPARE(methodsOf(metaObject), QStringList{"public signal newDataAvailable(CNodeDataPtr ptrNodeData)"});
    QCOMPARE(otherMembersOf(metaObject), 0);
}

void tst_CNodeDataFlowProxy::textsAreTranslatedUnderTheClassName()
{
    const CContextTranslator translator;
    QCOMPARE(CNodeDataFlowProxy::tr("text"), QStringLiteral("Plugin::Halvex::CNodeDataFlowProxy"));
}

QTEST_GUILESS_MAIN(tst_CNodeDataFlowProxy)

#include "tst_CNodeDataFlowProxy.moc"
