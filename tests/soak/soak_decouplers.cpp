// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Twenty decouplers at mixed rates behind one source, which a thread feeds, while the graph changes all the time: nodes
// are removed and made anew, connections deleted and made again, rates set, documents written and read.
//
//   soak_decouplers SECONDS [SEED]
//
// The seed is printed; without one, each run has another.
//
// Exit code 0: the counts of every decoupler added up whenever they were asked for; those that stayed to the end have
// received all that was pushed, the last frame included, and delivered all that they emitted; no thread, node or frame
// is left; and the memory in use has not grown since the first tenth of the run. The last of these is not looked at,
// and not said, where a sanitizer's allocator tells nothing.

#include "soak/SoakSupport.h"
#include "support/BoundedWait.h"
#include "support/CTestData.h"
#include "support/CTestModel.h"
#include "support/CTestSource.h"
#include "support/SceneConsistency.h"

#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/models/CGenericNodeDecouplerDataModel.h>
#include <Halvex/scene/CNodeScene.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QThread>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <random>

using namespace Plugin::Halvex;

namespace {

constexpr int count = 20;
constexpr int permanent = 5; // so many of them stay to the end
constexpr double rates[] = {0.5, 7, 25, 30, 60, 200, 500, 2000};

using CTestDecoupler = CGenericNodeDecouplerDataModel<CTestData>;

/// A decoupler and the sink behind it.
struct SBranch
{
    CNodeBase* decoupler = nullptr;
    CNodeBase* sink = nullptr;
    std::shared_ptr<CNodeConnection> input;
    std::shared_ptr<quint64> arrived; // at the decoupler: whatever is connected to the source makes it repeat itself
    std::shared_ptr<quint64> delivered;

    CTestDecoupler& model() const { return *static_cast<CTestDecoupler*>(decoupler->nodeDataModel()); }
};

bool addsUp(const SDecouplerStatistics& counts)
{
    return counts.received == counts.emitted + counts.dropped + counts.cancelled + counts.pending;
}

int threads()
{
    return int(QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size());
}

/// Feeds the source about a thousand times per second.
class CFeeder : public QThread
{
public:
    explicit CFeeder(CNodeDataFlowProxy* proxy)
        : m_proxy(proxy)
    {
    }
    void stop()
    {
        requestInterruption();
        waitForEnd(*this);
    }
    quint64 pushed() const { return m_pushed; }

protected:
    void run() override
    {
        while (!isInterruptionRequested()) {
            m_proxy->setData(CTestData::make(int(++m_pushed)));
            usleep(1000);
        }
    }

private:
    CNodeDataFlowProxy* m_proxy;
    quint64 m_pushed = 0;
};

class CSoak
{
public:
    explicit CSoak(unsigned int seed)
        : m_random(seed)
        , m_source(&m_scene.createNode(std::make_unique<CTestSource>()))
        , m_feeder(static_cast<CTestSource*>(m_source->nodeDataModel())->getDataFlowProxy())
    {
        m_registry->registerModel<CTestDecoupler>(QStringLiteral("Tools"));
        m_registry->registerModel<CTestSource>(QStringLiteral("Sources"));
        m_registry->registerModel<CTestModel>(QStringLiteral("Tests"));
        for (SBranch& branch : m_branches)
            branch = makeBranch();
    }

    void run(int seconds)
    {
        m_feeder.start();
        QElapsedTimer clock;
        clock.start();
        std::size_t settled = 0;
        while (clock.elapsed() < qint64{1000} * seconds) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
            change();
            if (settled == 0 && clock.elapsed() > qint64{100} * seconds)
                settled = memoryInUse();
        }
        m_feeder.stop();
        drain();
        checkMemoryIsFlat(settled);
    }

    void checkPermanentBranches()
    {
        for (int i = 0; i < permanent; ++i) {
            const SBranch& branch = m_branches[i];
            const SDecouplerStatistics counts = branch.model().statistics();
            check(*branch.arrived >= m_feeder.pushed(), "a decoupler has missed a frame");
            check(counts.received == *branch.arrived, "a decoupler has not counted what arrived");
            check(counts.emitted == *branch.delivered, "a decoupler has not delivered all that it emitted");
            check(counts.pending == 0, "the last frame did not come out");
            check(CTestData::valueOf(branch.model().outData(0)) == int(m_feeder.pushed()), "the last frame was lost");
        }
    }

    void checkScene() const { check(inconsistencyOf(m_scene).isEmpty(), "the scene is not sound"); }

    int changes() const { return m_changes; }
    quint64 pushed() const { return m_feeder.pushed(); }

private:
    SBranch makeBranch()
    {
        SBranch branch;
        branch.arrived = std::make_shared<quint64>(0);
        branch.delivered = std::make_shared<quint64>(0);
        branch.decoupler = &m_scene.createNode(std::make_unique<CTestDecoupler>());
        branch.model().setFramesPerSecond(rates[pick(std::size(rates))]);
        QObject::connect(&branch.model(), &CTestDecoupler::inDataUpdated,
                         [arrived = branch.arrived](const CNodeDataPtr& data) { *arrived += data ? 1 : 0; });
        auto sink = std::make_unique<CTestModel>(1, 0);
        sink->onSetInData = [delivered = branch.delivered, model = sink.get()](const CNodeDataPtr& data,
                                                                               NodePortIndex) {
            model->received.clear();
            if (data)
                ++*delivered;
        };
        branch.sink = &m_scene.createNode(std::move(sink));
        m_scene.createConnection(*branch.sink, 0, *branch.decoupler, 0, NodeDataConverter());
        branch.input = m_scene.createConnection(*branch.decoupler, 0, *m_source, 0, NodeDataConverter());
        return branch;
    }

    void change()
    {
        ++m_changes;
        SBranch& branch = m_branches[permanent + pick(count - permanent)];
        check(addsUp(branch.model().statistics()), "the counts of a decoupler do not add up");
        switch (pick(4)) {
        case 0:
            m_scene.removeNode(*branch.decoupler);
            m_scene.removeNode(*branch.sink);
            branch = makeBranch();
            break;
        case 1:
            m_scene.deleteConnection(*branch.input);
            branch.input = m_scene.createConnection(*branch.decoupler, 0, *m_source, 0, NodeDataConverter());
            break;
        case 2:
            branch.model().setFramesPerSecond(rates[pick(std::size(rates))]);
            break;
        default:
            if (m_changes % 16 == 0) {
                CNodeScene copy(m_registry, nullptr, nullptr);
                copy.loadFromMemory(m_scene.saveToMemory());
                check(copy.nodes().size() == m_scene.nodes().size(), "a document has lost nodes");
                check(copy.connections().size() == m_scene.connections().size(), "a document has lost connections");
            }
            break;
        }
    }

    /// Until every frame that waits has come out.
    void drain()
    {
        const auto isDrained = [this] {
            for (int i = 0; i < permanent; ++i) {
                const SDecouplerStatistics counts = m_branches[i].model().statistics();
                if (counts.received < m_feeder.pushed() || counts.pending != 0 ||
                    counts.emitted != *m_branches[i].delivered)
                    return false;
            }
            return true;
        };
        workUntil(isDrained, "what waits does not come out",
                  [] { QCoreApplication::processEvents(QEventLoop::AllEvents, 5); });
    }

    int pick(std::size_t choices) { return int(m_random() % choices); }

    std::mt19937 m_random;
    std::shared_ptr<CNodeDataModelRegistry> m_registry = std::make_shared<CNodeDataModelRegistry>();
    CNodeScene m_scene{m_registry, nullptr, nullptr};
    CNodeBase* m_source;
    SBranch m_branches[count];
    CFeeder m_feeder;
    int m_changes = 0;
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const int seconds = argc > 1 ? QByteArray(argv[1]).toInt() : 60;
    const unsigned int seed = argc > 2 ? QByteArray(argv[2]).toUInt() : std::random_device()();
    std::printf("soak_decouplers: seed %u\n", seed);
    std::fflush(stdout);
    // A first thread brings along those that watch over threads, such as a sanitizer's; they stay.
    QThread first;
    first.start();
    first.quit();
    waitForEnd(first);
    const int threadsBefore = threads();
    int changes = 0;
    quint64 pushed = 0;
    {
        CSoak soak(seed);
        soak.run(seconds);
        soak.checkPermanentBranches();
        soak.checkScene();
        changes = soak.changes();
        pushed = soak.pushed();
    }
    check(CTestData::alive() == 0, "frames are left");
    check(CTestModel::alive() == 0, "nodes are left");
    // A thread that was waited for may still be on its very last steps.
    workUntil([threadsBefore] { return threads() <= threadsBefore; }, "threads are left", &QThread::yieldCurrentThread);
    std::printf("soak_decouplers: %d s, %llu frames, %d changes: counts exact, %snothing left\n", seconds,
                static_cast<unsigned long long>(pushed), changes, isMemoryMeasured() ? "memory flat, " : "");
    return 0;
}
