// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Everything that crosses threads, at the moments when it is most likely to break. With the race detector it says
// whether the threads are ordered; in the other builds, whether nothing is lost and nothing is left.

#include "models/CWorkerModel.h"
#include "models/TestModels.h"
#include "support/BoundedWait.h"
#include "support/CLeakTest.h"
#include "support/CServiceManager.h"
#include "support/FreshSeed.h"
#include "support/STestNode.h"
#include "support/SceneConsistency.h"

#include <Halvex/models/CGenericNodeDecouplerDataModel.h>
#include <Halvex/models/CNodeDataEntry.h>
#include <Halvex/platform/IPlugin.h>
#include <Halvex/service/CNodeService.h>

#include <QMutex>
#include <QMutexLocker>
#include <QPluginLoader>
#include <QSemaphore>
#include <QThreadPool>
#include <QtTest>

#include <algorithm>
#include <atomic>
#include <map>
#include <optional>
#include <random>
#include <vector>

using namespace Plugin::Halvex;

namespace {

constexpr int threadCount = 8;

using CTestDecoupler = CGenericNodeDecouplerDataModel<CTestData>;

/// Threads that do the same again and again until they are told to stop.
class CThreads
{
public:
    CThreads(int count, const std::function<void(int thread)>& work)
    {
        for (int thread = 0; thread < count; ++thread) {
            m_threads.emplace_back([this, thread, work] {
                while (!m_isStopped.load(std::memory_order_relaxed))
                    work(thread);
            });
        }
    }
    ~CThreads() { stop(); }
    Q_DISABLE_COPY(CThreads)

    void stop()
    {
        m_isStopped.store(true, std::memory_order_relaxed);
        for (CTestThread& thread : m_threads)
            thread.join();
    }

private:
    std::vector<CTestThread> m_threads;
    std::atomic<bool> m_isStopped{false};
};

/// Counts what is under way, as a camera's buffers do, so that senders are not faster than the graph.
class CFrameData : public CTestData
{
public:
    CFrameData(int value, QSemaphore& free)
        : CTestData(value)
        , m_free(free)
    {
    }
    ~CFrameData() override { m_free.release(); }

private:
    QSemaphore& m_free;
};

/// The next frame of a thread's camera; null if there is no free buffer in time.
QSharedPointer<CFrameData> grab(QSemaphore& free, int value)
{
    return free.tryAcquire(1, 10) ? QSharedPointer<CFrameData>::create(value, free) : QSharedPointer<CFrameData>();
}

std::unique_ptr<CTestModel> makeConsumer(std::atomic<int>& count)
{
    auto consumer = std::make_unique<CTestModel>(1U, 0U, QStringLiteral("Consumer"));
    consumer->onSetInData = [model = consumer.get(), &count](const CNodeDataPtr& data, NodePortIndex) {
        model->received.clear(); // or it would keep the camera's buffers
        if (data)
            ++count;
    };
    return consumer;
}

/// Calls back from its own threads, as the library of a device does.
class CDevice
{
public:
    ~CDevice() { m_threads.stop(); }

    void add(const void* listener, std::function<void()> onTick)
    {
        const QMutexLocker lock(&m_mutex);
        m_listeners.emplace(listener, std::move(onTick));
    }

    /// Waits for a call in progress.
    void remove(const void* listener)
    {
        const QMutexLocker lock(&m_mutex);
        m_listeners.erase(listener);
    }

private:
    void callBack()
    {
        {
            const QMutexLocker lock(&m_mutex);
            for (const auto& entry : m_listeners)
                entry.second();
        }
        QThread::yieldCurrentThread();
    }

    QMutex m_mutex;
    std::map<const void*, std::function<void()>> m_listeners;
    CThreads m_threads{4, [this](int) { callBack(); }}; // the last, since they use the others
};

/// Announces its output from a device's threads, until its destructor has left the device.
class CDeviceModel : public CTestModel
{
public:
    explicit CDeviceModel(CDevice& device)
        : CTestModel(0, 1, QStringLiteral("Device"))
        , m_device(device)
    {
        onOutData = [this](NodePortIndex) {
            const QMutexLocker lock(&m_mutex);
            return m_out;
        };
        m_device.add(this, [this] { tick(); });
    }
    ~CDeviceModel() override { m_device.remove(this); }

private:
    void tick()
    {
        if (!m_free.tryAcquire())
            return;
        CNodeDataPtr frame = QSharedPointer<CTestData>::create(1);
        {
            const QMutexLocker lock(&m_mutex);
            m_out.swap(frame);
        }
        Q_EMIT dataUpdated(0);
    }

    CDevice& m_device;
    QSemaphore m_free{50};
    QMutex m_mutex;
    CNodeDataPtr m_out;
};

/// Counts in its own thread what a proxy sends.
class CListener : public QObject
{
    Q_OBJECT

public:
    int heard() const { return m_heard; }

public Q_SLOTS:
    void onNewDataAvailable(CNodeDataPtr) // NOLINT(performance-unnecessary-value-param): as the signal has it
    {
        if (QThread::currentThread() == thread())
            ++m_heard;
    }

private:
    std::atomic<int> m_heard{0};
};

/// One graph's whole life, in whichever thread calls it. Returns what is wrong, or an empty text.
QString liveThroughAGraph()
{
    const auto registry = std::make_shared<CNodeDataModelRegistry>();
    registry->registerModel<CSource>(QStringLiteral("Tests"));
    registry->registerModel<CTestDecoupler>(QStringLiteral("Tests"));

    CNodeScene scene(registry, nullptr, nullptr);
    auto model = std::make_unique<CSource>();
    CSource& source = *model;
    CNodeBase& from = scene.createNode(std::move(model));
    CNodeBase& through = scene.createNode(std::make_unique<CTestDecoupler>());
    auto rate = static_cast<CTestDecoupler*>(through.nodeDataModel());
    rate->setFramesPerSecond(1000);
    scene.createConnection(through, 0, from, 0, NodeDataConverter());
    for (int i = 0; i < 20; ++i) {
        source.getDataFlowProxy()->setData(CTestData::make(i));
        source.dataEntry().setData(CTestData::make(i));
        QCoreApplication::processEvents();
        CNodeScene copy(registry, nullptr, nullptr);
        copy.loadFromMemory(scene.saveToMemory());
        if (copy.nodes().size() != 2 || copy.connections().size() != 1 || !inconsistencyOf(copy).isEmpty())
            return QStringLiteral("a copy is not what was saved");
    }
    if (&scene.createNode(nullptr) != &CNodeScene::noNode())
        return QStringLiteral("a node was made of no model");
    return inconsistencyOf(scene);
}

/// Makes a model that passes data on by way of another thread. \a number: of the model.
using Maker = std::unique_ptr<CNodeDataModel> (*)(int number);

std::unique_ptr<CNodeDataModel> makeDecoupler(int)
{
    auto decoupler = std::make_unique<CTestDecoupler>();
    decoupler->setFramesPerSecond(1000);
    return decoupler;
}

std::unique_ptr<CNodeDataModel> makeWorker(int number)
{
    using EPolicy = AWorkerNodeDataModel::EPolicy;
    auto worker = std::make_unique<CWorkerModel>(1 + unsigned(number) % 2);
    worker->setPolicy(EPolicy(number % 3));
    worker->setParallelism(1 + number % 4);
    return worker;
}

/// Ways to remove a source's node.
using Removal = void (*)(CNodeService&, const Core::CId&);

void removeNode(CNodeService& service, const Core::CId& node)
{
    service.removeNode(node, false);
}
void clearScene(CNodeService& service, const Core::CId&)
{
    service.getActiveScene()->clearScene();
}
void removeScene(CNodeService& service, const Core::CId& node)
{
    service.removeSceneOfNode(node);
}
void deleteScene(CNodeService& service, const Core::CId&)
{
    delete service.getActiveScene().data();
}
void removeNodeInAWalk(CNodeService& service, const Core::CId& node)
{
    const QPointer<CNodeBase> source = service.findNode(node);
    QObject::connect(source->nodeDataModel(), &CNodeDataModel::dataUpdated, source,
                     [&service, node] { service.removeNode(node, false); });
    while (source)
        QCoreApplication::processEvents();
}
void removeNodeInAHandler(CNodeService& service, const Core::CId& node)
{
    CNodeScene& scene = *service.getActiveScene();
    const QObject context; // ends the handler
    QObject::connect(&scene, &CNodeScene::nodeCreated, &context, [&service, node] { service.removeNode(node, false); });
    scene.createNode(std::make_unique<CTestModel>());
}

} // namespace

Q_DECLARE_METATYPE(Removal)
Q_DECLARE_METATYPE(Maker)

class tst_Threads : public CLeakTest
{
    Q_OBJECT

private Q_SLOTS:
    void graphsOfSeveralThreadsBegin(); // comes first: the process has registered nothing yet
    void threadsFeedWhileTheGraphChanges_data();
    void threadsFeedWhileTheGraphChanges();
    void whatUsesThreadsGoesUnderLoad_data();
    void whatUsesThreadsGoesUnderLoad();
    void poolIsChangedWhileWorkRuns();
    void modelsAnnounceFromForeignThreads();
    void placeOfADestroyedConnectionIsTakenByAnotherThread();
    void sourceGoesWhileThreadsSend_data();
    void sourceGoesWhileThreadsSend();
    void sinkGoesWhileAnotherThreadListens();
    void pluginIsUnloadedWhileThreadsSend();
};

void tst_Threads::graphsOfSeveralThreadsBegin()
{
    std::atomic<int> failures{0};
    std::vector<CTestThread> threads;
    threads.reserve(4);
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&failures] { failures += liveThroughAGraph().isEmpty() ? 0 : 1; });
    for (CTestThread& thread : threads)
        thread.join();
    QCOMPARE(failures.load(), 0);
}

void tst_Threads::threadsFeedWhileTheGraphChanges_data()
{
    QTest::addColumn<bool>("throughEntries");

    QTest::newRow("proxies") << false;
    QTest::newRow("entries") << true;
}

void tst_Threads::threadsFeedWhileTheGraphChanges()
{
    QFETCH(const bool, throughEntries);

    QSemaphore free(100); // what the graph holds is given back to it
    CNodeScene scene(nullptr, nullptr);
    auto model = std::make_unique<CSource>();
    CNodeDataFlowProxy& proxy = *model->getDataFlowProxy();
    const CNodeDataEntry entry = model->dataEntry();
    std::vector<int> next(threadCount, 0); // expected of each thread
    int outOfOrder = 0;
    connect(&proxy, &CNodeDataFlowProxy::newDataAvailable, this, [&](const CNodeDataPtr& data) {
        const int value = CTestData::valueOf(data);
        if (value / threadCount != next[std::size_t(value % threadCount)]++)
            ++outOfOrder;
    });
    CNodeBase& source = scene.createNode(std::move(model));

    std::vector<int> sent(threadCount, 0);
    CThreads feeders(threadCount, [&](int thread) {
        int& count = sent[std::size_t(thread)];
        const auto frame = grab(free, count * threadCount + thread);
        if (!frame)
            return;
        ++count;
        if (throughEntries)
            entry.setData(frame);
        else
            proxy.setData(frame);
    });

    std::mt19937 random(freshSeed());
    std::atomic<int> delivered{0};
    std::vector<CNodeBase*> consumers;
    for (int change = 0; change < 500; ++change) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 2);
        if (consumers.size() > 8) {
            const auto victim = consumers.begin() + int(random() % consumers.size());
            scene.removeNode(**victim);
            consumers.erase(victim);
            continue;
        }
        consumers.push_back(&scene.createNode(makeConsumer(delivered)));
        const auto connection = scene.createConnection(*consumers.back(), 0, source, 0, NodeDataConverter());
        if (change % 3 == 0)
            scene.deleteConnection(*connection);
    }
    QTRY_VERIFY(delivered > 0);
    feeders.stop();

    QTRY_COMPARE(next, sent);
    QCOMPARE(outOfOrder, 0);
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_Threads::whatUsesThreadsGoesUnderLoad_data()
{
    QTest::addColumn<Maker>("make");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("feederCount");

    QTest::newRow("decouplers") << Maker(&makeDecoupler) << 6 << threadCount;
    QTest::newRow("workers") << Maker(&makeWorker) << 20 << 4;
}

void tst_Threads::whatUsesThreadsGoesUnderLoad()
{
    QFETCH(const Maker, make);
    QFETCH(const int, count);
    QFETCH(const int, feederCount);

    QSemaphore free(100);
    CNodeScene scene(nullptr, nullptr);
    auto model = std::make_unique<CSource>();
    const CNodeDataEntry entry = model->dataEntry();
    CNodeBase& source = scene.createNode(std::move(model));
    auto stays = std::make_unique<CWorkerModel>();
    const CWorkerModel& staying = *stays;
    scene.createConnection(scene.createNode(std::move(stays)), 0, source, 0, NodeDataConverter());
    std::atomic<bool> areCountsRight{true};
    std::atomic<int> emitted{0}; // by their threads
    std::atomic<int> delivered{0};
    {
        CThreads feeders(feederCount, [&](int) {
            if (const auto frame = grab(free, 1))
                entry.setData(frame);
            const SWorkerStatistics counts = staying.statistics();
            if (counts.received != counts.emitted + counts.dropped + counts.cancelled + counts.failed + counts.pending)
                areCountsRight = false;
        });

        struct SBranch
        {
            CNodeBase* first = nullptr;
            CNodeBase* consumer = nullptr;
        };
        std::vector<SBranch> branches{std::size_t(count)};
        for (int round = 0; round < 150; ++round) {
            SBranch& branch = branches[std::size_t(round % count)];
            if (branch.first) {
                scene.removeNode(*branch.first);
                scene.removeNode(*branch.consumer);
            }
            std::unique_ptr<CNodeDataModel> added = make(round);
            const CNodeDataModel& mover = *added;
            branch = {&scene.createNode(std::move(added)), &scene.createNode(makeConsumer(delivered))};
            scene.createConnection(*branch.consumer, 0, *branch.first, 0, NodeDataConverter());
            for (unsigned int port = 0; port < mover.nPorts(ENodePortType::In); ++port)
                scene.createConnection(*branch.first, int(port), source, 0, NodeDataConverter());
            const int before = emitted;
            connect(&mover, &CNodeDataModel::dataUpdated, this, [&emitted] { ++emitted; });
            // Every other one goes with its thread started a moment ago.
            if (round % 2 == 0)
                QTRY_VERIFY(emitted > before);
            else
                QCoreApplication::processEvents(QEventLoop::AllEvents, 2);
        }
        QVERIFY(delivered > 0);
    }
    QTRY_COMPARE(staying.statistics().pending, quint64(0));
    QVERIFY(staying.statistics().emitted > 0);
    QVERIFY(areCountsRight);
    QCOMPARE(inconsistencyOf(scene), QString());
    scene.clearScene();
    QVERIFY(AWorkerNodeDataModel::waitForRemovedWork());
}

void tst_Threads::poolIsChangedWhileWorkRuns()
{
    QThreadPool one;
    QThreadPool other;
    CWorkerModel worker;
    worker.setParallelism(4);
    for (int frame = 0; frame < 2000; ++frame) {
        worker.send(frame);
        for (int time = 0; time < 20; ++time) // the detector is to see one of them beside the start of work
            worker.setThreadPool(time % 2 == 0 ? &one : &other);
        if (frame % 8 == 0)
            QCoreApplication::processEvents();
    }
    QTRY_COMPARE(worker.statistics().pending, quint64(0));
    const SWorkerStatistics counts = worker.statistics();
    QCOMPARE(counts.received, quint64(2000));
    QCOMPARE(counts.emitted + counts.dropped, quint64(2000));
    QCOMPARE(quint64(worker.values.size()), counts.emitted);
    QVERIFY(std::is_sorted(worker.values.begin(), worker.values.end()));
    QCOMPARE(worker.values.back(), 1999);
}

void tst_Threads::modelsAnnounceFromForeignThreads()
{
    CDevice device;
    CNodeScene scene(nullptr, nullptr);
    std::atomic<int> delivered{0};
    CNodeBase& consumer = scene.createNode(makeConsumer(delivered));
    for (int round = 0; round < 100; ++round) {
        CNodeBase& node = scene.createNode(std::make_unique<CDeviceModel>(device));
        scene.createConnection(consumer, 0, node, 0, NodeDataConverter());
        const int before = delivered;
        if (round % 2 == 0) {
            QTRY_VERIFY(delivered > before);
        }
        scene.removeNode(node);
    }
    const int before = delivered;
    QCoreApplication::processEvents();
    QCOMPARE(delivered.load(), before); // what removed models have announced goes nowhere
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_Threads::placeOfADestroyedConnectionIsTakenByAnotherThread()
{
    const STestNode source;
    const STestNode sinks[] = {STestNode(), STestNode()};
    for (int round = 0; round < 100; ++round) {
        std::optional<CNodeConnection> connections[2];
        std::unique_ptr<CThreads> other;
        std::atomic<bool> isTaken{false};
        int served = 0;
        // The other thread makes its own connections where the one lay whose turn comes next in the walk.
        const auto leaveTo = [&](std::optional<CNodeConnection>& place) {
            ++served;
            place.reset();
            other = std::make_unique<CThreads>(1, [&place, &isTaken](int) {
                CNodeBase out{std::unique_ptr<CNodeDataModel>()};
                CNodeBase in{std::unique_ptr<CNodeDataModel>()};
                for (int i = 0; i < 100; ++i) {
                    place.emplace(in, 0, out, 0, NodeDataConverter());
                    isTaken = true;
                    place.reset();
                }
            });
            waitUntil("another thread takes the place", [&isTaken] { return isTaken.load(); });
        };
        for (std::size_t i = 0; i < 2; ++i) {
            connections[i].emplace(*sinks[i], 0, *source, 0, NodeDataConverter());
            enter(*connections[i]);
            sinks[i].model->onSetInData = [&leaveTo, &next = connections[1 - i]](const CNodeDataPtr& data,
                                                                                 NodePortIndex) {
                if (data)
                    leaveTo(next);
            };
        }

        source.model->offer(CTestData::make(round));

        other.reset();
        QCOMPARE(served, 1);
    }
}

void tst_Threads::sourceGoesWhileThreadsSend_data()
{
    QTest::addColumn<Removal>("remove");

    QTest::newRow("node") << Removal(&removeNode);
    QTest::newRow("all nodes") << Removal(&clearScene);
    QTest::newRow("scene") << Removal(&removeScene);
    QTest::newRow("scene, by the host") << Removal(&deleteScene);
    QTest::newRow("in a walk") << Removal(&removeNodeInAWalk);
    QTest::newRow("deferred") << Removal(&removeNodeInAHandler);
}

void tst_Threads::sourceGoesWhileThreadsSend()
{
    QFETCH(const Removal, remove);

    for (int round = 0; round < 10; ++round) {
        QSemaphore free(100);
        CNodeService service(nullptr);
        auto model = std::make_unique<CSource>();
        model->unique = true;
        const CNodeDataEntry entry = model->dataEntry();
        const Core::CId node = service.addNode(std::move(model), nullptr);
        QVERIFY(service.findNode(node));
        std::atomic<int> sent{0};
        std::atomic<int> refused{0};
        CThreads feeders(threadCount, [&, entry](int) {
            if (const auto frame = grab(free, 1))
                ++(entry.setData(frame) ? sent : refused);
        });
        waitUntil("the threads send", [&] { return sent > round; });
        remove(service, node);
        QVERIFY(!service.findNode(node));
        QVERIFY(!entry.setData(CTestData::make(1)));
        waitUntil("what is sent is refused", [&] { return refused > round; }); // they go on
    }
}

void tst_Threads::sinkGoesWhileAnotherThreadListens()
{
    QThread other;
    other.start();
    for (int round = 0; round < 50; ++round) {
        CListener listener;
        listener.moveToThread(&other);

        CNodeScene scene(nullptr, nullptr);
        auto model = std::make_unique<CSink>();
        // By name: what Qt allocates for a connected function is destroyed by the thread that used it last, and the
        // detector does not see how the two agree on that.
        QVERIFY(connect(model->getDataFlowProxy().data(), SIGNAL(newDataAvailable(CNodeDataPtr)), &listener,
                        SLOT(onNewDataAvailable(CNodeDataPtr))));
        CNodeBase& sink = scene.createNode(std::move(model));
        for (int i = 0; i < 20; ++i)
            sink.propagateData(CTestData::make(i), 0);
        scene.removeNode(sink);
        QTRY_COMPARE(listener.heard(), 20); // what was under way arrives
        QMetaObject::invokeMethod(
            &listener, [&listener, back = thread()] { listener.moveToThread(back); }, Qt::BlockingQueuedConnection);
        QCOMPARE(inconsistencyOf(scene), QString());
    }
    other.quit();
    waitForEnd(other);
}

void tst_Threads::pluginIsUnloadedWhileThreadsSend()
{
    QSemaphore free(100);
    for (int round = 0; round < 5; ++round) {
        QPluginLoader loader(QStringLiteral(HALVEX_PLUGIN_FILE));
        auto* const plugin = dynamic_cast<Core::Plugin::IPlugin*>(loader.instance());
        QVERIFY2(plugin, qPrintable(loader.errorString()));
        const auto manager = QSharedPointer<CServiceManager>::create();
        QVERIFY(plugin->initialize(manager));
        auto service = manager->findService("Plugin::Halvex::INodeService").dynamicCast<INodeService>();
        QVERIFY(service);

        auto model = std::make_unique<CSource>();
        model->unique = true;
        const CNodeDataEntry entry = model->dataEntry();
        std::atomic<int> delivered{0};
        connect(model.get(), &CSource::dataUpdated, this, [&delivered] { ++delivered; });
        service->addNode(std::move(model), nullptr);
        std::atomic<int> refused{0};
        CThreads cameras(threadCount, [&, entry](int) {
            const auto frame = grab(free, 1);
            if (frame && !entry.setData(frame))
                ++refused;
        });
        QTRY_VERIFY(delivered > round);

        service.reset();
        plugin->uninitialize(manager);
        // The cameras' code is linked with the library, so that it stays mapped.
        QVERIFY(loader.unload());
        waitUntil("what is sent is refused", [&] { return refused > round; });
    }
}

QTEST_GUILESS_MAIN(tst_Threads)

#include "tst_Threads.moc"
