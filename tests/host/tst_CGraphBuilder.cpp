// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CGraphBuilder.h"

#include "SHostService.h"
#include "ThrowingModels.h"
#include "host/models/IFrameSink.h"
#include "host/run/CStreamGraph.h"
#include "host/run/Chain.h"
#include "host/run/Output.h"

#include <QJsonDocument>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

QString textOf(const CStreamGraph& graph)
{
    SRunReport report;
    graph.account(&report);
    return report.graph;
}

} // namespace

class tst_CGraphBuilder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyCameraGetsASceneOfItsOwn();
    void wrongChainIsNamed();
    void importThatMakesLessIsNoticed();
    void modelThatIsGoneByThenIsNoticed();
    void connectionThatIsTakenAwayIsNoticed();
    void sceneThatIsTakenAwayIsNoticed();
    void graphThatIsChangedMeanwhileIsNoticed();
    void cameraWithoutASceneIsRefused();
    void documentMakesTheSameGraph();
    void wrongDocumentIsNamed();
};

void tst_CGraphBuilder::everyCameraGetsASceneOfItsOwn()
{
    SHostService host;
    QString error;
    const QStringList cameras{"left", "right"};
    const auto graphs = CGraphBuilder(host.nodes, host.models).import(defaultChain(cameras), cameras, &error);
    QCOMPARE(error, QString());
    QCOMPARE(graphs.size(), std::size_t(2));
    QCOMPARE(host.nodes.scenes().size(), 2);
    for (int i = 0; i < 2; ++i) {
        const CStreamGraph& graph = *graphs[std::size_t(i)];
        QCOMPARE(&graph.scene(), host.nodes.scenes().at(i));
        QCOMPARE(graph.scene().nodes().size(), std::size_t(12));
        QCOMPARE(graph.scene().connections().size(), std::size_t(11));
        QVERIFY(textOf(graph).startsWith(QStringLiteral("  [0] Camera: %1\n").arg(cameras.at(i))));
        QCOMPARE(graph.sinks().size(), std::size_t(4));
        const QSignalSpy fed(sourceIn(graph.scene()), &CNodeDataModel::dataUpdated);
        QVERIFY(graph.entry().setData(CNodeDataPtr()));
        QTRY_COMPARE(fed.count(), 1);
    }
}

void tst_CGraphBuilder::wrongChainIsNamed()
{
    SHostService host;
    QString error;
    SChain chain = defaultChain({"left"});
    chain.name = QStringLiteral("a.json");
    QVERIFY(CGraphBuilder(host.nodes, host.models).import(chain, {"right"}, &error).empty());
    QCOMPARE(error, QStringLiteral("cannot load 'a.json': nothing is wired to the camera 'right'"));
    QVERIFY(host.nodes.scenes().isEmpty());
}

void tst_CGraphBuilder::importThatMakesLessIsNoticed()
{
    // What the service is given makes less than what was checked.
    SHostService host;
    QString error;
    SChain chain = defaultChain({"left"});
    chain.text = "[]";
    QVERIFY(CGraphBuilder(host.nodes, host.models).import(chain, {"left"}, &error).empty());
    QCOMPARE(error, QStringLiteral("cannot load 'default chain': not all of it came into the scene of 'left'"));
}

void tst_CGraphBuilder::modelThatIsGoneByThenIsNoticed()
{
    SHostService host;
    registerThrowingModels(*host.nodes.registry(), 1); // for the check alone
    QString error;
    SChain chain = defaultChain({"left"});
    chain.elements.append(QJsonObject{{"name", "scarce"}, {"model", QJsonObject{{"name", "Scarce"}}}});
    chain.text = QJsonDocument(chain.elements).toJson();
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("no more of them"));
    QVERIFY(CGraphBuilder(host.nodes, host.models).import(chain, {"left"}, &error).empty());
    QCOMPARE(error, QStringLiteral("cannot load 'default chain': not all of it came into the scene of 'left'"));
}

void tst_CGraphBuilder::connectionThatIsTakenAwayIsNoticed()
{
    SHostService host;
    connect(&host.nodes, &INodeService::sceneAdded, this, [](CNodeScene* scene) {
        connect(scene, &CNodeScene::connectionCreated, scene,
                [scene](CNodeConnection& connection) { scene->deleteConnection(connection); });
    });
    QString error;
    QVERIFY(CGraphBuilder(host.nodes, host.models).import(defaultChain({"left"}), {"left"}, &error).empty());
    QCOMPARE(error, QStringLiteral("cannot load 'default chain': not all of it came into the scene of 'left'"));
}

void tst_CGraphBuilder::sceneThatIsTakenAwayIsNoticed()
{
    SHostService host;
    auto* const nodes = &host.nodes;
    connect(nodes, &INodeService::sceneAdded, this, [nodes](CNodeScene* scene) {
        connect(scene, &CNodeScene::connectionCreated, scene, [nodes] {
            if (CNodeScene* active = nodes->getActiveScene())
                nodes->removeSceneOfNode(active->nodes().begin()->second.get());
        });
    });
    QString error;
    QVERIFY(CGraphBuilder(host.nodes, host.models).import(defaultChain({"left"}), {"left"}, &error).empty());
    QCOMPARE(error, QStringLiteral("cannot load 'default chain': not all of it came into the scene of 'left'"));
}

void tst_CGraphBuilder::graphThatIsChangedMeanwhileIsNoticed()
{
    SHostService host;
    connect(&host.nodes, &INodeService::sceneAdded, this, [&host] {
        if (host.nodes.scenes().size() == 2)
            host.nodes.scenes().constFirst()->clearScene();
    });
    QString error;
    const QStringList cameras{"left", "right"};
    QVERIFY(CGraphBuilder(host.nodes, host.models).import(defaultChain(cameras), cameras, &error).empty());
    QCOMPARE(error, QStringLiteral("the graph of camera 'left' was changed or removed by somebody else"));
}

void tst_CGraphBuilder::cameraWithoutASceneIsRefused()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("a.json");
    QCOMPARE(replaceFile(file, "{\"nodes\": [], \"connections\": []}"), QString());
    // What is no unique name makes no unique source.
    const QString camera = QStringLiteral("Halvex.NoUniqueName");
    const QString refusal = QStringLiteral("the service gives the camera 'Halvex.NoUniqueName' no scene");
    SHostService host;
    CGraphBuilder builder(host.nodes, host.models);
    QString error;
    QVERIFY(builder.import(defaultChain({camera}), {camera}, &error).empty());
    QCOMPARE(error, refusal);
    error.clear();
    QVERIFY(!builder.load(file, camera, &error));
    QCOMPARE(error, refusal);
}

void tst_CGraphBuilder::documentMakesTheSameGraph()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("a.json");
    SHostService host;
    CGraphBuilder builder(host.nodes, host.models);
    QString error;
    SChain chain = defaultChain({"left"});
    chain.text.replace("\"frames_per_second\": 25", "\"frames_per_second\": 12.5");
    const auto graphs = builder.import(chain, {"left"}, &error);
    QCOMPARE(error, QString());
    QCOMPARE(replaceFile(file, graphs[0]->scene().saveToMemory()), QString());

    SHostService other;
    const auto loaded = CGraphBuilder(other.nodes, other.models).load(file, "left", &error);
    QVERIFY2(loaded, qPrintable(error));
    QCOMPARE(textOf(*loaded), textOf(*graphs[0]));
    SRunReport report;
    loaded->account(&report);
    QCOMPARE(report.decouplers[0].framesPerSecond, 12.5);
    QCOMPARE(report.mismatch(), QString());
}

void tst_CGraphBuilder::wrongDocumentIsNamed()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("a.json");
    SHostService host;
    CGraphBuilder builder(host.nodes, host.models);
    QString error;
    QVERIFY(!builder.load(file, "left", &error));
    QCOMPARE(error, QStringLiteral("cannot read '%1': No such file or directory").arg(file));
    QCOMPARE(replaceFile(file, "{\"nodes\": [], \"connections\": []}"), QString());
    error.clear();
    QVERIFY(!builder.load(file, "left", &error));
    QCOMPARE(error, QStringLiteral("cannot load '%1': nodes: no 'Camera Source' among them").arg(file));
}

QTEST_GUILESS_MAIN(tst_CGraphBuilder)
#include "tst_CGraphBuilder.moc"
