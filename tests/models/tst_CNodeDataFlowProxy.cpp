// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/CNodeDataFlowProxy.h>

#include "TestModels.h"
#include "support/CLeakTest.h"

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

/// How each kind of model holds its proxy.
template <typename Model>
void requireProxyOfItsOwn()
{
    auto model = std::make_unique<Model>();
    const QPointer<CNodeDataFlowProxy> proxy = model->getDataFlowProxy();
    QVERIFY(proxy);
    QCOMPARE(proxy->parent(), model.get());
    QCOMPARE(proxy->thread(), model->thread());
    QCOMPARE(model->getDataFlowProxy(), proxy);
    model.reset();
    QVERIFY(!proxy);

    model = std::make_unique<Model>();
    delete model->getDataFlowProxy().data();
    QVERIFY(!model->getDataFlowProxy());
}

} // namespace

class tst_CNodeDataFlowProxy : public CLeakTest
{
    Q_OBJECT

private Q_SLOTS:
    void belongsToItsParent();
    void sourcesAndSinksHaveOne();
    void emitsOncePerCallAndKeepsNothing();
    void emitsInTheCallersThread();
    void queuesDataByTheNamesOfSignalAndSlot();
    void listenerMayDestroyIt();
};

void tst_CNodeDataFlowProxy::belongsToItsParent()
{
    QVERIFY(!CNodeDataFlowProxy().parent());
    QObject parent;
    QCOMPARE((new CNodeDataFlowProxy(&parent))->parent(), &parent);
}

void tst_CNodeDataFlowProxy::sourcesAndSinksHaveOne()
{
    requireProxyOfItsOwn<CSource>();
    requireProxyOfItsOwn<CSink>();
}

void tst_CNodeDataFlowProxy::emitsOncePerCallAndKeepsNothing()
{
    CNodeDataFlowProxy proxy;
    QList<CNodeDataPtr> heard;
    connect(&proxy, &CNodeDataFlowProxy::newDataAvailable, &proxy,
            [&heard](const CNodeDataPtr& data) { heard << data; });

    CNodeDataPtr data = CTestData::make(1);
    proxy.setData(CNodeDataPtr());
    proxy.setData(data);
    proxy.setData(data);
    QCOMPARE(heard, QList<CNodeDataPtr>({CNodeDataPtr(), data, data}));
    heard.clear();
    data.reset();
    QCOMPARE(CTestData::alive(), 0);
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

void tst_CNodeDataFlowProxy::queuesDataByTheNamesOfSignalAndSlot()
{
    const CSource anyModel; // which makes the name of the argument's type known
    CNodeDataFlowProxy proxy;
    CReceiver receiver;
    // Connecting by names is the question. clazy:excludeall=old-style-connect,fully-qualified-moc-types
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

QTEST_GUILESS_MAIN(tst_CNodeDataFlowProxy)

#include "tst_CNodeDataFlowProxy.moc"
