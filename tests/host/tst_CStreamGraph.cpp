// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CStreamGraph.h"

#include "SHostService.h"
#include "host/models/CGrabResultData.h"
#include "host/models/IFrameSink.h"
#include "host/run/CGraphBuilder.h"
#include "host/run/Chain.h"

#include <Halvex/models/CNodeDecouplerDataModelBase.h>

#include <QJsonObject>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <limits>

using namespace Host;
using namespace Plugin::Halvex;
using namespace std::chrono_literals;

namespace {

CNodeDataPtr frame()
{
    const auto pixels = std::make_shared<std::vector<std::byte>>(64 * 48);
    Veltra::SGrabResult result;
    result.pixels = pixels->data();
    result.size = pixels->size();
    result.width = result.stride = 64;
    result.height = 48;
    result.pixelFormat = QStringLiteral("Mono8");
    result.complete = true;
    result.owner = pixels;
    return QSharedPointer<CGrabResultData>::create(Veltra::CGrabResultPtr(std::move(result)), SFrameInfo());
}

// The default chain's graph for a camera "left", and the services that it lives in.
struct SDemo
{
    SDemo()
    {
        QString error;
        auto graphs = CGraphBuilder(host.nodes, host.models).import(defaultChain({"left"}), {"left"}, &error);
        if (!graphs.empty())
            graph = std::move(graphs.front());
    }

    SHostService host;
    std::unique_ptr<CStreamGraph> graph;
};

SRunReport account(const CStreamGraph& graph, quint64 frames)
{
    SRunReport report;
    report.frames.complete = frames;
    graph.account(&report);
    return report;
}

void setRate(const CStreamGraph& graph, double rate)
{
    for (const auto& node : graph.scene().nodes()) {
        if (auto* decoupler = qobject_cast<CNodeDecouplerDataModelBase*>(node.second->nodeDataModel()))
            decoupler->setFramesPerSecond(rate);
    }
}

} // namespace

Q_DECLARE_METATYPE(std::function<void(Plugin::Halvex::CNodeScene&)>)

class tst_CStreamGraph : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void demoGraph();
    void everyFrameIsAccountedFor();
    void accountOfWhatIsNotDrained();
    void drainTimeKnowsTheRate_data();
    void drainTimeKnowsTheRate();
    void changeIsTold_data();
    void changeIsTold();
};

void tst_CStreamGraph::demoGraph()
{
    const SDemo demo;
    const auto& graph = demo.graph;
    QVERIFY(graph);
    QStringList names;
    for (const IFrameSink* sink : graph->sinks())
        names << sink->sinkName();
    QCOMPARE(names, QStringList({"frames", "histogram", "threshold", "edges"}));
    QCOMPARE(graph->scene().nodes().size(), std::size_t(12));
    QCOMPARE(graph->scene().connections().size(), std::size_t(11));
    QVERIFY(graph->isDrained());
    const SRunReport report = account(*graph, 0);
    QCOMPARE(report.mismatch(), QString());
    QCOMPARE(report.decouplers.size(), std::size_t(1));
    QCOMPARE(report.decouplers[0].name, QStringLiteral("[1] Decoupler for VGR"));
    QCOMPARE(report.decouplers[0].framesPerSecond, 25.0);
}

void tst_CStreamGraph::everyFrameIsAccountedFor()
{
    const SDemo demo;
    const auto& graph = demo.graph;
    QVERIFY(graph);
    QSignalSpy cameThrough(graph.get(), &CStreamGraph::cameThrough);
    for (int i = 0; i < 5; ++i)
        graph->entry().setData(frame());
    QCoreApplication::sendPostedEvents();
    // The recording has them all, before anything of the preview is out.
    QCOMPARE(graph->sinks()[0]->delivered(), quint64(5));
    QCOMPARE(cameThrough.count(), 0);
    QVERIFY(!graph->isDrained());
    QTRY_VERIFY(graph->isDrained());

    const SRunReport report = account(*graph, 5);
    QCOMPARE(report.mismatch(), QString());
    const SDecouplerStatistics& counts = report.decouplers[0].counts;
    QCOMPARE(counts.received, quint64(5));
    QVERIFY(counts.emitted >= 1);
    QCOMPARE(quint64(cameThrough.count()), counts.emitted);
    QCOMPARE(report.sinks[0].expected, quint64(5));
    for (std::size_t i = 1; i < 4; ++i) {
        QCOMPARE(report.sinks[i].expected, counts.emitted);
        QCOMPARE(report.sinks[i].delivered, counts.emitted);
    }
    // A frame that never came is missed.
    QVERIFY(account(*graph, 6).mismatch().startsWith(
        QStringLiteral("the decoupler '[1] Decoupler for VGR' received 5 frames, not the 6 ")));
}

void tst_CStreamGraph::accountOfWhatIsNotDrained()
{
    const SDemo demo;
    const auto& graph = demo.graph;
    QVERIFY(graph);
    setRate(*graph, 0.001);
    graph->entry().setData(frame());
    QTRY_VERIFY(!graph->isDrained());
    const SRunReport report = account(*graph, 1);
    QCOMPARE(report.decouplers[0].counts.pending, quint64(1));
    QCOMPARE(report.mismatch(),
             QStringLiteral("the decoupler '[1] Decoupler for VGR' let its last frame not through in time"));
}

void tst_CStreamGraph::drainTimeKnowsTheRate_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<qint64>("time");
    QTest::newRow("25") << 25.0 << qint64(5080);
    QTest::newRow("slow") << 0.1 << qint64(25000);
    QTest::newRow("zero") << 0.0 << qint64(5000);
    QTest::newRow("negative") << -1.0 << qint64(5000);
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << qint64(5000);
    QTest::newRow("tiny") << 1e-300 << qint64(2000000000);
}

void tst_CStreamGraph::drainTimeKnowsTheRate()
{
    QFETCH(double, rate);
    QFETCH(qint64, time);
    const SDemo demo;
    const auto& graph = demo.graph;
    QVERIFY(graph);
    setRate(*graph, rate);
    QCOMPARE(qint64(graph->drainTime().count()), time);
}

void tst_CStreamGraph::changeIsTold_data()
{
    using Change = std::function<void(CNodeScene&)>;
    QTest::addColumn<Change>("change");
    const auto row = [](const char* name, const Change& change) { QTest::newRow(name) << change; };
    row("node removed", [](CNodeScene& scene) { scene.removeNode(*scene.nodes().begin()->second); });
    row("node made", [](CNodeScene& scene) { scene.createNode(scene.registry().create("Blur")); });
    row("connection deleted", [](CNodeScene& scene) { scene.deleteConnection(*scene.connections().begin()->second); });
    row("connection made", [](CNodeScene& scene) {
        CNodeConnection& known = *scene.connections().begin()->second;
        scene.createConnection(ENodePortType::Out, *std::as_const(known).getNode(ENodePortType::Out), 0);
    });
    row("node replaced", [](CNodeScene& scene) {
        scene.blockSignals(true); // as by a document: the old node goes without a word
        QJsonObject model{{"name", "Blur"}};
        scene.restoreNode({{"id", scene.nodes().begin()->first.toString()}, {"model", model}});
    });
    row("cleared", [](CNodeScene& scene) { scene.clearScene(); });
    row("destroyed", [](CNodeScene& scene) { delete &scene; });
}

void tst_CStreamGraph::changeIsTold()
{
    QFETCH(std::function<void(CNodeScene&)>, change);
    SDemo demo;
    QVERIFY(demo.graph);
    QVERIFY(demo.graph->isIntact());
    const CNodeDataEntry entry = demo.graph->entry();
    const QPointer<CNodeDataModel> source = sourceIn(demo.graph->scene());
    QVERIFY(source);
    QSignalSpy changed(demo.graph.get(), &CStreamGraph::changed);
    change(*demo.host.nodes.getActiveScene());
    QCOMPARE(changed.count(), 1);
    QVERIFY(!demo.graph->isIntact());
    QCOMPARE(entry.setData(CNodeDataPtr()), !source.isNull());
}

QTEST_GUILESS_MAIN(tst_CStreamGraph)
#include "tst_CStreamGraph.moc"
