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
    addRow("empty", QJsonObject(), "nodes: no array");
    addRow("nodes are no array", QJsonObject{{"nodes", 3}, {"connections", soundConnections()}}, "nodes: no array");
    addRow("connections are no array", QJsonObject{{"nodes", soundNodes()}, {"connections", QJsonObject()}},
           "connections: no array");
    addRow("connections are missing", QJsonObject{{"nodes", soundNodes()}}, "connections: no array");

    const auto nodeRow = [](const char* name, int place, const QJsonValue& node, const char* error) {
        addRow(name, document(replaced(soundNodes(), place, node)), error);
    };
    nodeRow("no camera", 0, node(0, "Histogram"), "nodes: no 'Camera Source' among them");
    nodeRow("two cameras", 5, node(5, "Camera Source"), "nodes[5]: a second 'Camera Source', after nodes[0]");
    nodeRow("node is no object", 1, 7, "nodes[1]: no object with a model");
    nodeRow("model is no object", 1, node(id(1), "Blur"), "nodes[1]: no object with a model");
    nodeRow("cannot be made", 3, node(3, "Scarce"), "nodes[3]: making 'Scarce' throws: no more of them");
    nodeRow("cannot be read", 3, node(3, "Unreadable"), "nodes[3]: making 'Unreadable' throws: no such setting");
    nodeRow("unregistered model", 3, node(3, "Sharpen"), "nodes[3]: no model 'Sharpen' is registered");
    nodeRow("model without a name", 3, node(id(3), QJsonObject()), "nodes[3]: no model '' is registered");
    nodeRow("name over lines", 3, node(3, "two\nlines"), "nodes[3]: no model 'two?lines' is registered");
    nodeRow("unique model", 1, node(id(1), json("{'name': 'Blur', 'is_unique': true}")),
            "nodes[1]: a unique 'Blur' is not made anew, and there is none to refer to");
    nodeRow("two unique cameras", 5, node(id(5), json("{'name': 'Camera Source', 'is_unique': true}")),
            "nodes[5]: a second 'Camera Source', after nodes[0]");
    nodeRow("no id", 1, node("blur", json("{'name': 'Blur'}")), "nodes[1]: 'blur' is no id");
    nodeRow("null id", 1, node(-1, "Blur"), "nodes[1]: '00000000-0000-0000-0000-000000000000' is no id");
    nodeRow("same id twice", 3, node(1, "Edges"), "nodes[3]: has the id of nodes[1]");
    nodeRow("sink without a name", 2, node(2, "PNG Sink"), "nodes[2]: the sink's name '' makes no folder");
    nodeRow("sink above the folder", 2, sink(2, ".."), "nodes[2]: the sink's name '..' makes no folder");
    nodeRow("sink elsewhere", 2, sink(2, "/etc"), "nodes[2]: the sink's name '/etc' makes no folder");
    nodeRow("same sink twice", 4, sink(4, "a"), "nodes[4]: a second sink 'a'");

    const auto row = [](const char* name, int place, const QJsonValue& connection, const char* error) {
        addRow(name, document(soundNodes(), replaced(soundConnections(), place, connection)), error);
    };
    row("connection is no object", 2, "x", "connections[2]: no object");
    row("unknown producer", 2, connection(9, 3), "connections[2]: no node has its out_id");
    row("unknown consumer", 2, connection(1, 9), "connections[2]: no node has its in_id");
    row("half a connection", 2, QJsonObject{{"out_id", id(1)}}, "connections[2]: no node has its in_id");
    row("unknown output", 2, connection(1, 3, 1), "connections[2]: nodes[1] has no output port 1");
    row("negative output", 2, connection(1, 3, -1), "connections[2]: nodes[1] has no output port -1");
    row("unknown input", 2, connection(1, 3, 0, 2147483647), "connections[2]: nodes[3] has no input port 2147483647");
    row("out of a sink", 2, connection(2, 3), "connections[2]: nodes[2] has no output port 0");
    row("into the camera", 2, connection(1, 0), "connections[2]: nodes[0] has no input port 0");
    row("types that differ", 0, connection(0, 1),
        "connections[0]: 'Veltra Grab Result' to 'Host Image' without a converter");
    row("converter of other types", 0, converting(connection(0, 1), "Host Image", "x"),
        "connections[0]: a converter from 'Host Image' to 'x' between ports of 'Veltra Grab Result' and 'Host Image'");
    row("converter is no object", 0, converting(connection(0, 1), true),
        "connections[0]: a converter from '' to '' between ports of 'Veltra Grab Result' and 'Host Image'");
    row("unregistered converter", 1, converting(connection(1, 2), "Host Image", "Host Image"),
        "connections[1]: no converter from 'Host Image' to 'Host Image' is registered");
    row("loop", 4, connection(1, 1), "connections: they lead from nodes[1] back to it");
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
