// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/CNodeDataEntry.h>

#include "TestModels.h"
#include "support/BoundedWait.h"
#include "support/CTestModel.h"
#include "support/SceneConsistency.h"

#include <Halvex/scene/CNodeScene.h>

#include <QSignalSpy>
#include <QtTest>

#include <atomic>
#include <type_traits>
#include <vector>

using namespace Plugin::Halvex;

static_assert(std::is_nothrow_default_constructible_v<CNodeDataEntry>, "a member of a host's class before it connects");
static_assert(std::is_copy_constructible_v<CNodeDataEntry> && std::is_copy_assignable_v<CNodeDataEntry>, "a value");
static_assert(!std::is_constructible_v<CNodeDataEntry, CNodeDataFlowProxy&>, "a source gives it, and nobody else");

namespace {

using Numbers = std::vector<int>;

/// Writes down what a source announces.
Numbers& recordAnnounced(CSource& source, Numbers& announced)
{
    QObject::connect(&source, &CSource::dataUpdated, &source,
                     [&] { announced.push_back(CTestData::valueOf(source.outData(0))); });
    return announced;
}

} // namespace

class tst_CNodeDataEntry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void defaultLeadsNowhere();
    void queuesAlsoInTheGraphsThread();
    void queuesFromAWorker();
    void passesThroughTheProxy();
    void emptyDataIsStoredAndAnnounced();
    void keepsTheOrderOfAThread();
    void copiesLeadToTheSameSource();
    void doesNotKeepTheSource();
    void leadsNowhereOnceTheSourceIsGone();
    void leadsNowhereOnceTheProxyIsGone();
    void staysOfUseWhenTheProxyIsCutOff();
    void dataUnderWayGoesWithTheSource();
    void refusedDataIsReleasedByTheCaller();
    void releasesNothingUnderItsLock();
    void dyingDataMaySendToItsSource();
    void followsTheSourceIntoAnotherThread();
    void sourceGoesWhileThreadsSend();
    void feedsAScene();
};

void tst_CNodeDataEntry::initTestCase()
{
    qRegisterMetaType<NodePortIndex>("NodePortIndex"); // for the signal spies
}

void tst_CNodeDataEntry::cleanup()
{
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeDataEntry::defaultLeadsNowhere()
{
    const CNodeDataEntry entry;
    QVERIFY(!entry.setData(CTestData::make(1)));
    QVERIFY(!CNodeDataEntry(entry).setData(CNodeDataPtr()));
}

void tst_CNodeDataEntry::queuesAlsoInTheGraphsThread()
{
    CSource source;
    const QSignalSpy updated(&source, &CSource::dataUpdated);
    QVERIFY(updated.isValid());

    const CNodeDataPtr data = CTestData::make(1);
    QVERIFY(source.dataEntry().setData(data));
    QCOMPARE(updated.count(), 0);
    QVERIFY(!source.outData(0));

    QTRY_COMPARE(updated.count(), 1);
    QCOMPARE(source.outData(0), data);
}

void tst_CNodeDataEntry::queuesFromAWorker()
{
    CSource source;
    const CNodeDataEntry entry = source.dataEntry();
    QThread* announcedIn = nullptr;
    connect(
        &source, &CSource::dataUpdated, &source, [&announcedIn] { announcedIn = QThread::currentThread(); },
        Qt::DirectConnection);

    bool isSent = false;
    runInWorker([&] { isSent = entry.setData(CTestData::make(1)); });
    QVERIFY(isSent);
    QVERIFY(!announcedIn);
    QTRY_COMPARE(announcedIn, source.thread());
    QCOMPARE(CTestData::valueOf(source.outData(0)), 1);
}

void tst_CNodeDataEntry::passesThroughTheProxy()
{
    CSource source;
    const QSignalSpy heard(source.getDataFlowProxy().data(), &CNodeDataFlowProxy::newDataAvailable);
    QVERIFY(heard.isValid());
    source.dataEntry().setData(CTestData::make(1));
    QTRY_COMPARE(heard.count(), 1);
    QCOMPARE(CTestData::valueOf(heard.at(0).at(0).value<CNodeDataPtr>()), 1);
}

void tst_CNodeDataEntry::emptyDataIsStoredAndAnnounced()
{
    CSource source;
    Numbers announced;
    recordAnnounced(source, announced);
    source.dataEntry().setData(CTestData::make(1));
    source.dataEntry().setData(CNodeDataPtr());
    QTRY_COMPARE(announced, (Numbers{1, -1}));
    QVERIFY(!source.outData(0));
}

void tst_CNodeDataEntry::keepsTheOrderOfAThread()
{
    CSource source;
    Numbers announced;
    recordAnnounced(source, announced);
    const CNodeDataEntry entry = source.dataEntry();
    CNodeDataFlowProxy& proxy = *source.getDataFlowProxy();
    runInWorker([&] {
        for (int i = 0; i < 6; i += 2) {
            entry.setData(CTestData::make(i));
            proxy.setData(CTestData::make(i + 1)); // the two ways in are one queue
        }
    });
    QTRY_COMPARE(announced, (Numbers{0, 1, 2, 3, 4, 5}));
}

void tst_CNodeDataEntry::copiesLeadToTheSameSource()
{
    CSource source;
    CSource other;
    Numbers announced;
    recordAnnounced(source, announced);
    const CNodeDataEntry entry = source.dataEntry();
    CNodeDataEntry copy = other.dataEntry();
    copy = entry;
    copy.setData(CTestData::make(1));
    source.dataEntry().setData(CTestData::make(2));
    entry.setData(CTestData::make(3));
    QTRY_COMPARE(announced, (Numbers{1, 2, 3}));
    QVERIFY(!other.outData(0));
}

void tst_CNodeDataEntry::doesNotKeepTheSource()
{
    auto source = std::make_unique<CSource>();
    const QPointer<CSource> watched(source.get());
    const CNodeDataEntry entry = source->dataEntry();
    source.reset();
    QVERIFY(!watched);
    Q_UNUSED(entry)
}

void tst_CNodeDataEntry::leadsNowhereOnceTheSourceIsGone()
{
    auto source = std::make_unique<CSource>();
    const CNodeDataEntry entry = source->dataEntry();
    QVERIFY(entry.setData(CNodeDataPtr()));
    source.reset();
    QVERIFY(!entry.setData(CTestData::make(1)));

    bool isSent = true;
    runInWorker([&] { isSent = CNodeDataEntry(entry).setData(CTestData::make(2)); });
    QVERIFY(!isSent);
}

void tst_CNodeDataEntry::leadsNowhereOnceTheProxyIsGone()
{
    CSource source;
    const CNodeDataEntry entry = source.dataEntry();
    delete source.getDataFlowProxy().data();
    QVERIFY(!entry.setData(CTestData::make(1)));
    QVERIFY(!source.dataEntry().setData(CTestData::make(1)));
}

void tst_CNodeDataEntry::staysOfUseWhenTheProxyIsCutOff()
{
    auto source = std::make_unique<CSource>();
    const CNodeDataEntry entry = source->dataEntry();
    const QPointer<CNodeDataFlowProxy> proxy = source->getDataFlowProxy();
    disconnect(proxy.data(), nullptr, nullptr, nullptr);
    proxy->blockSignals(true);
    QVERIFY(entry.setData(CTestData::make(1))); // nobody listens, but the proxy is there

    source.reset();
    QVERIFY(!entry.setData(CTestData::make(2)));
}

void tst_CNodeDataEntry::dataUnderWayGoesWithTheSource()
{
    auto source = std::make_unique<CSource>();
    const CNodeDataEntry entry = source->dataEntry();
    runInWorker([&entry] { entry.setData(CTestData::make(1)); });
    QCOMPARE(CTestData::alive(), 1);
    source.reset();
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeDataEntry::refusedDataIsReleasedByTheCaller()
{
    const CNodeDataEntry entry = std::make_unique<CSource>()->dataEntry();
    QThread* calledIn = nullptr;
    QThread* releasedIn = nullptr;
    runInWorker([&] {
        calledIn = QThread::currentThread();
        const auto data = CTestData::make(1);
        data->onDestroyed = [&releasedIn] { releasedIn = QThread::currentThread(); };
        entry.setData(data);
    });
    QVERIFY(releasedIn);
    QCOMPARE(releasedIn, calledIn);
}

void tst_CNodeDataEntry::releasesNothingUnderItsLock()
{
    auto source = std::make_unique<CSource>();
    const CNodeDataEntry entry = source->dataEntry();
    Numbers answers;
    const auto send = [&entry, &answers](int count) {
        for (int i = 0; i < count; ++i) {
            auto data = CTestData::make(i);
            data->onDestroyed = [&] { answers.push_back(entry.setData(CNodeDataPtr())); }; // hangs if it is locked
            entry.setData(data);
        }
    };
    send(2);
    source.reset(); // what is under way is released
    QCOMPARE(answers, (Numbers{0, 0}));
    send(1); // refused, and released
    QCOMPARE(answers, (Numbers{0, 0, 0}));
}

void tst_CNodeDataEntry::dyingDataMaySendToItsSource()
{
    auto source = std::make_unique<CSource>();
    const CNodeDataEntry entry = source->dataEntry();
    auto frame = CTestData::make(1);
    int calls = 0;
    frame->onDestroyed = [&] {
        ++calls;
        entry.setData(CTestData::make(2)); // as a camera does that gets its buffer back
    };
    source->getDataFlowProxy()->setData(frame);
    frame.reset();
    source.reset();
    QCOMPARE(calls, 1);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeDataEntry::followsTheSourceIntoAnotherThread()
{
    QThread graph;
    auto source = std::make_unique<CSource>();
    const CNodeDataEntry entry = source->dataEntry();
    std::atomic<QThread*> announcedIn{nullptr};
    connect(
        source.get(), &CSource::dataUpdated, source.get(), [&announcedIn] { announcedIn = QThread::currentThread(); },
        Qt::DirectConnection);
    source->moveToThread(&graph);
    graph.start();

    QVERIFY(entry.setData(CTestData::make(1)));
    QTRY_COMPARE(announcedIn.load(), &graph);

    source.release()->deleteLater();
    QTRY_VERIFY(!entry.setData(CNodeDataPtr()));
    graph.quit();
    waitForEnd(graph);
}

void tst_CNodeDataEntry::sourceGoesWhileThreadsSend()
{
    const int threadCount = 8;
    for (int round = 0; round < 25; ++round) {
        auto source = std::make_unique<CSource>();
        std::atomic<int> sent{0};
        std::vector<std::unique_ptr<QThread>> threads;
        for (int i = 0; i < threadCount; ++i) {
            threads.emplace_back(QThread::create([&sent, entry = source->dataEntry()] {
                while (entry.setData(CTestData::make(1)))
                    ++sent;
            }));
            threads.back()->start();
        }
        waitUntil("the threads send", [&] { return sent > round; });
        source.reset();
        for (const auto& thread : threads)
            waitForEnd(*thread);
        QCOMPARE(CTestData::alive(), 0);
    }
}

void tst_CNodeDataEntry::feedsAScene()
{
    CNodeScene scene(nullptr, nullptr);
    auto source = std::make_unique<CSource>();
    auto consumer = std::make_unique<CTestModel>();
    const CTestModel& received = *consumer;
    const CNodeDataEntry entry = source->dataEntry();
    CNodeBase& from = scene.createNode(std::move(source));
    CNodeBase& to = scene.createNode(std::move(consumer));
    QVERIFY(scene.createConnection(to, 0, from, 0, NodeDataConverter()));

    entry.setData(CTestData::make(1));
    QTRY_COMPARE(received.values(), (Numbers{1}));

    scene.removeNode(from);
    QVERIFY(!entry.setData(CTestData::make(2)));
    QCOMPARE(received.values(), (Numbers{1, -1}));
    QCOMPARE(inconsistencyOf(scene), QString());
}

QTEST_GUILESS_MAIN(tst_CNodeDataEntry)

#include "tst_CNodeDataEntry.moc"
