// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/TestGraph.h"
#include "support/BoundedWait.h"
#include "support/CMessageCatcher.h"

#include <QCoreApplication>
#include <QProcess>
#include <QThread>
#include <QtTest>

#include <alloca.h>
#include <pthread.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <stdexcept>
#include <vector>

using namespace Plugin::Halvex;

namespace {

constexpr quint64 kibibyte = 1024;
constexpr quint64 mebibyte = 1024 * kibibyte;

using Numbers = std::vector<int>;

/// Runs \a work in a thread with a stack of \a stackSize bytes; in this one if it is 0.
void runOnAStackOf(quint64 stackSize, const std::function<void()>& work)
{
    if (stackSize == 0) {
        work();
        return;
    }
    const std::unique_ptr<QThread> thread(QThread::create(work));
    thread->setStackSize(uint(stackSize));
    thread->start();
    waitForEnd(*thread);
}

/// The address from which this thread's stack grows downwards; null if the system does not tell.
const char* topOfThisStack()
{
    pthread_attr_t attributes;
    void* end = nullptr;
    std::size_t size = 0;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0 || pthread_attr_getstack(&attributes, &end, &size) != 0 ||
        pthread_attr_destroy(&attributes) != 0)
        return nullptr;
    return static_cast<const char*>(end) + size;
}

/// Runs \a work below \a position on the stack.
Q_NEVER_INLINE void runBelow(const char* position, const std::function<void()>& work)
{
    const auto* const here = static_cast<const char*>(__builtin_frame_address(0));
    Q_ASSERT(here > position);
    volatile auto* const ballast = static_cast<char*>(alloca(std::size_t(here - position)));
    ballast[0] = 0; // it must be there
    work();
}

/// Whether a walk begins just below that many bytes of this thread's stack.
bool isServedBelow(quint64 usedBytes)
{
    const SFan fan(1);
    const CMessageCatcher messages;
    runBelow(topOfThisStack() - usedBytes, [&fan] { fan.source.model->offer(CTestData::make(1)); });
    return fan.deliveries(1) == 1;
}

/// Whether walks use \a bytes of this thread's stack, and no more.
bool walksUse(quint64 bytes)
{
    const quint64 needs = 16 * kibibyte; // of the way to the walk, with any compiler
    return isServedBelow(bytes - needs) && !isServedBelow(bytes);
}

/// How often data has come to a node whose output leads back to it.
int roundsOfALoop()
{
    const STestNode loop;
    const auto back = join(loop, loop);
    loop->propagateData(CTestData::make(1), 0);
    return int(loop.model->received.size());
}

/// What \a measure says when the system cannot tell the bounds of the main thread's stack: it reads them from a file.
int withoutBounds(int (*measure)())
{
    rlimit files{};
    if (getrlimit(RLIMIT_NOFILE, &files) != 0)
        return 0;
    const rlimit none{0, files.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    const int measured = measure();
    setrlimit(RLIMIT_NOFILE, &files);
    return measured;
}

/// How many nodes of a chain of a thousand each of two frames has reached; -1 if not as many.
int reachedNodes()
{
    const std::vector<STestNode> nodes(1000);
    std::vector<std::unique_ptr<CNodeConnection>> connections;
    for (std::size_t i = 1; i < nodes.size(); ++i)
        connections.push_back(join(nodes[i - 1], nodes[i]));
    nodes.front().model->offer(CTestData::make(1));
    nodes.front().model->offer(CTestData::make(2)); // finds all walks of the first frame ended
    const auto behind = nodes.begin() + 1;          // the first gives data, and gets none
    const auto end = std::find_if(behind, nodes.end(), [](const STestNode& node) {
        return node.model->values() != Numbers({1, 2});
    });
    const bool isEnd =
        std::all_of(end, nodes.end(), [](const STestNode& node) { return node.model->values().empty(); });
    return isEnd ? int(end - behind) : -1;
}

/// How many of a thousand frames have come to a model that throws each time.
int framesThatThrew()
{
    const STestNode source;
    const STestNode sink;
    const auto connection = join(source, sink);
    sink.model->onSetInData = [](const CNodeDataPtr&, NodePortIndex) { throw std::runtime_error("no"); };
    int thrown = 0;
    for (int frame = 0; frame < 1000; ++frame) {
        try {
            source.model->offer(CTestData::make(frame));
        } catch (const std::runtime_error&) {
            ++thrown;
        }
    }
    return thrown;
}

/// What a child process of this test measures on its main thread.
const struct
{
    const char* name;
    int (*measure)();
} measurements[] = {
    {"uses-1792-KiB", [] { return int(walksUse(1792 * kibibyte)); }},
    {"uses-256-MiB", [] { return int(walksUse(256 * mebibyte)); }},
    {"rounds", &roundsOfALoop},
    {"chain-without-bounds", [] { return withoutBounds(&reachedNodes); }},
    {"exceptions-without-bounds", [] { return withoutBounds(&framesThatThrew); }},
};

/// The number that a child of this process prints; -1 if it fails.
int measureInAChild(const QString& shellSettings, const QString& name)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const QString command = shellSettings + "; exec \"$0\" \"$@\"";
    child.start("sh", {"-c", command, QCoreApplication::applicationFilePath(), name});
    if (!child.waitForFinished() || child.exitStatus() != QProcess::NormalExit || child.exitCode() != 0)
        return -1;
    return child.readAllStandardOutput().trimmed().toInt();
}

} // namespace

class tst_WalkLimits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endOfAThreadsStackIsKeptFree_data();
    void endOfAThreadsStackIsKeptFree();
    void threadThatHasMadeNoNodeIsServed();
    void limitOfTheMainThreadIsKnown();
    void unlimitedStackIsUsedInPart();
    void chainEndsWhereNothingIsKnown();
    void longChainIsServed_data();
    void longChainIsServed();

    void loopIsCutAndReportedOnce_data();
    void loopIsCutAndReportedOnce();
    void loopIsCutAfterAThousandRounds();
    void loopThatEndsByItselfIsLeftAlone();
    void loopThroughSeveralPathsEnds();
    void loopThroughSeveralUpdatesEnds();
    void cutEndsNoOtherUpdatesOfADelivery();
    void cutEndsNoOtherConnectionsOfTheWayIn();
    void outputThatAnnouncesItselfIsCut();
};

void tst_WalkLimits::endOfAThreadsStackIsKeptFree_data()
{
    QTest::addColumn<quint64>("stackSize");
    QTest::addColumn<quint64>("used");

#if !defined(__SANITIZE_THREAD__) && !defined(__SANITIZE_ADDRESS__) // which need more than small ones have
    if (quint64(sysconf(_SC_THREAD_STACK_MIN)) <= 96 * kibibyte)    // not with every processor
        QTest::newRow("half of 96 KiB") << 96 * kibibyte << 48 * kibibyte;
    QTest::newRow("all but 64 of 128 KiB") << 128 * kibibyte << 64 * kibibyte;
    QTest::newRow("all but 64 of 256 KiB") << 256 * kibibyte << 192 * kibibyte;
#endif
#ifndef __SANITIZE_THREAD__ // which puts most of these into what is local to the thread
    QTest::newRow("all but 64 of 512 KiB") << 512 * kibibyte << 448 * kibibyte;
    QTest::newRow("all but an eighth of 1 MiB") << mebibyte << 896 * kibibyte;
#endif
    QTest::newRow("all but an eighth of 2 MiB") << 2 * mebibyte << 1792 * kibibyte;
    QTest::newRow("all but an eighth of 8 MiB") << 8 * mebibyte << 7 * mebibyte;
    QTest::newRow("all but an eighth of 64 MiB") << 64 * mebibyte << 56 * mebibyte;
    QTest::newRow("256 of 512 MiB") << 512 * mebibyte << 256 * mebibyte;
}

void tst_WalkLimits::endOfAThreadsStackIsKeptFree()
{
    QFETCH(const quint64, stackSize);
    QFETCH(const quint64, used);
    bool isSo = false;
    runOnAStackOf(stackSize, [&isSo, used] { isSo = walksUse(used); });
    QVERIFY(isSo);
}

void tst_WalkLimits::threadThatHasMadeNoNodeIsServed()
{
    const STestNode source;
    const STestNode sink(1, 0);
    const auto connection = join(source, sink);
    const std::unique_ptr<QThread> thread(QThread::create([&source] { source.model->offer(CTestData::make(1)); }));
    for (QObject* const object : {static_cast<QObject*>(source.node.get()), static_cast<QObject*>(source.model),
                                  static_cast<QObject*>(sink.node.get()), static_cast<QObject*>(sink.model),
                                  static_cast<QObject*>(connection.get())})
        object->moveToThread(thread.get());
    thread->start();
    waitForEnd(*thread);
    QCOMPARE(sink.model->values(), Numbers({1}));
}

void tst_WalkLimits::limitOfTheMainThreadIsKnown()
{
    QCOMPARE(measureInAChild("ulimit -S -s 2048", "uses-1792-KiB"), 1);
}

void tst_WalkLimits::unlimitedStackIsUsedInPart()
{
#if defined(__SANITIZE_THREAD__) || defined(IS_EMULATED)
    qInfo("Left out: the race detector takes the lack of a limit away again, and qemu gives 8 MiB all the same.");
#else
    if (QProcess::execute("sh", {"-c", "ulimit -s unlimited"}) != 0) {
        qInfo("Left out: a stack without a limit is not to be had here.");
        return;
    }
    QCOMPARE(measureInAChild("ulimit -s unlimited", "uses-256-MiB"), 1);
    QCOMPARE(measureInAChild("ulimit -s unlimited", "rounds"), 1000);
#endif
}

void tst_WalkLimits::chainEndsWhereNothingIsKnown()
{
#ifdef __SANITIZE_ADDRESS__
    qInfo("Left out: what looks at objects' types needs files as well.");
#else
    // As many walks, each of which leads to one node.
    QCOMPARE(measureInAChild(":", "chain-without-bounds"), 500);
    QCOMPARE(measureInAChild(":", "exceptions-without-bounds"), 1000);
#endif
}

void tst_WalkLimits::longChainIsServed_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<quint64>("stackSize");

    QTest::newRow("100, this thread") << 100 << quint64(0);
#if defined(__OPTIMIZE__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    // Promised for frames as small as those of the library that is shipped: a hop that is not optimised, or that is
    // watched by a sanitizer, takes several times as much of the stack.
    QTest::newRow("5000, this thread") << 5000 << quint64(0);
    QTest::newRow("5000, 8 MiB") << 5000 << 8 * mebibyte;
#endif
}

void tst_WalkLimits::longChainIsServed()
{
    QFETCH(const int, length);
    QFETCH(const quint64, stackSize);
    const CMessageCatcher messages;
    int served = 0;
    runOnAStackOf(stackSize, [&] {
        const std::vector<STestNode> nodes(static_cast<std::size_t>(length));
        std::vector<std::unique_ptr<CNodeConnection>> connections;
        for (std::size_t i = 1; i < nodes.size(); ++i)
            connections.push_back(join(nodes[i - 1], nodes[i], &passOn));
        nodes.front()->propagateData(CTestData::make(1), 0);
        served = int(std::count_if(nodes.begin(), nodes.end(),
                                   [](const STestNode& node) { return node.model->received.size() == 1; }));
    });
    QCOMPARE(served, length);
    QCOMPARE(messages.texts(), QStringList());
}

void tst_WalkLimits::loopIsCutAndReportedOnce_data()
{
    QTest::addColumn<quint64>("stackSize");

    QTest::newRow("this thread") << quint64(0);
#ifndef __SANITIZE_THREAD__ // which puts most of that into the thread's local storage
    QTest::newRow("256 KiB") << 256 * kibibyte;
#endif
    QTest::newRow("1 MiB") << mebibyte;
}

void tst_WalkLimits::loopIsCutAndReportedOnce()
{
    QFETCH(const quint64, stackSize);
    const CMessageCatcher messages;
    std::size_t rounds = 0;
    Numbers afterwards;
    runOnAStackOf(stackSize, [&] {
        const STestNode first(1, 1, QStringLiteral("Loop A"));
        const STestNode second(1, 1, QStringLiteral("Loop B"));
        const auto forth = join(first, second);
        auto back = join(second, first);
        for (int value : {1, 2, 3}) {
            second.model->received.clear();
            first.model->offer(CTestData::make(value));
            rounds = second.model->received.size();
            QCOMPARE(second.model->values().back(), value);
        }
        back.reset();
        second.model->received.clear();
        first.model->offer(CTestData::make(4));
        afterwards = second.model->values();
    });

    QVERIFY(rounds > 10);
    QVERIFY2(rounds <= 1000, qPrintable(QString::number(rounds)));
    QCOMPARE(messages.texts("halvex.graph").size(), 1);
    QVERIFY2(messages.texts().at(0).contains("\"Loop "), qPrintable(messages.texts().at(0)));
    QCOMPARE(messages.texts().size(), 1);
    QCOMPARE(afterwards, Numbers({4}));
}

void tst_WalkLimits::loopIsCutAfterAThousandRounds()
{
    // However much room the stack has: a loop must not take all of it.
    const CMessageCatcher messages;
    runOnAStackOf(64 * mebibyte, [] {
        const STestNode source(0, 1);
        const STestNode loop(1, 1, QStringLiteral("Echo"));
        const STestNode other;
        const auto entry = join(source, loop);
        const auto forth = join(loop, other);
        const auto back = join(other, loop);
        source.model->offer(CTestData::make(1));
        QCOMPARE(loop.model->received.size(), std::size_t(1000)); // each node has rounds of its own
        QCOMPARE(other.model->received.size(), std::size_t(1000));
    });
    QCOMPARE(messages.texts("halvex.graph").size(), 1);
    QVERIFY(messages.texts().at(0).contains("\"Echo\""));
}

void tst_WalkLimits::loopThatEndsByItselfIsLeftAlone()
{
    const CMessageCatcher messages;
    runOnAStackOf(64 * mebibyte, [] {
        const STestNode loop;
        const auto back = join(loop, loop);
        loop.model->onSetInData = [&loop](const CNodeDataPtr& data, NodePortIndex) {
            if (loop.model->received.size() < 1000)
                loop.model->offer(data);
        };
        for (int frame = 1; frame <= 2; ++frame) { // the rounds of the first have ended
            loop.model->received.clear();
            loop->propagateData(CTestData::make(frame), 0);
            QCOMPARE(loop.model->received.size(), std::size_t(1000));
        }
        loop.model->onSetInData = nullptr;
    });
    QCOMPARE(messages.texts(), QStringList());
}

void tst_WalkLimits::loopThroughSeveralPathsEnds()
{
    // Were every round of the loop to go on after the cut, there would be as many rounds as sequences of paths: two to
    // the power of the depth.
    const CMessageCatcher messages;
    runOnAStackOf(64 * mebibyte, [&messages] {
        const STestNode source;
        const STestNode loop;
        const STestNode left;
        const STestNode right;
        const STestNode sink(1, 0);
        const auto entry = join(source, loop);
        std::vector<std::unique_ptr<CNodeConnection>> connections;
        for (const STestNode* const path : {&left, &right}) {
            connections.push_back(join(loop, *path));
            connections.push_back(join(*path, loop));
        }
        connections.push_back(join(loop, sink));
        loop.model->onSetInData = [&loop](const CNodeDataPtr& data, NodePortIndex) {
            if (loop.model->received.size() <= 10000) // or nobody would see the test fail
                loop.model->offer(data);
        };
        source.model->offer(CTestData::make(1));

        QVERIFY(!messages.texts("halvex.graph").isEmpty());
        QVERIFY(!sink.model->received.empty());
        // The first path was followed down to the cut. Only the first round goes on to the second one, and that leads
        // back to where the loop was cut.
        const std::size_t leftRounds = left.model->received.size();
        const std::size_t rightRounds = right.model->received.size();
        QVERIFY(std::max(leftRounds, rightRounds) > 10);
        QVERIFY(std::max(leftRounds, rightRounds) <= 1000); // once, not again for the second one
        QCOMPARE(std::min(leftRounds, rightRounds), std::size_t(1));

        connections.clear();
        const auto direct = join(loop, sink);
        for (const STestNode* const node : {&loop, &sink})
            node->model->received.clear();
        source.model->offer(CTestData::make(2));
        QCOMPARE(sink.model->values(), Numbers({2}));
    });
}

void tst_WalkLimits::loopThroughSeveralUpdatesEnds()
{
    for (const auto& ports : {std::pair(0, 1), std::pair(1, 0), std::pair(0, 0)}) {
        const CMessageCatcher messages;
        const STestNode node(1, 2);
        const auto left = join(node, node, {}, 0);
        const auto right = join(node, node, {}, 1);
        std::size_t roundsToTheCut = 0;
        node.model->onSetInData = [&](const CNodeDataPtr& data, NodePortIndex) {
            if (roundsToTheCut != 0)
                return;
            node.model->offer(data, ports.first);
            if (roundsToTheCut == 0)
                roundsToTheCut = node.model->received.size();
            node.model->offer(data, ports.second);
        };
        node->propagateData(CTestData::make(1), 0);
        QCOMPARE(messages.texts("halvex.graph").size(), 1);
        QVERIFY(roundsToTheCut > 10);
        // The first round alone offers its second data.
        QCOMPARE(node.model->received.size(), roundsToTheCut + 1);
    }
}

void tst_WalkLimits::cutEndsNoOtherUpdatesOfADelivery()
{
    const CMessageCatcher messages;
    const STestNode relay(1, 3);
    const STestNode loop;
    const STestNode sink(2, 0);
    const auto entry = join(relay, loop);
    const auto back = join(loop, loop);
    const auto first = join(relay, sink, {}, 1, 0);
    const auto second = join(relay, sink, {}, 2, 1);
    relay.model->onSetInData = [&relay](const CNodeDataPtr& data, NodePortIndex) {
        for (NodePortIndex output = 0; output < 3; ++output)
            relay.model->offer(data, output);
    };

    relay->propagateData(CTestData::make(1), 0);

    QCOMPARE(messages.texts("halvex.graph").size(), 1);
    QCOMPARE(sink.model->values(), Numbers({1, 1}));
}

void tst_WalkLimits::cutEndsNoOtherConnectionsOfTheWayIn()
{
    const CMessageCatcher messages;
    const STestNode source;
    const STestNode loop;
    const STestNode sink(2, 0);
    const auto first = join(source, sink, {}, 0, 0);
    const auto entry = join(source, loop);
    const auto back = join(loop, loop);
    const auto last = join(source, sink, {}, 0, 1);

    source.model->offer(CTestData::make(1));

    QCOMPARE(messages.texts("halvex.graph").size(), 1);
    QCOMPARE(sink.model->values(), Numbers({1, 1}));
}

void tst_WalkLimits::outputThatAnnouncesItselfIsCut()
{
    for (const bool isDelivered : {false, true}) {
        const CMessageCatcher messages;
        const STestNode node(1, 1, QStringLiteral("Lazy"));
        const STestNode left;
        const STestNode right;
        const auto toLeft = join(node, left);
        const auto toRight = join(node, right);
        node.model->onOutData = [&node](NodePortIndex index) {
            Q_EMIT node.model->dataUpdated(index);
            return CTestData::make(1);
        };
        node.model->onSetInData = [&node](const CNodeDataPtr&, NodePortIndex) { Q_EMIT node.model->dataUpdated(0); };
        if (isDelivered)
            node->propagateData(CTestData::make(2), 0);
        else
            node->onDataUpdated(0);
        QCOMPARE(messages.texts("halvex.graph").size(), 1);
        QVERIFY(messages.texts().at(0).contains("\"Lazy\""));
        // The way into the loop alone goes on after the cut.
        QCOMPARE(left.model->values(), Numbers({1}));
        QCOMPARE(right.model->values(), Numbers({1}));
    }
}

int main(int argc, char** argv)
{
    for (const auto& measurement : measurements) {
        if (argc == 2 && qstrcmp(argv[1], measurement.name) == 0) {
            std::printf("%d\n", measurement.measure());
            return 0;
        }
    }
    QCoreApplication application(argc, argv);
    tst_WalkLimits test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_WalkLimits.moc"
