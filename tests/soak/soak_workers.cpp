// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Twenty workers of all policies behind a camera that is three times too fast for them, while the graph changes: nodes
// are removed with their work under way and made anew, settings changed, connections deleted and made again.
//
//   soak_workers SECONDS [SEED]
//
// The seconds are the camera's, at 60 frames each: three frames come while each worker ends the work on one, however
// long that takes. The seed is printed; without one, each run has another.
//
// Exit code 0: the counts of every worker added up after each change; there were never more frames than all may keep;
// every frame was accounted for in the end; no work, node or frame is left; and the memory in use has not grown since
// the first tenth of the run. The last of these is not looked at, and not said, where a sanitizer's allocator tells
// nothing.

#include "models/CWorkerModel.h"
#include "soak/SoakSupport.h"
#include "support/CTestModel.h"
#include "support/CTestSource.h"
#include "support/SceneConsistency.h"

#include <Halvex/scene/CNodeScene.h>

#include <QCoreApplication>
#include <QThreadPool>

#include <algorithm>
#include <atomic>
#include <random>

using namespace Plugin::Halvex;

namespace {

constexpr int count = 20;
constexpr int mostParallel = 2;
constexpr int mostWaiting = 4;
// What waits, what is worked on with what is void of it, results that wait, and the newest that came and went out.
constexpr int mostFramesOfOne = mostWaiting + 2 * mostParallel + 2 * mostParallel + 2;

/// Work that ends when it is allowed to. Shared with the work, which may outlive the model.
struct SPace
{
    QSemaphore allowed;
    std::atomic<int> ended{0};
};

struct SBranch
{
    CNodeBase* worker = nullptr;
    std::shared_ptr<CNodeConnection> input;
    std::shared_ptr<SPace> pace;
    int allowed = 0;

    CWorkerModel& model() const { return *static_cast<CWorkerModel*>(worker->nodeDataModel()); }
};

class CSoak
{
public:
    explicit CSoak(unsigned int seed)
        : m_random(seed)
        , m_source(&m_scene.createNode(std::make_unique<CTestSource>()))
    {
        startAllThreads();
        for (SBranch& branch : m_branches)
            makeBranch(branch);
    }
    ~CSoak()
    {
        for (SBranch& branch : m_branches)
            branch.pace->allowed.release(1000);
    }
    Q_DISABLE_COPY(CSoak)

    void run(int seconds)
    {
        const int rounds = seconds * 60 / 3;
        std::size_t settled = 0;
        for (int round = 0; round < rounds; ++round) {
            for (int i = 0; i < 3; ++i)
                source().getDataFlowProxy()->setData(CTestData::make(++m_sent));
            endOneWorkEach();
            change();
            check(CTestData::alive() <= count * mostFramesOfOne + 1, "there are more frames than may be kept");
            if (settled == 0 && round >= rounds / 10)
                settled = memoryInUse();
        }
        checkMemoryIsFlat(settled);
        drain();
        check(inconsistencyOf(m_scene).isEmpty(), "the scene is not sound");
    }

    int sent() const { return m_sent; }

private:
    CTestSource& source() { return *static_cast<CTestSource*>(m_source->nodeDataModel()); }

    /// As many as may be held at once: one that began later would look like a leak.
    void startAllThreads()
    {
        constexpr int threads = 2 * count * mostParallel;
        m_pool.setMaxThreadCount(threads);
        m_pool.setExpiryTimeout(-1);
        CWorkerModel worker;
        worker.setThreadPool(&m_pool);
        worker.setPolicy(AWorkerNodeDataModel::EPolicy::DropOldest);
        worker.setParallelism(threads);
        QSemaphore begun;
        worker.setWork([&begun](const auto& inputs) {
            begun.release();
            waitUntil("all threads work", [&begun] { return begun.available() == threads; });
            return CWorkerModel::addUp(inputs);
        });
        for (int i = 0; i < threads; ++i)
            worker.send(i);
        workUntil([&worker] { return worker.statistics().pending == 0; }, "the threads do not work",
                  [] { QCoreApplication::processEvents(); });
    }

    void makeBranch(SBranch& branch)
    {
        branch.pace = std::make_shared<SPace>();
        branch.allowed = 0;
        auto worker = std::make_unique<CWorkerModel>();
        worker->setThreadPool(&m_pool);
        worker->setMostWaiting(mostWaiting);
        worker->setWork([pace = branch.pace](const auto& inputs) {
            acquireSoon(pace->allowed);
            ++pace->ended;
            return CWorkerModel::addUp(inputs);
        });
        branch.worker = &m_scene.createNode(std::move(worker));
        changeSettings(branch);
        connectInput(branch);
    }

    void connectInput(SBranch& branch)
    {
        branch.input = m_scene.createConnection(*branch.worker, 0, *m_source, 0, NodeDataConverter());
    }

    void changeSettings(const SBranch& branch)
    {
        branch.model().setPolicy(AWorkerNodeDataModel::EPolicy(pick(3)));
        branch.model().setParallelism(1 + pick(mostParallel));
    }

    /// Each worker has a frame at least.
    void endOneWorkEach()
    {
        for (SBranch& branch : m_branches) {
            branch.pace->allowed.release();
            ++branch.allowed;
        }
        const auto haveAllEnded = [this] {
            return std::all_of(std::begin(m_branches), std::end(m_branches),
                               [](const SBranch& branch) { return branch.pace->ended == branch.allowed; });
        };
        workUntil(haveAllEnded, "a worker does not work", [] { QCoreApplication::processEvents(); });
    }

    void change()
    {
        SBranch& branch = m_branches[pick(count)];
        switch (pick(4)) {
        case 0:
            m_scene.removeNode(*branch.worker);
            branch.pace->allowed.release(1000);
            makeBranch(branch);
            break;
        case 1:
            m_scene.deleteConnection(*branch.input);
            connectInput(branch);
            break;
        case 2:
            changeSettings(branch);
            break;
        default:
            break;
        }
        branch.model().values.clear();
        const SWorkerStatistics counts = branch.model().statistics();
        check(counts.received == counts.emitted + counts.dropped + counts.cancelled + counts.failed + counts.pending,
              "the counts of a worker do not add up");
    }

    /// Until every frame that waits has come out.
    void drain()
    {
        for (SBranch& branch : m_branches)
            branch.pace->allowed.release(1000);
        for (const SBranch& branch : m_branches)
            workUntil([&branch] { return branch.model().statistics().pending == 0; }, "what waits does not come out",
                      [] { QCoreApplication::processEvents(); });
    }

    int pick(std::size_t choices) { return int(m_random() % choices); }

    std::mt19937 m_random;
    QThreadPool m_pool; // outlives the models
    CNodeScene m_scene{nullptr, nullptr};
    CNodeBase* m_source;
    SBranch m_branches[count];
    int m_sent = 0;
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const int seconds = argc > 1 ? QByteArray(argv[1]).toInt() : 60;
    const unsigned int seed = argc > 2 ? QByteArray(argv[2]).toUInt() : std::random_device()();
    std::printf("soak_workers: seed %u\n", seed);
    std::fflush(stdout);
    int sent = 0;
    {
        CSoak soak(seed);
        soak.run(seconds);
        sent = soak.sent();
    }
    check(AWorkerNodeDataModel::waitForRemovedWork(), "work is left");
    check(CTestData::alive() == 0, "frames are left");
    std::printf("soak_workers: %d s of a camera, %d frames for %d workers: counts exact, %snothing left\n", seconds,
                sent, count, isMemoryMeasured() ? "memory flat, " : "");
    return 0;
}
