// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CCameraStream.h"

#include "SHostService.h"
#include "host/run/CGraphBuilder.h"
#include "host/run/CStreamGraph.h"
#include "host/run/Chain.h"

#include <Halvex/models/CNodeDecouplerDataModelBase.h>

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace Host;
using namespace Plugin::Halvex;
using namespace std::chrono_literals;

namespace {

constexpr int endless = 1000000;

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
    }

    QString prepare() const
    {
        const QString error = stream->open(services.models);
        return error.isEmpty() ? stream->prepareSinks(folder.path(), 10) : error;
    }

    SHostService services;
    QTemporaryDir folder;
    std::unique_ptr<CCameraStream> stream;
};

} // namespace

class tst_CCameraStream : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyFrameIsThroughWhenItEnds();
    void endsWhenItIsAskedTo();
    void sinkThatCannotWriteEndsIt();
    void destroyedWhileItStreams();
    void sceneThatIsRemovedEndsIt();
    void sceneThatIsRemovedBeforeItStarts();
    void sceneThatIsRemovedWhileItDrains();
};

void tst_CCameraStream::everyFrameIsThroughWhenItEnds()
{
    SLiveStream live;
    CCameraStream& stream = *live.stream;
    QCOMPARE(stream.camera(), QStringLiteral("fake"));
    QCOMPARE(live.prepare(), QString());
    QVERIFY(QDir(live.folder.filePath("frames")).exists());
    QVERIFY(!stream.isStarted());
    QSignalSpy ended(&stream, &CCameraStream::ended);
    QSignalSpy failed(&stream, &CCameraStream::failed);
    QCOMPARE(stream.start(20, 5s), QString());
    QVERIFY(stream.isStreaming());
    QTRY_COMPARE_WITH_TIMEOUT(ended.count(), 1, 30000);
    QCOMPARE(failed.count(), 0);
    QVERIFY(!stream.isStreaming());
    QVERIFY(stream.isStarted());
    const SRunReport report = stream.account();
    QCOMPARE(report.mismatch(), QString());
    QCOMPARE(report.frames.complete, quint64(20));
    QCOMPARE(report.sinks[0].delivered, quint64(20));
}

void tst_CCameraStream::endsWhenItIsAskedTo()
{
    SLiveStream live;
    QCOMPARE(live.prepare(), QString());
    QSignalSpy ended(live.stream.get(), &CCameraStream::ended);
    QCOMPARE(live.stream->start(endless, 5s), QString());
    QTRY_VERIFY(live.stream->report().frames.complete > 0);
    live.stream->requestEnd();
    QTRY_COMPARE_WITH_TIMEOUT(ended.count(), 1, 30000);
    QCOMPARE(live.stream->account().mismatch(), QString());
}

void tst_CCameraStream::sinkThatCannotWriteEndsIt()
{
    SLiveStream live;
    QCOMPARE(live.prepare(), QString());
    const QString file = live.folder.filePath("frames/frame-000010.png");
    QVERIFY(QFile::link(QStringLiteral("/dev/full"), file));
    QSignalSpy ended(live.stream.get(), &CCameraStream::ended);
    QSignalSpy failed(live.stream.get(), &CCameraStream::failed);
    QCOMPARE(live.stream->start(endless, 5s), QString());
    QTRY_COMPARE_WITH_TIMEOUT(ended.count(), 1, 30000);
    QVERIFY(failed.count() >= 1);
    QCOMPARE(failed.at(0).at(0).toString(), QStringLiteral("cannot write '%1': No space left on device").arg(file));
    QCOMPARE(live.stream->account().mismatch(), QString());
}

void tst_CCameraStream::destroyedWhileItStreams()
{
    SLiveStream live;
    QCOMPARE(live.prepare(), QString());
    QCOMPARE(live.stream->start(endless, 5s), QString());
    QTRY_VERIFY(live.stream->report().frames.complete > 0);
    live.stream.reset();
    QCOMPARE(live.services.nodes.scenes().size(), 1);
}

void tst_CCameraStream::sceneThatIsRemovedEndsIt()
{
    SLiveStream live;
    CCameraStream& stream = *live.stream;
    QCOMPARE(live.prepare(), QString());
    QSignalSpy ended(&stream, &CCameraStream::ended);
    QSignalSpy failed(&stream, &CCameraStream::failed);
    QCOMPARE(stream.start(endless, 5s), QString());
    QTRY_VERIFY(stream.report().frames.complete > 0);

    CNodeBase* const node = stream.graph().scene().nodes().begin()->second.get();
    live.services.nodes.removeSceneOfNode(node);
    // Whoever removed it finds nothing under way any more.
    QCOMPARE(ended.count(), 1);
    QCOMPARE(failed.count(), 1);
    QCOMPARE(failed.at(0).at(0).toString(),
             QStringLiteral("the graph of camera 'fake' was changed or removed by somebody else"));
    QVERIFY(!stream.isStreaming());
    QVERIFY(!stream.graph().isIntact());
    const quint64 frames = stream.report().frames.complete;
    // What the thread had posted arrives and touches nothing.
    QCoreApplication::processEvents();
    QCOMPARE(ended.count(), 1);
    QCOMPARE(stream.report().frames.complete, frames);
}

void tst_CCameraStream::sceneThatIsRemovedBeforeItStarts()
{
    SLiveStream live;
    QCOMPARE(live.prepare(), QString());
    QSignalSpy ended(live.stream.get(), &CCameraStream::ended);
    QSignalSpy failed(live.stream.get(), &CCameraStream::failed);
    delete live.services.nodes.getActiveScene().data();
    QCOMPARE(failed.count(), 1);
    QCOMPARE(ended.count(), 0);
    QCOMPARE(live.stream->start(endless, 5s),
             QStringLiteral("the graph of camera 'fake' was changed or removed by somebody else"));
    QVERIFY(!live.stream->isStarted());
}

void tst_CCameraStream::sceneThatIsRemovedWhileItDrains()
{
    SLiveStream live;
    QCOMPARE(live.prepare(), QString());
    QSignalSpy ended(live.stream.get(), &CCameraStream::ended);
    // The decoupler keeps what it gets.
    const auto isDecoupler = [](const auto& node) {
        return qobject_cast<CNodeDecouplerDataModelBase*>(node.second->nodeDataModel()) != nullptr;
    };
    const auto& nodes = live.stream->graph().scene().nodes();
    const auto decoupler = std::find_if(nodes.begin(), nodes.end(), isDecoupler);
    QVERIFY(decoupler != nodes.end());
    qobject_cast<CNodeDecouplerDataModelBase*>(decoupler->second->nodeDataModel())->setFramesPerSecond(0.001);
    QCOMPARE(live.stream->start(3, 5s), QString());
    QTRY_COMPARE(live.stream->report().frames.complete, quint64(3));
    QTRY_VERIFY(!live.stream->graph().isDrained());
    delete live.services.nodes.getActiveScene().data();
    QCOMPARE(ended.count(), 1);
}

QTEST_GUILESS_MAIN(tst_CCameraStream)
#include "tst_CCameraStream.moc"
