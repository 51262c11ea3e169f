// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// That random sequences reach everything, and that what they find is shrunk and printed as a test. A sequence that
// finds something in the library gets a case of its own here, named after what it found; so far none has.

#include "sequences/CChildRunner.h"
#include "sequences/Shrink.h"
#include "support/CMessageCatcher.h"
#include "support/FreshSeed.h"

#include <QFile>
#include <QSet>
#include <QTest>

#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <set>

using namespace Sequences;

namespace {

constexpr auto silent = CChildRunner::EErrors::Silent;
constexpr auto ignored = CChildRunner::ELeaks::Ignored; // Qt Test has a thread

/// Does \a what once a second connection has been deleted.
CSideBySide::Fault atSecondDeletion(std::function<void(SState&)> what)
{
    return [what = std::move(what), deletions = 0](const std::vector<SEvent>& events, SState& state) mutable {
        for (const SEvent& event : events)
            deletions += event.event == EEvent::ConnectionDeleted && !event.isLate ? 1 : 0;
        if (deletions >= 2)
            what(state);
    };
}

/// Expects something wrong then.
CSideBySide::Fault faultAtSecondDeletion()
{
    return atSecondDeletion([](SState& state) { ++state.models; });
}

void exitWithError()
{
    std::_Exit(1);
}

void writeToNull()
{
    volatile int* volatile nowhere = nullptr; // or the compiler leaves the write out
    *nowhere = 1;
}

bool isDeletionInHandler(const std::vector<SEvent>& events)
{
    const auto has = [&events](EEvent kind) {
        return std::any_of(events.begin(), events.end(), [kind](const SEvent& event) { return event.event == kind; });
    };
    return has(EEvent::NodeCreated) && has(EEvent::ConnectionDeleted);
}

/// Expects something wrong once a connection has been deleted while a node was made.
void faultAtDeletionInHandler(const std::vector<SEvent>& events, SState& state)
{
    state.models += isDeletionInHandler(events) ? 1 : 0;
}

void abortAtDeletionInHandler(const std::vector<SEvent>& events, SState&)
{
    if (isDeletionInHandler(events))
        std::abort();
}

/// The first that is made is left.
void leaveData(const std::vector<SEvent>&, SState&)
{
    static const auto left = QSharedPointer<CTestData>::create(1);
}

bool showsSecondDeletion(const Sequence& sequence)
{
    return !differenceOf(sequence, faultAtSecondDeletion()).isEmpty();
}

bool showsDeletionInHandler(const Sequence& sequence)
{
    return !differenceOf(sequence, &faultAtDeletionInHandler).isEmpty();
}

/// What leads to the fault, among much that does not.
Sequence longSequence()
{
    return {
        {{EOperation::AddSource, 1, {0}, {}}, {}},
        {{EOperation::SaveToMemory, 0, {1}, {}}, {}},
        {{EOperation::AddModel, 2, {View}, {}}, {{{EEvent::NodeCreated, true, 1}, {EOperation::Iterate, 0, {1}, {}}}}},
        {{EOperation::AddUniqueSink, 3, {}, {}}, {}},
        {{EOperation::SetActiveScene, 0, {1}, {}}, {}},
        {{EOperation::LoadFromMemory, 4, {1}, {}}, {}},
        {{EOperation::AddSource, 104, {2}, {}}, {}},
        {{EOperation::RemoveSceneOfNode, 0, {104, 1}, {}}, {}},
        {{EOperation::AddModel, 105, {Filter}, {}}, {}},
        {{EOperation::SetData, 106, {1, 0}, {}}, {}},
        {{EOperation::CreateConnection, 107, {1, 2, 0, 1, 0, 0}, {}}, {}},
        {{EOperation::CreateHalfConnection, 108, {1, 2, 2, 1}, {}}, {}},
        {{EOperation::CreateConnection, 109, {1, 105, 0, 1, 0, 1}, {}},
         {{{EEvent::ConnectionCreated, false, 1}, {EOperation::SetData, 110, {1, 0}, {}}}}},
        {{EOperation::ImportDocument, 111, {}, {{0, View, {{-1}}, {}}}}, {}},
        {{EOperation::CreateNode, 211, {1, Plain}, {}},
         {{{EEvent::NodeCreated, false, 1}, {EOperation::DeleteConnection, 0, {107}, {}}},
          {{EEvent::ConnectionDeleted, true, 1}, {EOperation::AddAgain, 0, {1}, {}}}}},
        {{EOperation::Iterate, 0, {1}, {}}, {}},
        {{EOperation::RemoveNode, 0, {105, 0}, {}}, {}},
        {{EOperation::ClearScene, 0, {1}, {}}, {}}};
}

void runPrinted(CSideBySide& graph)
{
#include "sequences/ShrunkSequence.inc"
}

} // namespace

using Crash = void (*)();
Q_DECLARE_METATYPE(Crash)

class TestSequences : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void randomReachesEveryOperationAndEveryHandler();
    void randomIsTheSameForTheSameSeed();
    void faultIsFoundAndShrunk();
    void shrunkIsPrintedAsCode();
    void printedShowsTheFault();
    void printedHasEveryKindOfArgument();
    void operationOnWhatIsGoneDoesNothing();
    void recordHasWhatWasRun();
    void crashIsFoundAndShrunk_data();
    void crashIsFoundAndShrunk();
    void crashKeepsWhatHandlersRan();
    void hangIsFound();
    void objectsLeftAreFound();
    void differenceInAChildIsTheSame();
};

void TestSequences::initTestCase()
{
    qputenv("QTEST_DISABLE_STACK_DUMP", "1"); // a debugger at each crash that is meant takes longer than a hang
}

void TestSequences::randomReachesEveryOperationAndEveryHandler()
{
    QSet<int> operations;
    std::set<SCall> handlers;
    const unsigned int firstSeed = freshSeed();
    const CMessageCatcher messages; // of models that nobody registered
    for (unsigned int seed = firstSeed; seed < firstSeed + 20; ++seed) {
        const SRandomRun run = runRandomly(seed, 500);
        QVERIFY2(run.difference.isEmpty(), qPrintable(QString("seed %1: %2").arg(seed).arg(run.difference)));
        for (const SStep& step : run.sequence) {
            operations.insert(int(step.operation.kind));
            for (const SNested& nested : step.nested) {
                operations.insert(int(nested.operation.kind));
                handlers.insert({nested.call.signal, nested.call.isLate, 1});
            }
        }
    }
    QCOMPARE(operations.size(), int(EOperation::DestroyScene) + 1);
    QCOMPARE(int(handlers.size()), 2 * (int(EEvent::NewData) + 1));
    QCOMPARE(CIdentity::alive() + CTestData::alive(), 0);
}

void TestSequences::randomIsTheSameForTheSameSeed()
{
    const CMessageCatcher messages;
    const QString code = codeOf(runRandomly(3, 300).sequence);
    QCOMPARE(codeOf(runRandomly(3, 300).sequence), code);
    QVERIFY(codeOf(runRandomly(4, 300).sequence) != code);
}

void TestSequences::faultIsFoundAndShrunk()
{
    const CMessageCatcher messages;
    const SRandomRun run = runRandomly(5, 500, faultAtSecondDeletion());
    QVERIFY(!run.difference.isEmpty());
    QVERIFY(run.difference.startsWith("another state"));
    QVERIFY(sizeOf(run.sequence) > 10);

    const Sequence shrunk = shrink(run.sequence, &showsSecondDeletion);
    QVERIFY(showsSecondDeletion(shrunk));
    QVERIFY2(sizeOf(shrunk) <= 10, qPrintable(codeOf(shrunk)));
    for (std::size_t i = 0; i < shrunk.size(); ++i) {
        Sequence shorter = shrunk;
        shorter.erase(shorter.begin() + std::ptrdiff_t(i));
        QVERIFY2(!showsSecondDeletion(shorter), qPrintable(codeOf(shrunk)));
    }
}

void TestSequences::shrunkIsPrintedAsCode()
{
    QVERIFY(showsDeletionInHandler(longSequence()));
    QFile expected(QFINDTESTDATA("ShrunkSequence.inc"));
    QVERIFY(expected.open(QIODevice::ReadOnly));
    QCOMPARE(codeOf(shrink(longSequence(), &showsDeletionInHandler)), QString::fromUtf8(expected.readAll()));
}

void TestSequences::printedShowsTheFault()
{
    CSideBySide faulty(&faultAtDeletionInHandler);
    runPrinted(faulty);
    QVERIFY(faulty.difference().startsWith("another state"));

    CSideBySide graph;
    runPrinted(graph);
    QCOMPARE(graph.difference(), QString());
}

void TestSequences::printedHasEveryKindOfArgument()
{
    const Sequence sequence{
        {{EOperation::AddStoredDocument, 0, {}, {{2, View, {{-1, 3}, {}}, {0}}, {0, Unknown, {}, {}}}}, {}},
        {{EOperation::CreateHalfConnection, 9, {1, 1, 2, 0}, {}},
         {{{EEvent::SceneRemoved, true, 2}, {EOperation::CreateHalfConnection, 8, {1, 2, 2, 1}, {}}}}}};
    QCOMPARE(codeOf(sequence),
             QString("graph.addStoredDocument({{2, View, {{-1, 3}, {}}, {0}}, {0, Unknown, {}, {}}});\n"
                     "graph.onLate(EEvent::SceneRemoved, 2, [&] { graph.createHalfConnection(8, 1, "
                     "ENodePortType::Out, 2, 1); });\n"
                     "graph.createHalfConnection(9, 1, ENodePortType::In, 2, 0);\n"));
}

void TestSequences::operationOnWhatIsGoneDoesNothing()
{
    // Or a sequence could not be shortened.
    CSideBySide graph;
    graph.addSource(1, 0);
    QCOMPARE(graph.removeNode(2, false), AGraph::nothingThere);
    QCOMPARE(graph.createConnection(3, 1, 2, 0, 1, 0, false), AGraph::nothingThere);
    QCOMPARE(graph.deleteConnection(3), AGraph::nothingThere);
    QCOMPARE(graph.destroyScene(2), AGraph::nothingThere);
    QCOMPARE(graph.restoreNode(4, 1, 0), AGraph::nothingThere);
    QCOMPARE(graph.destroyScene(1), 0);
    QCOMPARE(graph.addAgain(1), AGraph::nothingThere);
    QCOMPARE(graph.difference(), QString());
}

void TestSequences::recordHasWhatWasRun()
{
    const CMessageCatcher messages;
    CSharedRecord record;
    for (unsigned int seed = 1; seed <= 3; ++seed) {
        record.clear();
        const SRandomRun run = runRandomly(seed, 500, {}, &record);
        const Sequence recorded = record.sequence();
        QCOMPARE(codeOf(recorded), codeOf(run.sequence));
        QCOMPARE(sizeOf(recorded), run.operations);
    }
    record.setDifference("another state\n…");
    QCOMPARE(record.difference(), QString("another state\n…"));
    record.clear();
    QVERIFY(record.sequence().empty());
    QCOMPARE(record.difference(), QString());
}

void TestSequences::crashIsFoundAndShrunk_data()
{
    QTest::addColumn<Crash>("crash");
    QTest::newRow("abort") << Crash(&std::abort);
    QTest::newRow("null write") << Crash(&writeToNull);
    QTest::newRow("exit code") << Crash(&exitWithError); // as sanitizers do
}

void TestSequences::crashIsFoundAndShrunk()
{
    QFETCH(const Crash, crash);
    const CMessageCatcher messages;
    CChildRunner runner(ignored, atSecondDeletion([crash](SState&) { crash(); }));
    const SRandomRun run = runner.runRandomly(5, 500);
    QVERIFY2(run.difference.startsWith("crashed\n"), qPrintable(run.difference));
    QVERIFY(sizeOf(run.sequence) > 10);

    const Sequence shrunk = runner.shrunk(run.sequence, run.difference);
    const QString code = codeOf(shrunk);
    QVERIFY2(sizeOf(shrunk) <= 10, qPrintable(code));
    QVERIFY2(code.startsWith("graph.addSource(1, "), qPrintable(code));
    QVERIFY(runner.differenceOf(shrunk, silent).startsWith("crashed\n"));
    QVERIFY(showsSecondDeletion(shrunk));
}

void TestSequences::crashKeepsWhatHandlersRan()
{
    CChildRunner runner(ignored, &abortAtDeletionInHandler);
    QCOMPARE(runner.differenceOf(longSequence(), silent), QString("crashed\nby signal %1\n").arg(SIGABRT));

    const CMessageCatcher messages;
    SRandomRun run;
    for (unsigned int seed = 1; run.difference.isEmpty() && seed <= 20; ++seed)
        run = runner.runRandomly(seed, 500);
    QVERIFY2(run.difference.startsWith("crashed\n"), qPrintable(run.difference));
    QVERIFY(!run.sequence.back().nested.empty());
    QVERIFY(showsDeletionInHandler(run.sequence));
}

void TestSequences::hangIsFound()
{
    CChildRunner runner(ignored, atSecondDeletion([](SState&) { pause(); }), 1);
    const Sequence twice{{{EOperation::AddSource, 1, {0}, {}}, {}},
                         {{EOperation::AddModel, 2, {View}, {}}, {}},
                         {{EOperation::CreateConnection, 3, {1, 2, 0, 1, 0, 0}, {}}, {}},
                         {{EOperation::DeleteConnection, 0, {3}, {}}, {}},
                         {{EOperation::CreateConnection, 4, {1, 2, 0, 1, 0, 0}, {}}, {}},
                         {{EOperation::DeleteConnection, 0, {4}, {}}, {}}};
    QCOMPARE(runner.differenceOf(twice, silent), QString("hung\n"));
    QCOMPARE(runner.differenceOf({twice.begin(), twice.end() - 1}, silent), QString());
}

void TestSequences::objectsLeftAreFound()
{
    CChildRunner runner(ignored, &leaveData);
    QCOMPARE(runner.differenceOf({{{EOperation::AddSource, 1, {0}, {}}, {}}}, silent), QString("1 objects left\n"));
}

void TestSequences::differenceInAChildIsTheSame()
{
    const CMessageCatcher messages;
    const SRandomRun run = runRandomly(5, 500, faultAtSecondDeletion());
    CChildRunner runner(ignored, faultAtSecondDeletion());
    const SRandomRun inChild = runner.runRandomly(5, 500);
    QVERIFY(!inChild.difference.isEmpty());
    QCOMPARE(inChild.difference, run.difference);
    QCOMPARE(codeOf(inChild.sequence), codeOf(run.sequence));
    QCOMPARE(inChild.operations, run.operations);
    QCOMPARE(CChildRunner(ignored).differenceOf(run.sequence, silent), QString());
}

QTEST_GUILESS_MAIN(TestSequences)
#include "tst_Sequences.moc"
