// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/CStackGauge_p.h"

#include "support/BoundedWait.h"
#include "support/CMessageCatcher.h"
#include "support/STestNode.h"

#include <QCoreApplication>
#include <QProcess>
#include <QThread>
#include <QtTest>

#include <pthread.h>
#include <sys/resource.h>

#include <cstdio>
#include <memory>
#include <type_traits>
#include <vector>

using namespace Plugin::Halvex;

namespace {

static_assert(!std::is_default_constructible_v<CStackGauge>, "each thread has one");

constexpr quint64 kibibyte = 1024;
constexpr quint64 mebibyte = 1024 * kibibyte;

/// How far below \a top a walk may still begin, in steps of more than \a stepSize bytes.
template <std::size_t stepSize>
Q_NEVER_INLINE quint64 measureRoom(const volatile char* top)
{
    volatile char step[stepSize];
    step[0] = 0;
    CStackGauge& gauge = CStackGauge::ofThisThread();
    if (!gauge.hasRoom(const_cast<const char*>(step)) && !gauge.beginFarWalk())
        return quint64(top - step);
    const quint64 room = measureRoom<stepSize>(top);
    step[0] = 1; // the step is needed until here
    return room;
}

/// The same from here.
quint64 roomOnThisStack()
{
    const volatile char top = 0;
    return measureRoom<4096>(&top);
}

/// The same with little of a large stack touched.
quint64 roomOnThisLargeStack()
{
    const volatile char top = 0;
    return measureRoom<32 * kibibyte>(&top);
}

/// What \a measure returns in a thread with a stack of that size.
quint64 measureInAThread(quint64 stackSize, quint64 (*measure)())
{
    quint64 measured = 0;
    const std::unique_ptr<QThread> thread(QThread::create([&measured, measure] { measured = measure(); }));
    thread->setStackSize(uint(stackSize));
    thread->start();
    waitForEnd(*thread);
    return measured;
}

/// How many bytes at the end of this thread's stack no walk may begin in.
quint64 bytesKeptFree()
{
    pthread_attr_t attributes;
    void* end = nullptr;
    std::size_t size = 0;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0 || pthread_attr_getstack(&attributes, &end, &size) != 0 ||
        pthread_attr_destroy(&attributes) != 0)
        return 0;
    CStackGauge& gauge = CStackGauge::ofThisThread();
    gauge.measureOnce();
    const char* const bytes = static_cast<const char*>(end);
    quint64 kept = 0;
    for (quint64 step = quint64(1) << 40; step > 0; step /= 2) {
        if (kept + step <= size && !gauge.hasRoom(bytes + (kept + step - 1)))
            kept += step;
    }
    return kept;
}

/// How often data has come to a node whose output leads back to it.
quint64 roundsOfALoop()
{
    const STestNode loop;
    const auto back = join(loop, loop);
    loop->propagateData(CTestData::make(1), 0);
    return loop.model->received.size();
}

/// How many nodes of a chain, which is longer than mostWalks, one frame has reached.
quint64 reachedInAChain()
{
    std::vector<std::unique_ptr<STestNode>> nodes;
    std::vector<std::unique_ptr<CNodeConnection>> connections;
    nodes.push_back(std::make_unique<STestNode>());
    for (int i = 0; i < 2 * CStackGauge::mostWalks; ++i) {
        nodes.push_back(std::make_unique<STestNode>());
        connections.push_back(join(*nodes[nodes.size() - 2], *nodes.back()));
    }
    quint64 reached = 0;
    for (const int value : {1, 2}) { // the second frame finds all walks ended
        reached = 0;
        nodes.front()->model->offer(CTestData::make(value));
        for (const auto& node : nodes)
            reached += node->model->received.empty() ? 0 : node->model->received.size() == std::size_t(value);
    }
    return reached;
}

/// Runs \a work when the system cannot tell the bounds of the main thread's stack: it reads them from a file.
quint64 runWithoutBounds(quint64 (*work)())
{
    rlimit files{};
    if (getrlimit(RLIMIT_NOFILE, &files) != 0)
        return 0;
    const rlimit none{0, files.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    const quint64 result = work();
    setrlimit(RLIMIT_NOFILE, &files);
    return result;
}

/// How many walks may be nested, the second time.
quint64 nestedWalks()
{
    CStackGauge& gauge = CStackGauge::ofThisThread();
    quint64 walks = 0;
    for (int time = 0; time < 2; ++time) {
        walks = 0;
        while (walks <= CStackGauge::mostWalks && !gauge.hasRoom(&walks) && gauge.beginFarWalk())
            ++walks;
        for (quint64 walk = 0; walk < walks; ++walk)
            gauge.endFarWalk();
    }
    return walks;
}

/// What a child process of this test measures on its main thread.
struct SMeasurement
{
    const char* name;
    quint64 (*measure)();
};
const SMeasurement measurements[] = {
    {"room", &roomOnThisLargeStack},
    {"rounds", &roundsOfALoop},
    {"walks-without-bounds", [] { return runWithoutBounds(&nestedWalks); }},
    {"chain-without-bounds", [] { return runWithoutBounds(&reachedInAChain); }},
};

} // namespace

class tst_CStackGauge : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endOfAThreadsStackIsKeptFree_data();
    void endOfAThreadsStackIsKeptFree();
    void walksUseTheRestOfAThreadsStack_data();
    void walksUseTheRestOfAThreadsStack();
    void limitOfTheMainThreadIsKnown();
    void partOfAnUnlimitedStackIsUsed();
    void loopEndsOnAnUnlimitedStack();
    void walksAreCountedWhereNothingIsKnown();
    void chainEndsWhereNothingIsKnown();
    void dropsAreThoseOfTheThread();

private:
    static bool canUnlimitStacks();
    static quint64 measureInAChild(const QString& shellSettings, const QString& name);
};

void tst_CStackGauge::endOfAThreadsStackIsKeptFree_data()
{
    QTest::addColumn<quint64>("stackSize");
    QTest::addColumn<quint64>("kept");

#if !defined(__SANITIZE_THREAD__) && !defined(__SANITIZE_ADDRESS__) // which need more than small ones have
    QTest::newRow("half of 96 KiB") << 96 * kibibyte << 48 * kibibyte;
    QTest::newRow("64 of 128 KiB") << 128 * kibibyte << 64 * kibibyte;
    QTest::newRow("64 of 256 KiB") << 256 * kibibyte << 64 * kibibyte;
#endif
#ifndef __SANITIZE_THREAD__ // which puts most of a small one into what is local to the thread
    QTest::newRow("64 of 512 KiB") << 512 * kibibyte << 64 * kibibyte;
#endif
    QTest::newRow("an eighth of 1 MiB") << mebibyte << 128 * kibibyte;
    QTest::newRow("an eighth of 2 MiB") << 2 * mebibyte << 256 * kibibyte;
    QTest::newRow("an eighth of 8 MiB") << 8 * mebibyte << mebibyte;
    QTest::newRow("an eighth of 64 MiB") << 64 * mebibyte << 8 * mebibyte;
    QTest::newRow("all but 256 of 512 MiB") << 512 * mebibyte << 256 * mebibyte;
}

void tst_CStackGauge::endOfAThreadsStackIsKeptFree()
{
    QFETCH(const quint64, stackSize);
    QFETCH(const quint64, kept);
    QCOMPARE(measureInAThread(stackSize, &bytesKeptFree), kept);
}

void tst_CStackGauge::walksUseTheRestOfAThreadsStack_data()
{
    QTest::addColumn<quint64>("stackSize");
    QTest::addColumn<quint64>("least");
    QTest::addColumn<quint64>("most");

    // The system takes part of a stack for what is local to the thread.
#ifndef __SANITIZE_THREAD__ // which puts most of a small one there
    QTest::newRow("512 KiB") << 512 * kibibyte << 128 * kibibyte << 448 * kibibyte;
    QTest::newRow("1 MiB") << mebibyte << 640 * kibibyte << 896 * kibibyte;
#endif
    QTest::newRow("8 MiB") << 8 * mebibyte << 6 * mebibyte << 7 * mebibyte;
    QTest::newRow("512 MiB") << 512 * mebibyte << 255 * mebibyte << 256 * mebibyte;
}

void tst_CStackGauge::walksUseTheRestOfAThreadsStack()
{
    QFETCH(const quint64, stackSize);
    QFETCH(const quint64, least);
    QFETCH(const quint64, most);
    const quint64 room =
        measureInAThread(stackSize, stackSize > 16 * mebibyte ? &roomOnThisLargeStack : &roomOnThisStack);
    QVERIFY2(room >= least, qPrintable(QString::number(room)));
    QVERIFY2(room <= most + 32 * kibibyte, qPrintable(QString::number(room))); // measured in steps
}

void tst_CStackGauge::limitOfTheMainThreadIsKnown()
{
    const quint64 room = measureInAChild(QStringLiteral("ulimit -S -s 2048"), QStringLiteral("room"));
    QVERIFY2(room >= 1 * mebibyte, qPrintable(QString::number(room)));
    QVERIFY2(room <= 1792 * kibibyte + 32 * kibibyte, qPrintable(QString::number(room)));
}

void tst_CStackGauge::partOfAnUnlimitedStackIsUsed()
{
    if (!canUnlimitStacks())
        return;
    const quint64 room = measureInAChild(QStringLiteral("ulimit -s unlimited"), QStringLiteral("room"));
    QVERIFY2(room >= 255 * mebibyte, qPrintable(QString::number(room)));
    QVERIFY2(room <= 257 * mebibyte, qPrintable(QString::number(room)));
}

void tst_CStackGauge::loopEndsOnAnUnlimitedStack()
{
    if (!canUnlimitStacks())
        return;
    QCOMPARE(measureInAChild(QStringLiteral("ulimit -s unlimited"), QStringLiteral("rounds")), quint64(1000));
}

void tst_CStackGauge::walksAreCountedWhereNothingIsKnown()
{
    QCOMPARE(measureInAChild(QStringLiteral(":"), QStringLiteral("walks-without-bounds")),
             quint64(CStackGauge::mostWalks));
}

void tst_CStackGauge::chainEndsWhereNothingIsKnown()
{
#ifdef __SANITIZE_ADDRESS__
    qInfo("Left out: what looks at objects' types needs files as well.");
#else
    // One walk leads to one node.
    QCOMPARE(measureInAChild(QStringLiteral(":"), QStringLiteral("chain-without-bounds")),
             quint64(CStackGauge::mostWalks));
#endif
}

void tst_CStackGauge::dropsAreThoseOfTheThread()
{
    CStackGauge& gauge = CStackGauge::ofThisThread();
    const quint64 before = gauge.drops();
    const std::unique_ptr<QThread> thread(QThread::create([] { CStackGauge::ofThisThread().countDrop(); }));
    thread->start();
    waitForEnd(*thread);
    QCOMPARE(gauge.drops(), before);
    gauge.countDrop();
    QCOMPARE(gauge.drops(), before + 1);
}

/// Where they cannot, it is said. The race detector takes the lack of a limit away again.
bool tst_CStackGauge::canUnlimitStacks()
{
#ifdef __SANITIZE_THREAD__
    const bool can = false;
#else
    const bool can =
        QProcess::execute(QStringLiteral("sh"), {QStringLiteral("-c"), QStringLiteral("ulimit -s unlimited")}) == 0;
#endif
    if (!can)
        qInfo("Left out: a stack without a limit is not to be had here.");
    return can;
}

/// The number that a child of this process prints; 0 if it fails.
quint64 tst_CStackGauge::measureInAChild(const QString& shellSettings, const QString& name)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QStringLiteral("sh"), {QStringLiteral("-c"), shellSettings + QStringLiteral("; exec \"$0\" \"$@\""),
                                       QCoreApplication::applicationFilePath(), name});
    if (!child.waitForFinished() || child.exitStatus() != QProcess::NormalExit || child.exitCode() != 0)
        return 0;
    return child.readAllStandardOutput().trimmed().toULongLong();
}

int main(int argc, char** argv)
{
    for (const SMeasurement& measurement : measurements) {
        if (argc == 2 && qstrcmp(argv[1], measurement.name) == 0) {
            std::printf("%llu\n", measurement.measure());
            return 0;
        }
    }
    QCoreApplication application(argc, argv);
    tst_CStackGauge test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_CStackGauge.moc"
