// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CCameraStream.h"

#include "CBlockedFile.h"
#include "SHostService.h"
#include "host/run/CGraphBuilder.h"
#include "host/run/CStreamGraph.h"
#include "host/run/Chain.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;
using namespace std::chrono_literals;

namespace {

constexpr int endless = 1000000;

const QString changed = QStringLiteral("the graph of camera 'fake' was changed or removed by somebody else");

// The built-in camera with the default chain, and the services that its graph lives in.
struct SLiveStream
{
    SLiveStream()
    {
        QString error;
        auto graphs = CGraphBuilder(services.nodes, services.models).import(defaultChain({"fake"}), {"fake"}, &error);
        SCameraOptions options;
        options.framesPerSecond = 200.0;
        stream = std::make_unique<CCameraStream>(options, std::move(graphs.at(0)));
        ended = std::make_unique<QSignalSpy>(stream.get(), &CCameraStream::ended);
        failed = std::make_unique<QSignalSpy>(stream.get(), &CCameraStream::failed);
    }

    QString prepare() const
    {
        const QString error = stream->open(services.models);
        return error.isEmpty() ? stream->prepareSinks(folder.path(), 10) : error;
    }

    QString start(int frames) const
    {
        const QString error = prepare();
        return error.isEmpty() ? stream->start(frames, 5s) : error;
    }

    quint64 frames() const { return stream->report().frames.complete; }
    QString failure() const { return failed->value(0).value(0).toString(); }

    SHostService services;
    QTemporaryDir folder;
    std::unique_ptr<CCameraStream> stream;
    std::unique_ptr<QSignalSpy> ended;
    std::unique_ptr<QSignalSpy> failed;
};

} // namespace

class tst_CCameraStream : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyFrameIsThroughWhenItEnds();
    void everyFileIsWrittenWhenItEnds();
    void endsWhenItIsAskedTo();
    void sinkThatCannotWriteEndsIt();
    void destroyedWhileItStreams();
    void sceneThatIsRemovedEndsIt();
    void sceneThatIsRemovedBeforeItStarts();
    void sceneThatIsRemovedWhileItDrains();
};

void tst_CCameraStream::everyFrameIsThroughWhenItEnds()
{
    const SLiveStream live;
    QCOMPARE(live.stream->camera(), QStringLiteral("fake"));
    QVERIFY(!live.stream->isStarted());
    QCOMPARE(live.start(20), QString());
    QVERIFY(QDir(live.folder.filePath("frames")).exists());
    QVERIFY(live.stream->isStreaming());
    QTRY_COMPARE_WITH_TIMEOUT(live.ended->count(), 1, 30000);
    QCOMPARE(live.failed->count(), 0);
    QVERIFY(!live.stream->isStreaming());
    QVERIFY(live.stream->isStarted());
    const SRunReport report = live.stream->account();
    QCOMPARE(report.mismatch(), QString());
    QCOMPARE(report.frames.complete, quint64(20));
    QCOMPARE(report.sinks[0].delivered, quint64(20));
}

void tst_CCameraStream::everyFileIsWrittenWhenItEnds()
{
    const SLiveStream live;
    QCOMPARE(live.prepare(), QString());
    CBlockedFile blocked(live.folder.filePath("frames/frame-000000.png"));
    QCOMPARE(live.stream->start(15, 5s), QString());
    const auto account = [&live] { return live.stream->account(); };
    QTRY_COMPARE(account().frames.complete, quint64(15));
    QTRY_COMPARE(account().sinks[0].writing.pending, quint64(2));
    QCOMPARE(live.ended->count(), 0);
    QVERIFY(!live.stream->areFilesWritten());
    blocked.release();
    QTRY_COMPARE_WITH_TIMEOUT(live.ended->count(), 1, 30000);
    QVERIFY(live.stream->areFilesWritten());
    QCOMPARE(account().mismatch(), QString());
    QCOMPARE(account().sinks[0].files.size(), std::size_t(2));
}

void tst_CCameraStream::endsWhenItIsAskedTo()
{
    const SLiveStream live;
    QCOMPARE(live.start(endless), QString());
    QTRY_VERIFY(live.frames() > 0);
    live.stream->requestEnd();
    QTRY_COMPARE_WITH_TIMEOUT(live.ended->count(), 1, 30000);
    QCOMPARE(live.stream->account().mismatch(), QString());
}

void tst_CCameraStream::sinkThatCannotWriteEndsIt()
{
    const SLiveStream live;
    QCOMPARE(live.prepare(), QString());
    const QString file = live.folder.filePath("frames/frame-000010.png");
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), file + ".part"));
    QCOMPARE(live.stream->start(endless, 5s), QString());
    QTRY_COMPARE_WITH_TIMEOUT(live.ended->count(), 1, 30000);
    QVERIFY(live.failed->count() >= 1);
    QCOMPARE(live.failure(), QStringLiteral("cannot write '%1': No space left on device").arg(file));
    QCOMPARE(live.stream->account().mismatch(), QString());
}

void tst_CCameraStream::destroyedWhileItStreams()
{
    SLiveStream live;
    QCOMPARE(live.start(endless), QString());
    QTRY_VERIFY(live.frames() > 0);
    live.stream.reset();
    QCOMPARE(live.services.nodes.scenes().size(), 1);
}

void tst_CCameraStream::sceneThatIsRemovedEndsIt()
{
    SLiveStream live;
    QCOMPARE(live.start(endless), QString());
    QTRY_VERIFY(live.frames() > 0);
    live.services.nodes.removeSceneOfNode(live.stream->graph().scene().nodes().begin()->second.get());
    // Whoever removed it finds nothing under way any more.
    QCOMPARE(live.ended->count(), 1);
    QCOMPARE(live.failed->count(), 1);
    QCOMPARE(live.failure(), changed);
    QVERIFY(!live.stream->isStreaming());
    QVERIFY(!live.stream->graph().isIntact());
    const quint64 frames = live.frames();
    // What the thread had posted arrives and touches nothing.
    QCoreApplication::processEvents();
    QCOMPARE(live.ended->count(), 1);
    QCOMPARE(live.frames(), frames);
}

void tst_CCameraStream::sceneThatIsRemovedBeforeItStarts()
{
    SLiveStream live;
    QCOMPARE(live.prepare(), QString());
    delete live.services.nodes.getActiveScene().data();
    QCOMPARE(live.failed->count(), 1);
    QCOMPARE(live.ended->count(), 0);
    QCOMPARE(live.stream->start(endless, 5s), changed);
    QVERIFY(!live.stream->isStarted());
}

void tst_CCameraStream::sceneThatIsRemovedWhileItDrains()
{
    SLiveStream live;
    // The decoupler keeps what it gets.
    setDecouplerRate(live.stream->graph().scene(), 0.001);
    QCOMPARE(live.start(3), QString());
    QTRY_COMPARE(live.frames(), quint64(3));
    QTRY_VERIFY(!live.stream->graph().isDrained());
    delete live.services.nodes.getActiveScene().data();
    QCOMPARE(live.ended->count(), 1);
    QVERIFY(!live.stream->areFilesWritten());
}

QTEST_GUILESS_MAIN(tst_CCameraStream)
#include "tst_CCameraStream.moc"
