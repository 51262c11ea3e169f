// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CGraphBuilder.h"

#include "SHostService.h"
#include "TestFile.h"
#include "ThrowingModels.h"
#include "host/run/CStreamGraph.h"
#include "host/run/Chain.h"
#include "host/sinks/IFrameSink.h"

#include <QJsonDocument>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

SRunReport report(const CStreamGraph& graph)
{
    SRunReport report;
    graph.account(&report);
    return report;
}

// The builder, what it builds in and what it says.
struct SBuilder
{
    std::vector<std::unique_ptr<CStreamGraph>> import(const QStringList& cameras)
    {
        return import(defaultChain(cameras), cameras);
    }

    std::vector<std::unique_ptr<CStreamGraph>> import(const SChain& chain, const QStringList& cameras)
    {
        error.clear();
        return CGraphBuilder(host.nodes, host.models).import(chain, cameras, &error);
    }

    // What is wrong with the import of \a chain for the camera "left".
    QString errorOf(const SChain& chain = defaultChain({"left"}))
    {
        return import(chain, {"left"}).empty() ? error : QStringLiteral("none");
    }

    std::unique_ptr<CStreamGraph> load(const QString& file, const QString& camera = QStringLiteral("left"))
    {
        error.clear();
        return CGraphBuilder(host.nodes, host.models).load(file, camera, &error);
    }

    SHostService host;
    QString error;
};

const QString notAll = QStringLiteral("cannot load 'default chain': not all of it came into the scene of 'left'");

} // namespace

class tst_CGraphBuilder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyCameraGetsASceneOfItsOwn();
    void anyCameraBesideAnother();
    void wrongChainIsNamed();
    void importThatMakesLessIsNoticed();
    void modelThatIsGoneByThenIsNoticed();
    void connectionThatIsTakenAwayIsNoticed();
    void sceneThatIsTakenAwayIsNoticed();
    void graphThatIsChangedMeanwhileIsNoticed();
    void cameraWithoutASceneIsRefused();
    void documentMakesTheSameGraph();
    void wrongDocumentIsNamed();

private:
    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath("a.json");
};

void tst_CGraphBuilder::everyCameraGetsASceneOfItsOwn()
{
    SBuilder builder;
    const QStringList cameras{"left", "right"};
    const auto graphs = builder.import(cameras);
    QCOMPARE(builder.error, QString());
    QCOMPARE(graphs.size(), std::size_t(2));
    QCOMPARE(builder.host.nodes.scenes().size(), 2);
    for (int i = 0; i < 2; ++i) {
        const CStreamGraph& graph = *graphs[std::size_t(i)];
        QCOMPARE(&graph.scene(), builder.host.nodes.scenes().at(i));
        QVERIFY(report(graph).graph.startsWith(QStringLiteral("  [0] Camera: %1\n").arg(cameras.at(i))));
        const QSignalSpy fed(sourceIn(graph.scene()), &CNodeDataModel::dataUpdated);
        QVERIFY(graph.entry().setData(CNodeDataPtr()));
        QTRY_COMPARE(fed.count(), 1);
    }
}

void tst_CGraphBuilder::anyCameraBesideAnother()
{
    QVERIFY(write(m_file, R"([{"name": "a", "model": {"name": "To Image"}, "unique_sources": [["left", "*"]]}])"));
    SBuilder builder;
    const QStringList cameras{"left", "right"};
    const auto graphs = builder.import(withCameras(readChain(m_file, &builder.error), cameras), cameras);
    QCOMPARE(builder.error, QString());
    for (const auto& graph : graphs)
        QCOMPARE(graph->scene().connections().size(), std::size_t(1));
}

void tst_CGraphBuilder::wrongChainIsNamed()
{
    SBuilder builder;
    SChain chain = defaultChain({"left"});
    chain.name = QStringLiteral("a.json");
    chain.source.replace("\"*\"", "\"right\"").replace("\"Blur\"", "\"Blr\"");
    QCOMPARE(
        builder.errorOf(chain),
        QStringLiteral(
            "cannot load 'a.json': it has 3 errors:\n"
            "a.json:5:29: error: $[0].unique_sources[0][0]: no camera of the run and no element is named 'right'\n"
            "a.json:13:29: error: $[2].unique_sources[0][0]: no camera of the run and no element is named 'right'\n"
            "a.json:19:28: error: $[4].model.name: no model 'Blr' is registered; did you mean 'Blur'?"));
    QVERIFY(builder.host.nodes.scenes().isEmpty());
}

void tst_CGraphBuilder::importThatMakesLessIsNoticed()
{
    // What the service is given makes less than what was checked.
    SChain chain = defaultChain({"left"});
    chain.text = "[]";
    QCOMPARE(SBuilder().errorOf(chain), notAll);
}

void tst_CGraphBuilder::modelThatIsGoneByThenIsNoticed()
{
    SBuilder builder;
    registerThrowingModels(*builder.host.nodes.registry(), 1); // for the check alone
    SChain chain = defaultChain({"left"});
    chain.elements.append(QJsonObject{{"name", "scarce"},
                                      {"model", QJsonObject{{"name", "Scarce"}}},
                                      {"unique_sources", QJsonArray{QJsonValue(QJsonArray{"image"})}}});
    chain.source = chain.text = QJsonDocument(chain.elements).toJson();
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("no more of them"));
    QCOMPARE(builder.errorOf(chain), notAll);
}

void tst_CGraphBuilder::connectionThatIsTakenAwayIsNoticed()
{
    SBuilder builder;
    connect(&builder.host.nodes, &INodeService::sceneAdded, this, [](CNodeScene* scene) {
        connect(scene, &CNodeScene::connectionCreated, scene,
                [scene](CNodeConnection& connection) { scene->deleteConnection(connection); });
    });
    QCOMPARE(builder.errorOf(), notAll);
}

void tst_CGraphBuilder::sceneThatIsTakenAwayIsNoticed()
{
    SBuilder builder;
    auto* const nodes = &builder.host.nodes;
    connect(nodes, &INodeService::sceneAdded, this, [nodes](CNodeScene* scene) {
        connect(scene, &CNodeScene::connectionCreated, scene, [nodes] {
            if (CNodeScene* active = nodes->getActiveScene())
                nodes->removeSceneOfNode(active->nodes().begin()->second.get());
        });
    });
    QCOMPARE(builder.errorOf(), notAll);
}

void tst_CGraphBuilder::graphThatIsChangedMeanwhileIsNoticed()
{
    SBuilder builder;
    auto* const nodes = &builder.host.nodes;
    connect(nodes, &INodeService::sceneAdded, this, [nodes] {
        if (nodes->scenes().size() == 2)
            nodes->scenes().constFirst()->clearScene();
    });
    QVERIFY(builder.import({"left", "right"}).empty());
    QCOMPARE(builder.error, QStringLiteral("the graph of camera 'left' was changed or removed by somebody else"));
}

void tst_CGraphBuilder::cameraWithoutASceneIsRefused()
{
    SBuilder other;
    QVERIFY(write(m_file, other.import({"left"}).front()->scene().saveToMemory()));
    // What is no unique name makes no unique source.
    const QString camera = QStringLiteral("Halvex.NoUniqueName");
    const QString refusal = QStringLiteral("the service gives the camera 'Halvex.NoUniqueName' no scene");
    SBuilder builder;
    QVERIFY(builder.import({camera}).empty());
    QCOMPARE(builder.error, refusal);
    QVERIFY(!builder.load(m_file, camera));
    QCOMPARE(builder.error, refusal);
}

void tst_CGraphBuilder::documentMakesTheSameGraph()
{
    SBuilder builder;
    SChain chain = defaultChain({"left"});
    chain.text.replace("\"frames_per_second\": 25", "\"frames_per_second\": 12.5");
    const auto graphs = builder.import(chain, {"left"});
    QCOMPARE(builder.error, QString());
    QVERIFY(write(m_file, graphs[0]->scene().saveToMemory()));

    SBuilder other;
    const auto loaded = other.load(m_file);
    QVERIFY2(loaded, qPrintable(other.error));
    QCOMPARE(report(*loaded).graph, report(*graphs[0]).graph);
    QCOMPARE(report(*loaded).decouplers[0].framesPerSecond, 12.5);
    QCOMPARE(report(*loaded).mismatch(), QString());
}

void tst_CGraphBuilder::wrongDocumentIsNamed()
{
    SBuilder builder;
    const QString missing = m_folder.filePath("missing.json");
    QVERIFY(!builder.load(missing));
    QCOMPARE(builder.error, QStringLiteral("cannot read '%1': No such file or directory").arg(missing));
    QVERIFY(write(m_file, "{\"nodes\": [], \"connections\": []}"));
    QVERIFY(!builder.load(m_file));
    QCOMPARE(builder.error,
             QStringLiteral("cannot load '%1': it has 1 error:\n"
                            "%1:1:11: error: $.nodes: none of the nodes is a 'Camera Source', the camera of the run")
                 .arg(m_file));
    QVERIFY(builder.host.nodes.scenes().isEmpty());
}

QTEST_GUILESS_MAIN(tst_CGraphBuilder)
#include "tst_CGraphBuilder.moc"
