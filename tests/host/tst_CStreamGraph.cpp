// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CStreamGraph.h"

#include "host/models/CGrabResultData.h"
#include "host/models/CPngSinkModel.h"
#include "host/models/HostModels.h"
#include "host/run/Output.h"
#include "models/CNodeDataFlowProxy.h"
#include "models/CNodeDecouplerDataModelBase.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

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

class tst_CStreamGraph : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void registeredModels();
    void demoGraph();
    void everyFrameIsAccountedFor();
    void accountOfWhatIsNotDrained();
    void drainTimeKnowsTheRate_data();
    void drainTimeKnowsTheRate();
    void documentMakesTheSameGraph();
    void refusedDocumentIsNamed();
};

void tst_CStreamGraph::registeredModels()
{
    CNodeDataModelRegistry registry;
    registerHostModels(registry);
    const std::set<QString> categories{"Filters", "Sinks", "Sources", "Tools"};
    QCOMPARE(registry.categories(), categories);
    const std::unordered_map<QString, QString> models{
        {"Blur", "Filters"},          {"Edges", "Filters"},  {"Histogram", "Filters"}, {"Threshold", "Filters"},
        {"Camera Source", "Sources"}, {"PNG Sink", "Sinks"}, {"DecouplerVGR", "Tools"}};
    QCOMPARE(registry.registeredModelsCategoryAssociation(), models);
    for (const auto& model : models)
        QCOMPARE(registry.create(model.first)->name(), model.first);
    const NodeDataConverter toImage = registry.getTypeConverter({"Veltra Grab Result", ""}, {"Host Image", ""});
    QVERIFY(toImage);
    QVERIFY(!toImage({}));
    QVERIFY(!toImage(QSharedPointer<CGrabResultData>::create()));
}

void tst_CStreamGraph::demoGraph()
{
    const auto graph = CStreamGraph::demo();
    QStringList names;
    for (const CPngSinkModel* sink : graph->sinks())
        names << sink->sinkName();
    QCOMPARE(names, QStringList({"frames", "histogram", "threshold", "edges"}));
    QCOMPARE(graph->scene().nodes().size(), std::size_t(10));
    QCOMPARE(graph->scene().connections().size(), std::size_t(9));
    QVERIFY(graph->isDrained());
    const SRunReport report = account(*graph, 0);
    QCOMPARE(report.mismatch(), QString());
    QCOMPARE(report.decouplers.size(), std::size_t(1));
    QCOMPARE(report.decouplers[0].name, QStringLiteral("[1] Decoupler for VGR"));
    QCOMPARE(report.decouplers[0].framesPerSecond, 25.0);
}

void tst_CStreamGraph::everyFrameIsAccountedFor()
{
    const auto graph = CStreamGraph::demo();
    QSignalSpy cameThrough(graph.get(), &CStreamGraph::cameThrough);
    for (int i = 0; i < 5; ++i)
        graph->entry()->setData(frame());
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
    const auto graph = CStreamGraph::demo();
    setRate(*graph, 0.001);
    graph->entry()->setData(frame());
    QVERIFY(!graph->isDrained());
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
    const auto graph = CStreamGraph::demo();
    setRate(*graph, rate);
    QCOMPARE(qint64(graph->drainTime().count()), time);
}

void tst_CStreamGraph::documentMakesTheSameGraph()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("a.json");
    const auto graph = CStreamGraph::demo();
    setRate(*graph, 12.5);
    QCOMPARE(replaceFile(file, graph->scene().saveToMemory()), QString());
    QString error;
    const auto loaded = CStreamGraph::load(file, &error);
    QVERIFY2(loaded, qPrintable(error));
    QCOMPARE(account(*loaded, 0).graph, account(*graph, 0).graph);
    QCOMPARE(account(*loaded, 0).decouplers[0].framesPerSecond, 12.5);

    for (int i = 0; i < 3; ++i)
        loaded->entry()->setData(frame());
    QTRY_VERIFY(loaded->isDrained());
    QCOMPARE(account(*loaded, 3).mismatch(), QString());
    QCOMPARE(loaded->sinks()[0]->delivered(), quint64(3));
}

void tst_CStreamGraph::refusedDocumentIsNamed()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("a.json");
    QString error;
    QVERIFY(!CStreamGraph::load(file, &error));
    QCOMPARE(error, QStringLiteral("cannot read '%1': No such file or directory").arg(file));
    QCOMPARE(replaceFile(file, "{\"nodes\": [], \"connections\": []}"), QString());
    error.clear();
    QVERIFY(!CStreamGraph::load(file, &error));
    QCOMPARE(error, QStringLiteral("cannot load '%1': nodes: no 'Camera Source' among them").arg(file));
}

QTEST_GUILESS_MAIN(tst_CStreamGraph)
#include "tst_CStreamGraph.moc"
