// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CSceneLoader.h"

#include "SHostService.h"
#include "ThrowingModels.h"

#include <Halvex/scene/CNodeScene.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

#include <functional>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

QString id(int number)
{
    return QStringLiteral("00000000-0000-0000-0000-%1").arg(number + 1, 12, 10, QLatin1Char('0'));
}

QJsonObject node(int number, const char* model, const char* sinkName = nullptr)
{
    QJsonObject json{{"name", model}, {"is_unique", false}};
    if (sinkName)
        json.insert("property", QJsonObject{{"sink_name", sinkName}});
    return {{"id", id(number)}, {"model", json}};
}

QJsonObject converter(const char* out, const char* in)
{
    return {{"out", QJsonObject{{"id", out}, {"name", "?"}}}, {"in", QJsonObject{{"id", in}, {"name", "?"}}}};
}

QJsonObject connection(int out, int in, const QJsonValue& converter = QJsonValue::Undefined)
{
    QJsonObject json{{"out_id", id(out)}, {"out_index", 0}, {"in_id", id(in)}, {"in_index", 0}};
    if (!converter.isUndefined())
        json.insert("converter", converter);
    return json;
}

// Camera, blur, sink "a", edges, sink "b"; each connection leads to the node of its place plus 1.
QJsonObject sound()
{
    const QJsonObject toImage = converter("Veltra Grab Result", "Host Image");
    return {
        {"nodes", QJsonArray{node(0, "Camera Source"), node(1, "Blur"), node(2, "PNG Sink", "a"), node(3, "Edges"),
                             node(4, "PNG Sink", "b")}},
        {"connections", QJsonArray{connection(0, 1, toImage), connection(1, 2), connection(1, 3), connection(3, 4)}}};
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

QJsonObject with(const char* list, int place, const QJsonValue& json)
{
    QJsonObject document = sound();
    QJsonArray array = document[QLatin1String(list)].toArray();
    if (place < array.size())
        array[place] = json;
    else
        array.append(json);
    document.insert(QLatin1String(list), array);
    return document;
}

QJsonObject with(QJsonObject json, const char* key, const QJsonValue& value)
{
    json.insert(QLatin1String(key), value);
    return json;
}

} // namespace

class tst_CSceneLoader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void soundDocument();
    void cameraOfTheDocumentIsTheLiveOne_data();
    void cameraOfTheDocumentIsTheLiveOne();
    void arrayOrderDoesNotMatter();
    void refused_data();
    void refused();
    void largeDocument();
};

void tst_CSceneLoader::soundDocument()
{
    SLiveScene live;
    QCOMPARE(live.load(sound()), QString());
    QCOMPARE(live.scene.nodes().size(), std::size_t(5));
    QCOMPARE(live.scene.connections().size(), std::size_t(4));
}

void tst_CSceneLoader::cameraOfTheDocumentIsTheLiveOne_data()
{
    QTest::addColumn<QJsonObject>("model");
    QTest::newRow("the same camera") << QJsonObject{
        {"name", "Camera Source"}, {"is_unique", true}, {"unique_name", "live"}};
    QTest::newRow("another camera") << QJsonObject{
        {"name", "Camera Source"}, {"is_unique", true}, {"unique_name", "left"}};
    QTest::newRow("any camera") << QJsonObject{{"name", "Camera Source"}, {"is_unique", false}};
}

void tst_CSceneLoader::cameraOfTheDocumentIsTheLiveOne()
{
    QFETCH(QJsonObject, model);
    SLiveScene live;
    QCOMPARE(live.load(with("nodes", 0, with(node(0, "?"), "model", model))), QString());
    QCOMPARE(live.scene.nodes().size(), std::size_t(5));
    const auto ofCamera = live.camera.nodeState().connections(ENodePortType::Out, 0);
    QCOMPARE(ofCamera.size(), std::size_t(1));
    const CNodeBase* fed = ofCamera.begin()->second->getNode(ENodePortType::In);
    QCOMPARE(fed->nodeDataModel()->name(), QStringLiteral("Blur"));
    QCOMPARE(fed->id().toString(), id(1));
}

void tst_CSceneLoader::arrayOrderDoesNotMatter()
{
    QJsonObject document = sound();
    QJsonArray nodes;
    const QJsonArray before = document["nodes"].toArray();
    for (const QJsonValue& json : before)
        nodes.prepend(json);
    document["nodes"] = nodes;
    QCOMPARE(SLiveScene().load(document), QString());
}

void tst_CSceneLoader::refused_data()
{
    QTest::addColumn<QJsonObject>("document");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const QJsonObject& document, const char* error) {
        QTest::newRow(name) << document << QString::fromLatin1(error);
    };
    row("empty", {}, "nodes: no array");
    row("nodes are no array", with(sound(), "nodes", 3), "nodes: no array");
    row("connections are no array", with(sound(), "connections", QJsonObject()), "connections: no array");
    row("connections are missing", {{"nodes", sound()["nodes"]}}, "connections: no array");
    row("no camera", with("nodes", 0, node(0, "Histogram")), "nodes: no 'Camera Source' among them");
    row("two cameras", with("nodes", 5, node(5, "Camera Source")),
        "nodes[5]: a second 'Camera Source', after nodes[0]");

    row("node is no object", with("nodes", 1, 7), "nodes[1]: no object with a model");
    row("model is no object", with("nodes", 1, QJsonObject{{"id", id(1)}, {"model", "Blur"}}),
        "nodes[1]: no object with a model");
    row("model that cannot be made", with("nodes", 3, node(3, "Scarce")),
        "nodes[3]: making 'Scarce' throws: no more of them");
    row("model that cannot be read", with("nodes", 3, node(3, "Unreadable")),
        "nodes[3]: making 'Unreadable' throws: no such setting");
    row("unregistered model", with("nodes", 3, node(3, "Sharpen")), "nodes[3]: no model 'Sharpen' is registered");
    row("model without a name", with("nodes", 3, QJsonObject{{"id", id(3)}, {"model", QJsonObject()}}),
        "nodes[3]: no model '' is registered");
    row("model with a long name over lines", with("nodes", 3, node(3, "two\nlines")),
        "nodes[3]: no model 'two?lines' is registered");
    row("unique model",
        with("nodes", 1, with(node(1, "Blur"), "model", QJsonObject{{"name", "Blur"}, {"is_unique", true}})),
        "nodes[1]: a unique 'Blur' is not made anew, and there is none to refer to");
    row("two unique cameras",
        with("nodes", 5,
             with(node(5, "Camera Source"), "model", QJsonObject{{"name", "Camera Source"}, {"is_unique", true}})),
        "nodes[5]: a second 'Camera Source', after nodes[0]");
    row("no id", with("nodes", 1, with(node(1, "Blur"), "id", "blur")), "nodes[1]: 'blur' is no id");
    row("null id", with("nodes", 1, with(node(1, "Blur"), "id", "00000000-0000-0000-0000-000000000000")),
        "nodes[1]: '00000000-0000-0000-0000-000000000000' is no id");
    row("same id twice", with("nodes", 3, node(1, "Edges")), "nodes[3]: has the id of nodes[1]");
    row("sink without a name", with("nodes", 2, node(2, "PNG Sink")), "nodes[2]: the sink's name '' makes no folder");
    row("sink above the folder", with("nodes", 2, node(2, "PNG Sink", "..")),
        "nodes[2]: the sink's name '..' makes no folder");
    row("sink elsewhere", with("nodes", 2, node(2, "PNG Sink", "/etc")),
        "nodes[2]: the sink's name '/etc' makes no folder");
    row("same sink twice", with("nodes", 4, node(4, "PNG Sink", "a")), "nodes[4]: a second sink 'a'");

    row("connection is no object", with("connections", 2, "x"), "connections[2]: no object");
    row("unknown producer", with("connections", 2, connection(9, 3)), "connections[2]: no node has its out_id");
    row("unknown consumer", with("connections", 2, connection(1, 9)), "connections[2]: no node has its in_id");
    row("half a connection", with("connections", 2, QJsonObject{{"out_id", id(1)}}),
        "connections[2]: no node has its in_id");
    row("unknown output", with("connections", 2, with(connection(1, 3), "out_index", 1)),
        "connections[2]: nodes[1] has no output port 1");
    row("negative output", with("connections", 2, with(connection(1, 3), "out_index", -1)),
        "connections[2]: nodes[1] has no output port -1");
    row("unknown input", with("connections", 2, with(connection(1, 3), "in_index", 2147483647)),
        "connections[2]: nodes[3] has no input port 2147483647");
    row("out of a sink", with("connections", 2, connection(2, 3)), "connections[2]: nodes[2] has no output port 0");
    row("into the camera", with("connections", 2, connection(1, 0)), "connections[2]: nodes[0] has no input port 0");
    row("types that differ", with("connections", 0, connection(0, 1)),
        "connections[0]: 'Veltra Grab Result' to 'Host Image' without a converter");
    row("converter of other types", with("connections", 0, connection(0, 1, converter("Host Image", "x"))),
        "connections[0]: a converter from 'Host Image' to 'x' between ports of 'Veltra Grab Result' and 'Host Image'");
    row("converter that is no object", with("connections", 0, connection(0, 1, true)),
        "connections[0]: a converter from '' to '' between ports of 'Veltra Grab Result' and 'Host Image'");
    row("unregistered converter", with("connections", 1, connection(1, 2, converter("Host Image", "Host Image"))),
        "connections[1]: no converter from 'Host Image' to 'Host Image' is registered");
    row("loop", with("connections", 4, connection(1, 1)), "connections: they lead from nodes[1] back to it");
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
    const QJsonObject toImage = converter("Veltra Grab Result", "Host Image");
    for (int i = 1; i <= blurs; ++i) {
        nodes.append(node(i, "Blur"));
        connections.append(connection(0, i, toImage));
    }
    SLiveScene live;
    QCOMPARE(live.load({{"nodes", nodes}, {"connections", connections}}), QString());
    QCOMPARE(live.scene.connections().size(), std::size_t(blurs));
}

QTEST_GUILESS_MAIN(tst_CSceneLoader)
#include "tst_CSceneLoader.moc"
