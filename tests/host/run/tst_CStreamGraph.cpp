// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CStreamGraph.h"

#include "CBlockedFile.h"
#include "SHostService.h"
#include "TestFrame.h"
#include "TestTable.h"
#include "host/models/CBlurModel.h"
#include "host/run/CGraphBuilder.h"
#include "host/run/Chain.h"
#include "host/run/RunSettings.h"
#include "host/sinks/IFrameSink.h"

#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <algorithm>
#include <functional>
#include <limits>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

// The default chain's graph for a camera "left", and the services that it lives in.
struct SDemo
{
    SRunReport account(quint64 frames) const
    {
        SRunReport report;
        report.frames.complete = frames;
        graph->account(&report);
        return report;
    }

    QString error;
    SHostService host;
    std::unique_ptr<CStreamGraph> graph =
        std::move(CGraphBuilder(host.nodes, host.models).import(defaultChain({"left"}), {"left"}, &error).at(0));
};

} // namespace

using Change = std::function<void(CNodeScene&)>;
Q_DECLARE_METATYPE(Change)

class tst_CStreamGraph : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void demoGraph();
    void everyFrameIsAccountedFor();
    void accountOfWhatIsNotDrained();
    void filesAreWrittenWhenItIsDrained();
    void patienceKnowsTheRate();
    void settings();
    void settingThatChangesTheGraph();
    void changeIsTold_data();
    void changeIsTold();
};

void tst_CStreamGraph::demoGraph()
{
    const SDemo demo;
    QStringList names;
    for (const IFrameSink* sink : demo.graph->sinks())
        names << sink->sinkName();
    QCOMPARE(names, QStringList({"frames", "histogram", "threshold", "edges"}));
    QVERIFY(demo.graph->isDrained());
    const SRunReport report = demo.account(0);
    QCOMPARE(report.graph, QStringLiteral(R"(  [0] Camera: left
        VGR -> [1] Decoupler for VGR
        VGR -> [2] To image
  [1] Decoupler for VGR
        VGR -> [4] To image
  [2] To image
        IMG -> [3] PNG files: frames
  [3] PNG files: frames
  [4] To image
        IMG -> [5] Blur
        IMG -> [6] Histogram
  [5] Blur
        IMG -> [8] Threshold
  [6] Histogram
        IMG -> [7] PNG files: histogram
  [7] PNG files: histogram
  [8] Threshold
        IMG -> [9] Edges
        IMG -> [10] PNG files: threshold
  [9] Edges
        IMG -> [11] PNG files: edges
  [10] PNG files: threshold
  [11] PNG files: edges
)"));
    QCOMPARE(report.mismatch(), QString());
    QCOMPARE(report.decouplers.size(), std::size_t(1));
    QCOMPARE(report.decouplers[0].name, QStringLiteral("[1] Decoupler for VGR"));
    QCOMPARE(report.decouplers[0].framesPerSecond, 25.0);
    QCOMPARE(report.decouplers[0].mostPerSecond.value_or(0.0), 25.0);
    QStringList filters;
    for (const SWorkerReport& worker : report.workers)
        filters << worker.name;
    QCOMPARE(filters, QStringList({"[5] Blur", "[6] Histogram", "[8] Threshold", "[9] Edges"}));
}

void tst_CStreamGraph::everyFrameIsAccountedFor()
{
    const SDemo demo;
    demo.graph->startCounting();
    QSignalSpy cameThrough(demo.graph.get(), &CStreamGraph::cameThrough);
    for (int i = 0; i < 5; ++i)
        demo.graph->entry().setData(frameData());
    QCoreApplication::sendPostedEvents();
    // The recording has them all, before anything of the preview is out.
    QCOMPARE(demo.graph->sinks()[0]->delivered(), quint64(5));
    QCOMPARE(cameThrough.count(), 0);
    QVERIFY(!demo.graph->isDrained());
    QTRY_VERIFY(demo.graph->isDrained());

    const SRunReport report = demo.account(5);
    QCOMPARE(report.mismatch(), QString());
    const SDecouplerStatistics& counts = report.decouplers[0].counts;
    QCOMPARE(counts.received, quint64(5));
    QVERIFY(counts.emitted >= 1);
    QVERIFY(quint64(cameThrough.count()) > counts.emitted); // the filters tell as well
    for (const SWorkerReport& worker : report.workers)
        QCOMPARE(worker.counts.emitted, counts.emitted);
    QCOMPARE(report.sinks[0].expected, quint64(5));
    for (std::size_t i = 1; i < 4; ++i) {
        QCOMPARE(report.sinks[i].expected, counts.emitted);
        QCOMPARE(report.sinks[i].delivered, counts.emitted);
    }
    // A frame that never came is missed.
    QCOMPARE(
        demo.account(6).mismatch(),
        QStringLiteral("the connection from '[0] Camera: left' to '[1] Decoupler for VGR' carried 5 frames, not 6"));
}

void tst_CStreamGraph::accountOfWhatIsNotDrained()
{
    const SDemo demo;
    demo.graph->startCounting();
    setDecouplerRate(demo.graph->scene(), 0.001);
    demo.graph->entry().setData(frameData());
    QTRY_VERIFY(!demo.graph->isDrained());
    const SRunReport report = demo.account(1);
    QCOMPARE(report.decouplers[0].counts.pending, quint64(1));
    QCOMPARE(report.mismatch(),
             QStringLiteral("the decoupler '[1] Decoupler for VGR' let its last frame not through in time"));
}

void tst_CStreamGraph::filesAreWrittenWhenItIsDrained()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("frame-000000.png");
    CBlockedFile blocked(file);
    const SDemo demo;
    IFrameSink* const sink = demo.graph->sinks()[0];
    sink->setOutput(folder.path(), 1);
    demo.graph->startCounting();
    demo.graph->entry().setData(frameData());
    QTRY_COMPARE(sink->writing().pending, quint64(1));
    const std::vector<IFrameSink*>& sinks = demo.graph->sinks();
    const auto hasItsFrame = [](const IFrameSink* each) { return each->delivered() == 1; };
    QTRY_VERIFY(std::all_of(sinks.begin(), sinks.end(), hasItsFrame));
    QVERIFY(!demo.graph->isDrained());
    const quint64 doneBefore = demo.graph->workDone();
    QCOMPARE(demo.account(1).nodes[3].pending.value_or(0), quint64(1));
    QCOMPARE(demo.account(1).mismatch(), QStringLiteral("the sink 'frames' did not write its last 1 file in time"));

    QSignalSpy cameThrough(demo.graph.get(), &CStreamGraph::cameThrough);
    blocked.release();
    QTRY_COMPARE(cameThrough.count(), 1);
    QVERIFY(demo.graph->isDrained());
    QCOMPARE(demo.graph->workDone(), doneBefore + 1);
    const SRunReport report = demo.account(1);
    QCOMPARE(report.mismatch(), QString());
    QCOMPARE(report.sinks[0].files, std::vector<QString>{file});
    QCOMPARE(report.nodes[3].dropped.value_or(1), quint64(0));
    QVERIFY(report.nodes[3].computing);
}

void tst_CStreamGraph::patienceKnowsTheRate()
{
    const SDemo demo;
    const auto milliseconds = [&demo](double rate) {
        setDecouplerRate(demo.graph->scene(), rate);
        return qint64(demo.graph->patience().count());
    };
    QCOMPARE(milliseconds(25.0), qint64(10080));
    QCOMPARE(milliseconds(0.1), qint64(30000));
    // What is no rate leaves the timer as it was.
    QCOMPARE(milliseconds(0.0), qint64(30000));
    QCOMPARE(milliseconds(-1.0), qint64(30000));
    QCOMPARE(milliseconds(std::numeric_limits<double>::quiet_NaN()), qint64(30000));
    // The longest interval that a timer has.
    QCOMPARE(milliseconds(1e-300), 10000 + 2 * qint64(std::numeric_limits<int>::max()));
}

void tst_CStreamGraph::settings()
{
    const SDemo demo;
    const auto value = [&demo](const char* caption, const char* key) {
        for (const auto& node : demo.graph->scene().nodes()) {
            if (node.second->nodeDataModel()->caption() == QLatin1String(caption))
                return node.second->nodeDataModel()->property(key).toInt();
        }
        return -1;
    };
    // By the element's name, the number and the caption.
    QCOMPARE(demo.graph->set({"preview", "frames_per_second", "10"}), QString());
    QCOMPARE(value("Decoupler for VGR", "framesPerSecond"), 10);
    QCOMPARE(demo.graph->set({"5", "size", "9"}), QString());
    QCOMPARE(value("Blur", "size"), 9);
    QCOMPARE(demo.graph->set({"Edges", "level", "40"}), QString());
    QCOMPARE(value("Edges", "level"), 40);
    QCOMPARE(demo.graph->set({"treshold", "level", "40"}),
             QStringLiteral("no node is called 'treshold'; did you mean 'threshold'?"));
    QCOMPARE(demo.graph->set({"12", "level", "40"}), QStringLiteral("no node is called '12'"));
    QCOMPARE(demo.graph->set({"image", "level", "40"}), QStringLiteral("it has no settings"));
}

void tst_CStreamGraph::settingThatChangesTheGraph()
{
    const QByteArray chain = R"([
        {"name": "one", "model": {"name": "Blur"}, "connection": []},
        {"name": "other", "model": {"name": "Blur"}, "connection": []},
        {"name": "image", "model": {"name": "To Image"}, "unique_sources": [["left"]],
         "connection": [["one", "other"]]}])";
    SHostService host;
    QString error;
    const auto graphs = CGraphBuilder(host.nodes, host.models).import(chainOf("chain", chain), {"left"}, &error);
    QCOMPARE(error, QString());
    CStreamGraph& graph = *graphs.at(0);
    CNodeScene& scene = *host.nodes.getActiveScene();
    std::vector<CBlurModel*> blurs;
    for (const auto& node : scene.nodes()) {
        if (auto* const blur = qobject_cast<CBlurModel*>(node.second->nodeDataModel()))
            blurs.push_back(blur);
    }
    QCOMPARE(blurs.size(), std::size_t(2));
    // The first that is set removes the other one.
    for (const CBlurModel* const blur : blurs)
        connect(blur, &CBlurModel::settingChanged, &scene, [&scene, blur] {
            for (const auto& node : scene.nodes()) {
                const auto* const other = qobject_cast<CBlurModel*>(node.second->nodeDataModel());
                if (other && other != blur)
                    return scene.removeNode(*node.second);
            }
        });
    // Nor is the setting behind it applied.
    QCOMPARE(applySettings(graph, {{"Blur", "size", "9"}, {"Blur", "size", "11"}}),
             QStringLiteral("--set Blur.size=9: the graph was changed meanwhile"));
    QVERIFY(!graph.isIntact());
    QCOMPARE(scene.nodes().size(), std::size_t(3));
}

void tst_CStreamGraph::changeIsTold_data()
{
    addColumns<Change>({"change"});
    const auto row = [](const char* name, const Change& change) { addRow(name, change); };
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
    QFETCH(Change, change);
    SDemo demo;
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
