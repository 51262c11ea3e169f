// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/CNodeDataEntry.h>

#include "TestModels.h"
#include "support/CLeakTest.h"

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

/// A source, its entry, and what it announces.
struct SEntered
{
    SEntered()
    {
        QObject::connect(
            source.get(), &CSource::dataUpdated, source.get(),
            [this] {
                announced.push_back(CTestData::valueOf(source->outData(0)));
                announcedIn = QThread::currentThread();
            },
            Qt::DirectConnection);
    }

    std::unique_ptr<CSource> source = std::make_unique<CSource>();
    CNodeDataEntry entry = source->dataEntry();
    Numbers announced;
    std::atomic<QThread*> announcedIn{nullptr};
};

} // namespace

class tst_CNodeDataEntry : public CLeakTest
{
    Q_OBJECT

private Q_SLOTS:
    void defaultLeadsNowhere();
    void queuesAlsoInTheGraphsThread();
    void queuesFromAWorker();
    void passesThroughTheProxy();
    void keepsTheOrderOfAThread();
    void copiesLeadToTheSameSource();
    void leadsNowhereOnceTheSourceIsGone();
    void leadsNowhereOnceTheProxyIsGone();
    void staysOfUseWhenTheProxyIsCutOff();
    void refusedDataIsReleasedByTheCaller();
    void releasesNothingUnderItsLock();
    void dyingDataMaySendToItsSource();
    void followsTheSourceIntoAnotherThread();
    void sourceGoesWhileThreadsSend();
};

void tst_CNodeDataEntry::defaultLeadsNowhere()
{
    const CNodeDataEntry entry;
    QVERIFY(!entry.setData(CTestData::make(1)));
    QVERIFY(!CNodeDataEntry(entry).setData(CNodeDataPtr()));
}

void tst_CNodeDataEntry::queuesAlsoInTheGraphsThread()
{
    const SEntered entered;
    QVERIFY(entered.entry.setData(CTestData::make(1)));
    QVERIFY(entered.entry.setData(CNodeDataPtr()));
    QCOMPARE(entered.announced, Numbers());
    QVERIFY(!entered.source->outData(0));
    QTRY_COMPARE(entered.announced, Numbers({1, -1}));
    QVERIFY(!entered.source->outData(0));
}

void tst_CNodeDataEntry::queuesFromAWorker()
{
    const SEntered entered;
    bool isSent = false;
    runInWorker([&] { isSent = entered.entry.setData(CTestData::make(1)); });
    QVERIFY(isSent);
    QVERIFY(!entered.announcedIn);
    QTRY_COMPARE(entered.announcedIn.load(), entered.source->thread());
    QCOMPARE(entered.announced, Numbers({1}));
}

void tst_CNodeDataEntry::passesThroughTheProxy()
{
    CSource source;
    const QSignalSpy heard(source.getDataFlowProxy().data(), &CNodeDataFlowProxy::newDataAvailable);
    source.dataEntry().setData(CTestData::make(1));
    QTRY_COMPARE(heard.count(), 1);
    QCOMPARE(CTestData::valueOf(heard.at(0).at(0).value<CNodeDataPtr>()), 1);
}

void tst_CNodeDataEntry::keepsTheOrderOfAThread()
{
    const SEntered entered;
    CNodeDataFlowProxy& proxy = *entered.source->getDataFlowProxy();
    runInWorker([&] {
        for (int i = 0; i < 6; i += 2) {
            entered.entry.setData(CTestData::make(i));
            proxy.setData(CTestData::make(i + 1)); // the two ways in are one queue
        }
    });
    QTRY_COMPARE(entered.announced, Numbers({0, 1, 2, 3, 4, 5}));
}

void tst_CNodeDataEntry::copiesLeadToTheSameSource()
{
    const SEntered entered;
    const SEntered other;
    CNodeDataEntry copy = other.entry;
    copy = entered.entry;
    copy.setData(CTestData::make(1));
    entered.source->dataEntry().setData(CTestData::make(2));
    entered.entry.setData(CTestData::make(3));
    QTRY_COMPARE(entered.announced, Numbers({1, 2, 3}));
    QCOMPARE(other.announced, Numbers());
}

void tst_CNodeDataEntry::leadsNowhereOnceTheSourceIsGone()
{
    SEntered entered;
    const CNodeDataEntry& entry = entered.entry;
    runInWorker([&entry] { QVERIFY(entry.setData(CTestData::make(1))); });
    QCOMPARE(CTestData::alive(), 1);
    const int models = CTestModels::alive();
    entered.source.reset();
    QCOMPARE(CTestModels::alive(), models - 1); // the entry does not keep it
    QCOMPARE(CTestData::alive(), 0);            // nor does what was under way stay

    QVERIFY(!entry.setData(CTestData::make(1)));
    bool isSent = true;
    runInWorker([&] { isSent = CNodeDataEntry(entry).setData(CTestData::make(2)); });
    QVERIFY(!isSent);
}

void tst_CNodeDataEntry::leadsNowhereOnceTheProxyIsGone()
{
    const SEntered entered;
    delete entered.source->getDataFlowProxy().data();
    QVERIFY(!entered.entry.setData(CTestData::make(1)));
    QVERIFY(!entered.source->dataEntry().setData(CTestData::make(1)));
}

void tst_CNodeDataEntry::staysOfUseWhenTheProxyIsCutOff()
{
    SEntered entered;
    const QPointer<CNodeDataFlowProxy> proxy = entered.source->getDataFlowProxy();
    disconnect(proxy.data(), nullptr, nullptr, nullptr);
    proxy->blockSignals(true);
    QVERIFY(entered.entry.setData(CTestData::make(1))); // nobody listens, but the proxy is there

    entered.source.reset();
    QVERIFY(!entered.entry.setData(CTestData::make(2)));
}

void tst_CNodeDataEntry::refusedDataIsReleasedByTheCaller()
{
    const CNodeDataEntry entry = SEntered().entry;
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
    SEntered entered;
    Numbers answers;
    const auto send = [&entered, &answers](int count) {
        for (int i = 0; i < count; ++i) {
            auto data = CTestData::make(i);
            data->onDestroyed = [&] { answers.push_back(entered.entry.setData({})); }; // hangs if it is locked
            entered.entry.setData(data);
        }
    };
    send(2);
    entered.source.reset(); // what is under way is released
    QCOMPARE(answers, Numbers({0, 0}));
    send(1); // refused, and released
    QCOMPARE(answers, Numbers({0, 0, 0}));
}

void tst_CNodeDataEntry::dyingDataMaySendToItsSource()
{
    SEntered entered;
    auto frame = CTestData::make(1);
    int calls = 0;
    frame->onDestroyed = [&] {
        ++calls;
        entered.entry.setData(CTestData::make(2)); // as a camera does that gets its buffer back
    };
    entered.source->getDataFlowProxy()->setData(std::move(frame));
    entered.source.reset();
    QCOMPARE(calls, 1);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CNodeDataEntry::followsTheSourceIntoAnotherThread()
{
    QThread graph;
    SEntered entered;
    entered.source->moveToThread(&graph);
    graph.start();

    QVERIFY(entered.entry.setData(CTestData::make(1)));
    QTRY_COMPARE(entered.announcedIn.load(), &graph);

    entered.source.release()->deleteLater();
    QTRY_VERIFY(!entered.entry.setData(CNodeDataPtr()));
    graph.quit();
    waitForEnd(graph);
}

void tst_CNodeDataEntry::sourceGoesWhileThreadsSend()
{
    const int threadCount = 8;
    for (int round = 0; round < 25; ++round) {
        auto source = std::make_unique<CSource>();
        std::atomic<int> sent{0};
        std::vector<CTestThread> threads;
        threads.reserve(threadCount);
        for (int i = 0; i < threadCount; ++i) {
            threads.emplace_back([&sent, entry = source->dataEntry()] {
                while (entry.setData(CTestData::make(1)))
                    ++sent;
            });
        }
        waitUntil("the threads send", [&] { return sent > round; });
        source.reset();
        for (CTestThread& thread : threads)
            thread.join();
        QCOMPARE(CTestData::alive(), 0);
    }
}

QTEST_GUILESS_MAIN(tst_CNodeDataEntry)

#include "tst_CNodeDataEntry.moc"
