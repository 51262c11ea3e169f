// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CSceneLoader.h"

#include "SHostService.h"
#include "TestJson.h"
#include "TestTable.h"
#include "ThrowingModels.h"

#include <Halvex/scene/CNodeScene.h>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

QString id(int number)
{
    return QStringLiteral("00000000-0000-0000-0000-%1").arg(number + 1, 12, 10, QLatin1Char('0'));
}

QJsonObject node(const QJsonValue& id, const QJsonValue& model)
{
    return {{"id", id}, {"model", model}};
}

QJsonObject node(int number, const char* name)
{
    return node(id(number), QJsonObject{{"name", name}, {"is_unique", false}});
}

QJsonObject sink(int number, const char* name)
{
    return node(id(number), QJsonObject{{"name", "PNG Sink"}, {"property", QJsonObject{{"sink_name", name}}}});
}

QJsonObject connection(int out, int in, int outIndex = 0, int inIndex = 0)
{
    return {{"out_id", id(out)}, {"out_index", outIndex}, {"in_id", id(in)}, {"in_index", inIndex}};
}

QJsonObject converting(QJsonObject connection, const QJsonValue& converter)
{
    connection.insert("converter", converter);
    return connection;
}

QJsonObject converting(const QJsonObject& connection, const char* out, const char* in)
{
    return converting(connection, QJsonObject{{"out", QJsonObject{{"id", out}}}, {"in", QJsonObject{{"id", in}}}});
}

QJsonObject toImage(int in)
{
    return converting(connection(0, in), "Veltra Grab Result", "Host Image");
}

// Camera, blur, sink "a", edges, sink "b".
QJsonArray soundNodes()
{
    return {node(0, "Camera Source"), node(1, "Blur"), sink(2, "a"), node(3, "Edges"), sink(4, "b")};
}

QJsonArray soundConnections()
{
    return {toImage(1), connection(1, 2), connection(1, 3), connection(3, 4)};
}

QJsonObject document(const QJsonArray& nodes = soundNodes(), const QJsonArray& connections = soundConnections())
{
    return {{"nodes", nodes}, {"connections", connections}};
}

// A scene with a camera "live" in it, as the node service makes one.
struct SLiveScene
{
    SLiveScene()
        : camera(*services.nodes.findNode(
              services.nodes.addNode(services.models.createCameraSource(QStringLiteral("live")), nullptr)))
        , scene(*services.nodes.getActiveScene())
    {
        registerThrowingModels(*services.nodes.registry(), 0);
    }

    QString load(const QJsonObject& document) { return CSceneLoader(scene, camera).load(document); }

    SHostService services;
    CNodeBase& camera;
    CNodeScene& scene;
};

} // namespace

class tst_CSceneLoader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void soundDocument();
    void cameraOfTheDocumentIsTheLiveOne();
    void arrayOrderDoesNotMatter();
    void refused_data();
    void refused();
    void largeDocument();
};

void tst_CSceneLoader::soundDocument()
{
    SLiveScene live;
    QCOMPARE(live.load(document()), QString());
    QCOMPARE(live.scene.nodes().size(), std::size_t(5));
    QCOMPARE(live.scene.connections().size(), std::size_t(4));
}

void tst_CSceneLoader::cameraOfTheDocumentIsTheLiveOne()
{
    for (const char* camera : {"'is_unique': true, 'unique_name': 'live'", "'is_unique': true, 'unique_name': 'left'",
                               "'is_unique': false"}) {
        const QJsonValue model = json(QByteArray("{'name': 'Camera Source', ") + camera + '}');
        SLiveScene live;
        QCOMPARE(live.load(document(replaced(soundNodes(), 0, node(id(0), model)))), QString());
        QCOMPARE(live.scene.nodes().size(), std::size_t(5));
        const auto ofCamera = live.camera.nodeState().connections(ENodePortType::Out, 0);
        QCOMPARE(ofCamera.size(), std::size_t(1));
        const CNodeBase* fed = ofCamera.begin()->second->getNode(ENodePortType::In);
        QCOMPARE(fed->nodeDataModel()->name(), QStringLiteral("Blur"));
        QCOMPARE(fed->id().toString(), id(1));
    }
}

void tst_CSceneLoader::arrayOrderDoesNotMatter()
{
    QJsonArray nodes;
    const QJsonArray before = soundNodes();
    for (const QJsonValue& node : before)
        nodes.prepend(node);
    QCOMPARE(SLiveScene().load(document(nodes)), QString());
}

void tst_CSceneLoader::refused_data()
{
    addColumns<QJsonObject, QString>({"document", "error"});
    // What was sound when it was checked, and cannot be made by then.
    const auto row = [](const char* name, const char* model, const char* error) {
        addRow(name, document(replaced(soundNodes(), 3, node(3, model))), error);
    };
    row("cannot be made", "Scarce", "nodes[3]: making 'Scarce' throws: no more of them");
    row("cannot be read", "Unreadable", "nodes[3]: making 'Unreadable' throws: no such setting");
    addRow("node that is not there", document(soundNodes(), replaced(soundConnections(), 2, connection(1, 9))),
           "connections[2]: the scene refuses it");
}

void tst_CSceneLoader::refused()
{
    QFETCH(QJsonObject, document);
    QFETCH(QString, error);
    QCOMPARE(SLiveScene().load(document), error);
}

void tst_CSceneLoader::largeDocument()
{
    constexpr int blurs = 20000;
    QJsonArray nodes{node(0, "Camera Source")};
    QJsonArray connections;
    for (int i = 1; i <= blurs; ++i) {
        nodes.append(node(i, "Blur"));
        connections.append(toImage(i));
    }
    SLiveScene live;
    QCOMPARE(live.load(document(nodes, connections)), QString());
    QCOMPARE(live.scene.connections().size(), std::size_t(blurs));
}

QTEST_GUILESS_MAIN(tst_CSceneLoader)
#include "tst_CSceneLoader.moc"
