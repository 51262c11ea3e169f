// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Scenes as documents: what is written, what is read back, and what becomes of documents that are wrong.

#include <Halvex/scene/CNodeScene.h>

#include "support/CMessageCatcher.h"
#include "support/CTestData.h"
#include "support/CTestModel.h"
#include "support/CTestScene.h"
#include "support/SceneConsistency.h"

#include <Halvex/models/CGenericNodeDecouplerDataModel.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>
#include <QTextCodec>

#include <algorithm>
#include <limits>
#include <stdexcept>

using namespace Plugin::Halvex;

namespace {

using CDecouplerModel = CGenericNodeDecouplerDataModel<CTestData>;

const QString idA = QStringLiteral("00000000-0000-0000-0000-00000000000a");
const QString idB = QStringLiteral("00000000-0000-0000-0000-00000000000b");
const QString idC = QStringLiteral("00000000-0000-0000-0000-00000000000c");
const QString noId = QStringLiteral("00000000-0000-0000-0000-000000000000");

Core::CId toId(const QString& text)
{
    return Core::CId(text.toLatin1().constData());
}

/// A model with an identity.
class CNamedModel : public ANodeDataModel
{
public:
    using ANodeDataModel::ANodeDataModel;
    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("Named"); }
    unsigned int nPorts(ENodePortType portType) const override { return portType == ENodePortType::None ? 0 : 1; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CTestData::defaultType(); }
    void setInData(CNodeDataPtr, NodePortIndex) override {}
    CNodeDataPtr outData(NodePortIndex) override { return {}; }
    bool isUnique() override { return unique; }

    bool unique = false;
};

QJsonObject nodeJson(const QString& id, const QString& name = QStringLiteral("Test"), bool unique = false)
{
    QJsonObject model{{"name", name}};
    if (unique)
        model.insert("is_unique", true);
    return {{"id", id}, {"model", model}};
}

QJsonObject connectionJson(const QString& outId, const QString& inId, const QJsonValue& inIndex = 0)
{
    return {{"in_id", inId}, {"in_index", inIndex}, {"out_id", outId}, {"out_index", 0}};
}

QJsonObject typeJson(const SNodeDataType& type)
{
    return {{"id", type.id}, {"name", type.name}};
}

QByteArray documentOf(const QJsonArray& nodes, const QJsonArray& connections = {})
{
    return QJsonDocument(QJsonObject{{"nodes", nodes}, {"connections", connections}}).toJson();
}

QJsonObject rootOf(const QByteArray& document)
{
    return QJsonDocument::fromJson(document).object();
}

QJsonObject modelJsonOf(const CNodeScene& scene)
{
    return rootOf(scene.saveToMemory()).value("nodes")[0]["model"].toObject();
}

/// A document's contents without the order, which the tables do not keep.
QStringList contentsOf(const QByteArray& document)
{
    const QJsonObject root = rootOf(document);
    QStringList contents;
    for (const char* key : {"nodes", "connections"}) {
        const QJsonArray elements = root[QLatin1String(key)].toArray();
        for (const QJsonValue& json : elements)
            contents << key + QString::fromUtf8(QJsonDocument(json.toObject()).toJson(QJsonDocument::Compact));
    }
    contents.sort();
    return contents;
}

/// \a json with the value at \a path replaced; an undefined one takes an object's key away.
QJsonValue replaced(const QJsonValue& json, QStringList path, const QJsonValue& value)
{
    if (path.isEmpty())
        return value;
    const QString step = path.takeFirst();
    if (json.isArray()) {
        QJsonArray array = json.toArray();
        array[step.toInt()] = replaced(array[step.toInt()], path, value);
        return array;
    }
    QJsonObject object = json.toObject();
    object.insert(step, replaced(object.value(step), path, value));
    return object;
}

CTestModel& modelOf(const CNodeScene& scene, const QString& id)
{
    return *static_cast<CTestModel*>(scene.nodes().at(toId(id))->nodeDataModel());
}

/// Proves a scene sound, and that data gets along each of its connections between test models. Returns what is wrong.
QString faultOf(const CNodeScene& scene)
{
    for (const auto& entry : scene.connections()) {
        const CNodeConnection& connection = *entry.second;
        auto* const from = dynamic_cast<CTestModel*>(connection.getNode(ENodePortType::Out)->nodeDataModel());
        auto* const to = dynamic_cast<CTestModel*>(connection.getNode(ENodePortType::In)->nodeDataModel());
        if (!from)
            continue;
        if (to)
            to->received.clear();
        from->offer(CTestData::make(1), connection.getPortIndex(ENodePortType::Out));
        const int index = connection.getPortIndex(ENodePortType::In);
        const auto hasArrived = [index](const CTestModel::SReceived& received) { return received.index == index; };
        if (to && std::none_of(to->received.begin(), to->received.end(), hasArrived))
            return QStringLiteral("data does not get along a connection");
    }
    return inconsistencyOf(scene);
}

/// A scene whose registry knows "Test" (two ports per side), "Named", and the decoupler of test data.
class CWorld
{
public:
    CWorld()
    {
        registry->registerModel<CTestModel>(
            [this] {
                auto model = std::make_unique<CTestModel>(2, 2);
                if (onCreate)
                    onCreate(*model);
                return model;
            },
            QStringLiteral("Tests"));
        registry->registerModel<CNamedModel>(QStringLiteral("Tests"));
        registry->registerModel<CDecouplerModel>(QStringLiteral("Tests"));

        connect(&CNodeScene::nodeCreated, "nodeCreated");
        connect(&CNodeScene::nodeDeleted, "nodeDeleted");
        connect(&CNodeScene::connectionCreated, "connectionCreated");
        connect(&CNodeScene::connectionDeleted, "connectionDeleted");
    }

    void load(const QJsonArray& nodes, const QJsonArray& connections = {}) const
    {
        scene->loadFromMemory(documentOf(nodes, connections));
    }
    bool has(const QString& id) const { return scene->nodes().count(toId(id)) == 1; }
    CNodeBase& node(const QString& id) const { return *scene->nodes().at(toId(id)); }
    CNodeConnection& onlyConnection() const { return *scene->connections().begin()->second; }

    QStringList said; // before the scene, whose destructor still speaks
    std::function<void(CTestModel&)> onCreate;
    std::shared_ptr<CNodeDataModelRegistry> registry = std::make_shared<CNodeDataModelRegistry>();
    std::unique_ptr<CTestScene> scene = std::make_unique<CTestScene>(registry, nullptr, nullptr);

private:
    template <typename Object>
    void connect(void (CNodeScene::*signal)(Object&), const char* name)
    {
        QObject::connect(scene.get(), signal, scene.get(),
                         [this, name](Object&) { said << QString::fromLatin1(name); });
    }
};

QJsonArray chainNodes()
{
    return {nodeJson(idA), nodeJson(idB), nodeJson(idC)};
}

QJsonArray chainConnections()
{
    return {connectionJson(idA, idB), connectionJson(idB, idC)};
}

} // namespace

class tst_SceneDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void emptySceneHasEmptyArrays();
    void documentIsIndentedUtf8();
    void documentNamesItsParts();
    void plainModelSavesOnlyItsName();
    void uniqueNameIsSavedWhenThereIsOne();
    void connectionNamesItsConverterByTypes();
    void halfConnectionsAreLeftOut();
    void orderIsThatOfTheTables();

    void whatWasSavedIsRestored();
    void savingAfterLoadingGivesTheSameDocument();
    void converterIsFoundByIdsAlone();
    void converterIsLookedUpFromOutToIn();
    void restoredConnectionCarriesThePresentOutput();
    void nodesComeBeforeConnections();
    void restoreNodeReturnsTheNode();
    void restoreConnectionReturnsTheConnection();
    void infoComesBeforeTheSettings();

    void unknownModelThrows_data();
    void unknownModelThrows();
    void unknownModelEndsTheLoad();
    void emptyNameIsANameLikeAnyOther();
    void sceneWithoutRegistryKnowsNoModel();

    void uniqueModelIsNeverCreated();
    void uniqueModelIsMatchedByName();
    void connectionsDoNotReachTheSavedIdOfAUniqueModel();

    void textThatIsNoSceneLoadsNothing_data();
    void textThatIsNoSceneLoadsNothing();
    void wrongTypes_data();
    void wrongTypes();
    void portIndices_data();
    void portIndices();
    void ids_data();
    void ids();
    void duplicateIdsLeaveTheLast();
    void connectionToNothingIsRejected_data();
    void connectionToNothingIsRejected();
    void deepDocuments_data();
    void deepDocuments();
    void tenMegabytes();

    void presentNodeIsReplaced();
    void replacedNodeIsNotVisited();
    void loadingTwice();

    void handlerOfNodeCreated_data();
    void handlerOfNodeCreated();
    void handlerOfConnectionCreated_data();
    void handlerOfConnectionCreated();
    void restoreThatThrows();
    void restoreThatChangesTheScene_data();
    void restoreThatChangesTheScene();
    void saveThatRemovesNodes();
    void saveThatChangesConnections();
    void typeAskedForDeletesConnections();
    void typeAskedForDestroysTheScene();
    void handlersThatThrow_data();
    void handlersThatThrow();
    void saveThatDestroysTheScene();
    void creatorDestroysTheScene();
    void creatorReplacesTheRegistry();
    void infoHandlerDestroysTheScene();
    void replacedModelDestroysTheScene();
    void replacedModelClearsTheScene();
    void nameOfAModelRemovesNodes_data();
    void nameOfAModelRemovesNodes() const;
};

void tst_SceneDocument::cleanup()
{
    QCOMPARE(CTestModel::alive(), 0);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_SceneDocument::emptySceneHasEmptyArrays()
{
    CWorld world;
    const QByteArray document = world.scene->saveToMemory();
    QCOMPARE(rootOf(document), QJsonObject({{"nodes", QJsonArray()}, {"connections", QJsonArray()}}));

    world.load(chainNodes(), chainConnections());
    const QStringList before = contentsOf(world.scene->saveToMemory());
    world.scene->loadFromMemory(document);
    QCOMPARE(contentsOf(world.scene->saveToMemory()), before);
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::documentIsIndentedUtf8()
{
    CTestScene scene(nullptr, nullptr);
    CNodeBase& node = scene.createNode(std::make_unique<CTestModel>(1, 1, QStringLiteral("Prüfung")));
    const QString expected = QStringLiteral("{\n"
                                            "    \"connections\": [\n"
                                            "    ],\n"
                                            "    \"nodes\": [\n"
                                            "        {\n"
                                            "            \"id\": \"%1\",\n"
                                            "            \"model\": {\n"
                                            "                \"name\": \"Prüfung\"\n"
                                            "            }\n"
                                            "        }\n"
                                            "    ]\n"
                                            "}\n")
                                 .arg(node.id().toString());
    QCOMPARE(QString::fromUtf8(scene.saveToMemory()), expected);
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_SceneDocument::documentNamesItsParts()
{
    CWorld world;
    world.load({nodeJson(idA), nodeJson(idB, "DecouplerT")}, {connectionJson(idA, idB)});
    const QJsonObject root = rootOf(world.scene->saveToMemory());

    QCOMPARE(root.keys(), QStringList({"connections", "nodes"}));
    const QJsonArray nodes = root["nodes"].toArray();
    for (const QJsonValue& json : nodes) {
        const QJsonObject node = json.toObject();
        const QJsonObject model = node["model"].toObject();
        QCOMPARE(node.keys(), QStringList({"id", "model"}));
        if (node["id"] == idB) {
            QCOMPARE(model, QJsonObject({{"name", "DecouplerT"},
                                         {"is_unique", false},
                                         {"property", QJsonObject{{"frames_per_second", 25.0}}}}));
        } else {
            QCOMPARE(model, QJsonObject({{"name", "Test"}}));
        }
    }
    QCOMPARE(root["connections"].toArray(), QJsonArray({connectionJson(idA, idB)}));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::plainModelSavesOnlyItsName()
{
    CWorld world;
    world.load({nodeJson(idA)});
    QCOMPARE(modelJsonOf(*world.scene), QJsonObject({{"name", "Test"}}));
}

void tst_SceneDocument::uniqueNameIsSavedWhenThereIsOne()
{
    CWorld world;
    world.load({nodeJson(idA, "Named")});
    QCOMPARE(modelJsonOf(*world.scene), QJsonObject({{"name", "Named"}, {"is_unique", false}}));

    CTestScene scene(nullptr, nullptr);
    auto model = std::make_unique<CNamedModel>(QStringLiteral("left eye"));
    model->unique = true;
    scene.createNode(std::move(model));
    QCOMPARE(modelJsonOf(scene), QJsonObject({{"name", "Named"}, {"is_unique", true}, {"unique_name", "left eye"}}));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_SceneDocument::connectionNamesItsConverterByTypes()
{
    CTestScene scene(nullptr, nullptr);
    auto outModel = std::make_unique<CTestModel>();
    outModel->onDataType = [](ENodePortType, NodePortIndex) { return SNodeDataType{"grey", "Grey"}; };
    auto inModel = std::make_unique<CTestModel>();
    inModel->onDataType = [](ENodePortType, NodePortIndex) { return SNodeDataType{"colour", "Colour"}; };
    CNodeBase& out = scene.createNode(std::move(outModel));
    CNodeBase& in = scene.createNode(std::move(inModel));
    scene.createConnection(in, 0, out, 0, [](const CNodeDataPtr& data) { return data; });

    QJsonObject expected = connectionJson(out.id().toString(), in.id().toString());
    expected.insert("converter",
                    QJsonObject{{"in", typeJson({"colour", "Colour"})}, {"out", typeJson({"grey", "Grey"})}});
    QCOMPARE(rootOf(scene.saveToMemory())["connections"].toArray(), QJsonArray({expected}));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_SceneDocument::halfConnectionsAreLeftOut()
{
    CWorld world;
    world.load(chainNodes(), chainConnections());
    world.scene->createConnection(ENodePortType::In, world.node(idA), 0);
    world.scene->createConnection(ENodePortType::Out, world.node(idA), 1);
    QCOMPARE(world.scene->connections().size(), std::size_t(4));
    QCOMPARE(contentsOf(world.scene->saveToMemory()), contentsOf(documentOf(chainNodes(), chainConnections())));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::orderIsThatOfTheTables()
{
    CTestScene scene(nullptr, nullptr);
    CNodeBase& hub = scene.createNode(std::make_unique<CTestModel>(20, 1));
    for (int i = 0; i < 20; ++i) {
        scene.createNode(std::make_unique<CTestModel>());
        scene.createConnection(hub, i, hub, 0, NodeDataConverter());
    }
    QStringList nodes;
    for (const auto& entry : scene.nodes())
        nodes << entry.first.toString();
    QList<int> connections;
    for (const auto& entry : scene.connections())
        connections << entry.second->getPortIndex(ENodePortType::In);

    const QJsonObject root = rootOf(scene.saveToMemory());
    QStringList savedNodes;
    const QJsonArray nodeObjects = root["nodes"].toArray();
    for (const QJsonValue& json : nodeObjects)
        savedNodes << json["id"].toString();
    QList<int> savedConnections;
    const QJsonArray connectionObjects = root["connections"].toArray();
    for (const QJsonValue& json : connectionObjects)
        savedConnections << json["in_index"].toInt();
    QCOMPARE(savedNodes, nodes);
    QCOMPARE(savedConnections, connections);
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_SceneDocument::whatWasSavedIsRestored()
{
    CWorld world;
    QJsonObject connection = connectionJson(idA, idB, 1);
    connection.insert("out_index", 1);
    world.load({nodeJson(idA), nodeJson(idB)}, {connection});

    QCOMPARE(world.scene->nodes().size(), std::size_t(2));
    QCOMPARE(world.node(idA).id().toString(), idA);
    QCOMPARE(world.node(idB).nodeDataModel()->name(), QStringLiteral("Test"));
    QCOMPARE(modelOf(*world.scene, idB).restored, std::vector<QJsonObject>({QJsonObject{{"name", "Test"}}}));
    const CNodeConnection& restored = world.onlyConnection();
    QCOMPARE(restored.getNode(ENodePortType::Out), &world.node(idA));
    QCOMPARE(restored.getPortIndex(ENodePortType::Out), 1);
    QCOMPARE(restored.getNode(ENodePortType::In), &world.node(idB));
    QCOMPARE(restored.getPortIndex(ENodePortType::In), 1);
    QCOMPARE(world.said, QStringList({"nodeCreated", "nodeCreated", "connectionCreated"}));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::savingAfterLoadingGivesTheSameDocument()
{
    CWorld world;
    const SNodeDataType type = CTestData::defaultType();
    world.registry->registerTypeConverter({type, type}, [](const CNodeDataPtr& data) { return data; });
    CNodeBase& source = world.scene->createNode(world.registry->create("Test"));
    CNodeBase& named = world.scene->createNode(std::make_unique<CNamedModel>());
    auto model = std::make_unique<CDecouplerModel>();
    model->setFramesPerSecond(1.0 / 3);
    CNodeBase& decoupler = world.scene->createNode(std::move(model));
    CNodeBase& sink = world.scene->createNode(world.registry->create("Test"));
    world.scene->createConnection(decoupler, 0, source, 1, NodeDataConverter());
    world.scene->createConnection(sink, 1, decoupler, 0, world.registry->getTypeConverter(type, type));
    world.scene->createConnection(sink, 1, named, 0, NodeDataConverter());
    world.scene->createConnection(sink, 1, named, 0, NodeDataConverter()); // a second one between the same ports
    world.scene->createConnection(source, 0, source, 0, NodeDataConverter());
    const QByteArray first = world.scene->saveToMemory();

    CTestScene second(world.registry, nullptr, nullptr);
    second.loadFromMemory(first);
    QCOMPARE(contentsOf(second.saveToMemory()), contentsOf(first));
    QCOMPARE(contentsOf(first).size(), 9);
    QCOMPARE(inconsistencyOf(second), QString());
}

void tst_SceneDocument::converterIsFoundByIdsAlone()
{
    CWorld world;
    world.registry->registerTypeConverter({{"grey", "Old name"}, {"colour", "Old name"}},
                                          [](const CNodeDataPtr&) { return CTestData::make(42); });
    QJsonObject connection = connectionJson(idA, idB);
    connection.insert("converter",
                      QJsonObject{{"in", typeJson({"colour", "Colour"})}, {"out", typeJson({"grey", "Grey"})}});
    world.load(chainNodes(), {connection});

    modelOf(*world.scene, idA).offer(CTestData::make(1));
    QCOMPARE(modelOf(*world.scene, idB).values(), std::vector<int>({42}));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::converterIsLookedUpFromOutToIn()
{
    CWorld world;
    world.registry->registerTypeConverter({{"colour", ""}, {"grey", ""}},
                                          [](const CNodeDataPtr&) { return CTestData::make(42); });
    QJsonObject connection = connectionJson(idA, idB);
    connection.insert("converter", QJsonObject{{"in", typeJson({"colour", ""})}, {"out", typeJson({"grey", ""})}});
    world.load(chainNodes(), {connection});

    modelOf(*world.scene, idA).offer(CTestData::make(1));
    QCOMPARE(modelOf(*world.scene, idB).values(), std::vector<int>({1})); // only the other direction is registered
    QVERIFY(!world.onlyConnection().save().contains("converter"));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::restoredConnectionCarriesThePresentOutput()
{
    CWorld world;
    world.load(chainNodes());
    modelOf(*world.scene, idA).out = CTestData::make(5);
    world.load({}, {connectionJson(idA, idB)});
    QCOMPARE(modelOf(*world.scene, idB).values(), std::vector<int>({5}));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::nodesComeBeforeConnections()
{
    CWorld world;
    world.scene->loadFromMemory(documentOf({nodeJson(idC), nodeJson(idA), nodeJson(idB)}, chainConnections()));
    QCOMPARE(world.said,
             QStringList({"nodeCreated", "nodeCreated", "nodeCreated", "connectionCreated", "connectionCreated"}));
    QCOMPARE(contentsOf(world.scene->saveToMemory()), contentsOf(documentOf(chainNodes(), chainConnections())));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::restoreNodeReturnsTheNode()
{
    CWorld world;
    CNodeBase& node = world.scene->restoreNode(nodeJson(idA));
    QCOMPARE(&node, &world.node(idA));
    QCOMPARE(world.said, QStringList({"nodeCreated"}));

    QObject::connect(world.scene.get(), &CNodeScene::nodeCreated, world.scene.get(),
                     [&world](CNodeBase& created) { world.scene->removeNode(created); });
    QCOMPARE(&world.scene->restoreNode(nodeJson(idB)), &CNodeScene::noNode());
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::restoreConnectionReturnsTheConnection()
{
    CWorld world;
    world.load(chainNodes());
    const auto connection = world.scene->restoreConnection(connectionJson(idA, idB));
    QCOMPARE(connection.get(), &world.onlyConnection());
    QVERIFY(!world.scene->restoreConnection(connectionJson(idA, noId)));
    QVERIFY(!world.scene->restoreConnection(QJsonObject()));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::infoComesBeforeTheSettings()
{
    class CInfo : public Core::AppCoreComponents::IBaseInfo
    {
    };
    CWorld world;
    const auto info = QSharedPointer<CInfo>::create();
    CTestScene scene(world.registry, info, nullptr);
    Core::AppCoreComponents::BaseInfoPtr atRestore;
    world.onCreate = [&atRestore](CTestModel& model) {
        model.onRestore = [&atRestore, &model] { atRestore = model.getInfo(); };
    };
    scene.loadFromMemory(documentOf({nodeJson(idA)}));
    QCOMPARE(atRestore, Core::AppCoreComponents::BaseInfoPtr(info));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_SceneDocument::unknownModelThrows_data()
{
    QTest::addColumn<QJsonObject>("node");
    QTest::addColumn<QByteArray>("what");
    const QByteArray words("No registered model with name ");
    QTest::newRow("plain") << nodeJson(idA, "Unheard of") << words + "Unheard of";
    // In the local encoding, which is neither UTF-8 nor ASCII here.
    QTest::newRow("non-ASCII") << nodeJson(idA, QStringLiteral("Prüfung"))
                               << words + "Pr\xFC"
                                          "fung";
    QTest::newRow("other case") << nodeJson(idA, "test") << words + "test";
    QTest::newRow("empty") << nodeJson(idA, QString()) << words;
    QTest::newRow("no name") << QJsonObject{{"id", idA}, {"model", QJsonObject()}} << words;
    QTest::newRow("no model") << QJsonObject{{"id", idA}} << words;
    QTest::newRow("nothing") << QJsonObject() << words;
}

void tst_SceneDocument::unknownModelThrows()
{
    QFETCH(QJsonObject, node);
    QFETCH(QByteArray, what);
    CWorld world;
    QTextCodec* const codec = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    QList<QByteArray> caught;
    for (const bool whole : {false, true}) {
        try {
            whole ? world.load({node}) : void(world.scene->restoreNode(node));
        } catch (const std::logic_error& error) {
            caught << error.what();
        }
    }
    QTextCodec::setCodecForLocale(codec);

    QCOMPARE(caught, QList<QByteArray>({what, what}));
    QCOMPARE(world.said, QStringList());
    QVERIFY(world.scene->nodes().empty());
}

void tst_SceneDocument::unknownModelEndsTheLoad()
{
    CWorld world;
    QVERIFY_EXCEPTION_THROWN(
        world.load({nodeJson(idA), nodeJson(idB), nodeJson(noId, "?"), nodeJson(idC)}, {connectionJson(idA, idB)}),
        std::logic_error);
    QVERIFY(world.has(idA));
    QVERIFY(world.has(idB));
    QCOMPARE(world.scene->nodes().size(), std::size_t(2));
    QVERIFY(world.scene->connections().empty());

    world.load({nodeJson(idC)}, chainConnections());
    QCOMPARE(contentsOf(world.scene->saveToMemory()), contentsOf(documentOf(chainNodes(), chainConnections())));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::emptyNameIsANameLikeAnyOther()
{
    CWorld world;
    world.registry->registerModel([] { return std::make_unique<CTestModel>(1, 1, QString()); }, "Tests");
    world.load({QJsonObject{{"id", idA}}});
    QVERIFY(world.has(idA));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::sceneWithoutRegistryKnowsNoModel()
{
    CTestScene scene(nullptr, nullptr);
    QVERIFY_EXCEPTION_THROWN(scene.loadFromMemory(documentOf({nodeJson(idA)})), std::logic_error);
    scene.loadFromMemory(documentOf({nodeJson(idA, "Test", true)}, {connectionJson(idA, idB)}));

    // Connections need none; they come without a converter.
    CNodeBase& node = scene.createNode(std::make_unique<CTestModel>());
    QJsonObject connection = connectionJson(node.id().toString(), node.id().toString());
    connection.insert("converter", QJsonObject());
    const auto restored = scene.restoreConnection(connection);
    QVERIFY(restored);
    QVERIFY(!restored->save().contains("converter"));
    QCOMPARE(inconsistencyOf(scene), QString());
}

void tst_SceneDocument::uniqueModelIsNeverCreated()
{
    CWorld world;
    world.load({nodeJson(idA, "Test", true), nodeJson(idB, "Unheard of", true), nodeJson(idC)});
    QVERIFY(world.has(idC));
    QCOMPARE(world.scene->nodes().size(), std::size_t(1));

    QCOMPARE(&world.scene->restoreNode(nodeJson(idA, "Named", true)), &CNodeScene::noNode());
    QVERIFY(CNodeScene::noNode().id() == Core::CId());
    QCOMPARE(world.said, QStringList({"nodeCreated"}));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::uniqueModelIsMatchedByName()
{
    CWorld world;
    world.load({nodeJson(idA), nodeJson(idB), nodeJson(noId, "Named")});
    world.said.clear();
    const CNodeBase& found = world.scene->restoreNode(nodeJson(idC, "Test", true));

    QVERIFY(&found == &world.node(idA) || &found == &world.node(idB));
    const CNodeBase* first = nullptr;
    for (const auto& entry : world.scene->nodes()) {
        if (!first && entry.second->nodeDataModel()->name() == "Test")
            first = entry.second.get();
    }
    QCOMPARE(&found, first);
    QVERIFY(!world.has(idC));
    QCOMPARE(modelOf(*world.scene, found.id().toString()).restored.size(), std::size_t(1)); // the settings stay
    QCOMPARE(world.said, QStringList());
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::connectionsDoNotReachTheSavedIdOfAUniqueModel()
{
    CWorld world;
    world.load({nodeJson(idA)});
    world.load({nodeJson(idB, "Test", true), nodeJson(idC)}, chainConnections());
    QCOMPARE(world.scene->nodes().size(), std::size_t(2));
    QVERIFY(world.scene->connections().empty());
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::textThatIsNoSceneLoadsNothing_data()
{
    QTest::addColumn<QByteArray>("text");
    const QByteArray valid = documentOf(chainNodes(), chainConnections());
    QTest::newRow("null") << QByteArray();
    QTest::newRow("blank") << QByteArray(" \n");
    QTest::newRow("words") << QByteArray("no scene");
    QTest::newRow("zeros") << QByteArray(1000, '\0');
    QTest::newRow("10 MB") << QByteArray(10 << 20, 'x');
    QTest::newRow("array") << QByteArray("[") + valid + "]";
    QTest::newRow("number") << QByteArray("17");
    QTest::newRow("empty object") << QByteArray("{}");
    QTest::newRow("other keys") << QByteArray(R"({"Nodes": [{}], "connection": [{}]})");
    QTest::newRow("cut off") << valid.left(valid.size() - 3);
    QTest::newRow("two documents") << valid + valid;
    QTest::newRow("comment") << "// scene\n" + valid;
    QTest::newRow("not UTF-8") << QByteArray(valid).replace("Test", "\xFF\xFE");
    QTest::newRow("UTF-16") << QByteArray::fromRawData("{\0}\0", 4);
}

void tst_SceneDocument::textThatIsNoSceneLoadsNothing()
{
    QFETCH(QByteArray, text);
    CWorld world;
    world.load({nodeJson(idA)});
    world.said.clear();
    const CMessageCatcher messages;
    world.scene->loadFromMemory(text);

    QCOMPARE(messages.texts(), QStringList());
    QCOMPARE(world.said, QStringList());
    QCOMPARE(contentsOf(world.scene->saveToMemory()), contentsOf(documentOf({nodeJson(idA)})));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::wrongTypes_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<bool>("throws");
    QTest::addColumn<int>("nodes");
    QTest::addColumn<int>("connections");
    QTest::addColumn<bool>("converter");
    QTest::addColumn<double>("rate");

    struct SPlace
    {
        const char* path;
        QJsonValue::Type type;
        bool throws;
        int nodes;
        int connections;
        bool converter;
        double rate;
    };
    const auto object = QJsonValue::Object;
    const auto array = QJsonValue::Array;
    const auto string = QJsonValue::String;
    const auto number = QJsonValue::Double;
    const std::vector<SPlace> places{
        {"nodes", array, false, 0, 0, false, 0},
        {"nodes/0", object, true, 0, 0, false, 0},
        {"nodes/1", object, true, 1, 0, false, 0},
        {"nodes/0/id", string, false, 2, 0, false, 30},
        {"nodes/0/model", object, true, 0, 0, false, 0},
        {"nodes/0/model/name", string, true, 0, 0, false, 0},
        {"nodes/0/model/is_unique", QJsonValue::Bool, false, 2, 1, true, 30},
        {"nodes/1/model/property", object, false, 2, 1, true, 25},
        {"nodes/1/model/property/frames_per_second", number, false, 2, 1, true, 0},
        {"connections", array, false, 2, 0, false, 30},
        {"connections/0", object, false, 2, 0, false, 30},
        {"connections/0/in_id", string, false, 2, 0, false, 30},
        {"connections/0/in_index", number, false, 2, 1, true, 30},
        {"connections/0/out_id", string, false, 2, 0, false, 30},
        {"connections/0/out_index", number, false, 2, 1, true, 30},
        {"connections/0/converter", object, false, 2, 1, false, 30},
        {"connections/0/converter/in", object, false, 2, 1, false, 30},
        {"connections/0/converter/out", object, false, 2, 1, false, 30},
        {"connections/0/converter/in/id", string, false, 2, 1, false, 30},
        {"connections/0/converter/in/name", string, false, 2, 1, true, 30},
        {"connections/0/converter/out/id", string, false, 2, 1, false, 30},
        {"connections/0/converter/out/name", string, false, 2, 1, true, 30},
    };
    const std::vector<std::pair<const char*, QJsonValue>> values{
        {"missing", QJsonValue(QJsonValue::Undefined)},
        {"null", QJsonValue()},
        {"true", true},
        {"number", 1.5},
        {"string", "text"},
        {"array", QJsonArray{QJsonValue(QJsonArray())}},
        {"object", QJsonObject{{"a", 1}}},
    };
    for (const SPlace& place : places) {
        for (const auto& value : values) {
            if (value.second.type() == place.type)
                continue;
            const bool keepsRate = value.second.isUndefined() && QByteArray(place.path).endsWith("second");
            QTest::addRow("%s %s", place.path, value.first)
                << QString(place.path) << value.second << place.throws << place.nodes << place.connections
                << place.converter << (keepsRate ? 25.0 : place.rate);
        }
    }
}

void tst_SceneDocument::wrongTypes()
{
    QFETCH(QString, path);
    QFETCH(QJsonValue, value);
    const QJsonObject type = typeJson(CTestData::defaultType());
    QJsonObject decoupler = nodeJson(idB, "DecouplerT");
    decoupler.insert("model",
                     QJsonObject{{"name", "DecouplerT"}, {"property", QJsonObject{{"frames_per_second", 30}}}});
    QJsonObject connection = connectionJson(idA, idB);
    connection.insert("converter", QJsonObject{{"in", type}, {"out", type}});
    const QByteArray valid = documentOf({nodeJson(idA), decoupler}, {connection});
    const QByteArray document = QJsonDocument(replaced(rootOf(valid), path.split('/'), value).toObject()).toJson();

    CWorld world;
    world.registry->registerTypeConverter({CTestData::defaultType(), CTestData::defaultType()},
                                          [](const CNodeDataPtr& data) { return data; });
    bool hasThrown = false;
    try {
        world.scene->loadFromMemory(document);
    } catch (const std::logic_error&) {
        hasThrown = true;
    }

    QTEST(hasThrown, "throws");
    QTEST(int(world.scene->nodes().size()), "nodes");
    QTEST(int(world.scene->connections().size()), "connections");
    const QByteArray saved = world.scene->saveToMemory();
    QTEST(rootOf(saved).value("connections")[0].toObject().contains("converter"), "converter");
    if (world.has(idB))
        QTEST(static_cast<CDecouplerModel*>(world.node(idB).nodeDataModel())->framesPerSecond(), "rate");
    QCOMPARE(faultOf(*world.scene), QString());

    CTestScene again(world.registry, nullptr, nullptr);
    again.loadFromMemory(saved);
    QCOMPARE(contentsOf(again.saveToMemory()), contentsOf(saved));
}

void tst_SceneDocument::portIndices_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("index"); // -1: rejected
    QTest::newRow("last") << QByteArray("1") << 1;
    QTest::newRow("whole as decimal") << QByteArray("1.0") << 1;
    QTest::newRow("beyond") << QByteArray("2") << -1;
    QTest::newRow("negative") << QByteArray("-1") << -1;
    QTest::newRow("negative zero") << QByteArray("-0") << 0;
    QTest::newRow("largest") << QByteArray("2147483647") << -1;
    QTest::newRow("smallest") << QByteArray("-2147483648") << -1;
    QTest::newRow("fraction") << QByteArray("1.5") << 0;
    QTest::newRow("beyond int") << QByteArray("4294967297") << 0;
    QTest::newRow("beyond 64 bits") << QByteArray("18446744073709551617") << 0;
    QTest::newRow("huge") << QByteArray("1e300") << 0;
    QTest::newRow("tiny") << QByteArray("1e-300") << 0;
    QTest::newRow("text") << QByteArray("\"1\"") << 0;
}

void tst_SceneDocument::portIndices()
{
    QFETCH(QByteArray, text);
    QFETCH(int, index);
    for (const char* key : {"in_index", "out_index"}) {
        CWorld world;
        QJsonObject connection = connectionJson(idA, idB);
        connection.insert(QLatin1String(key), "index");
        QByteArray document = documentOf(chainNodes(), {connection});
        world.scene->loadFromMemory(document.replace("\"index\"", text));

        QCOMPARE(world.scene->nodes().size(), std::size_t(3));
        QCOMPARE(world.scene->connections().size(), std::size_t(index < 0 ? 0 : 1));
        if (index >= 0)
            QCOMPARE(world.onlyConnection().save()[QLatin1String(key)].toInt(-1), index);
        QCOMPARE(faultOf(*world.scene), QString());
    }
}

void tst_SceneDocument::ids_data()
{
    QTest::addColumn<QJsonValue>("saved");
    QTest::addColumn<QString>("id");
    QTest::newRow("plain") << QJsonValue(idA) << idA;
    QTest::newRow("in braces") << QJsonValue('{' + idA + '}') << idA;
    QTest::newRow("upper case") << QJsonValue(idA.toUpper()) << idA;
    QTest::newRow("null id") << QJsonValue(noId) << noId;
    QTest::newRow("empty") << QJsonValue(QString()) << noId;
    QTest::newRow("missing") << QJsonValue(QJsonValue::Undefined) << noId;
    QTest::newRow("too long") << QJsonValue(idA + 'f') << noId;
    QTest::newRow("words") << QJsonValue(QStringLiteral("kein Schlüssel")) << noId;
    QTest::newRow("zero byte") << QJsonValue(idA + QChar(0) + 'f') << idA;
}

void tst_SceneDocument::ids()
{
    QFETCH(QJsonValue, saved);
    QFETCH(QString, id);
    CWorld world;
    QJsonObject node = nodeJson(idA);
    node.insert("id", saved);
    QJsonObject connection = connectionJson(idA, idB);
    connection.insert("out_id", saved);
    world.load({node, nodeJson(idB)}, {connection});

    QVERIFY(world.has(id));
    QCOMPARE(contentsOf(world.scene->saveToMemory()),
             contentsOf(documentOf({nodeJson(id), nodeJson(idB)}, {connectionJson(id, idB)})));
    QCOMPARE(faultOf(*world.scene), QString());
}

void tst_SceneDocument::duplicateIdsLeaveTheLast()
{
    for (const QString& id : {idA, noId}) {
        CWorld world;
        world.load({nodeJson(id), nodeJson(id, "Named"), nodeJson(id, "DecouplerT"), nodeJson(id, "Named")},
                   {connectionJson(id, id), connectionJson(id, id)});
        QCOMPARE(world.scene->nodes().size(), std::size_t(1));
        QCOMPARE(world.node(id).nodeDataModel()->name(), QStringLiteral("Named"));
        QCOMPARE(world.scene->connections().size(), std::size_t(2));
        QCOMPARE(world.said.count("nodeCreated"), 4);
        QCOMPARE(world.said.count("nodeDeleted"), 0);
        QCOMPARE(faultOf(*world.scene), QString());
    }
}

void tst_SceneDocument::connectionToNothingIsRejected_data()
{
    QTest::addColumn<QJsonObject>("connection");
    QTest::newRow("consumer") << connectionJson(idA, idC);
    QTest::newRow("producer") << connectionJson(idC, idA);
    QTest::newRow("both") << connectionJson(idC, idC);
    QTest::newRow("null ids") << connectionJson(noId, noId);
    QTest::newRow("input port") << connectionJson(idA, idB, 2);
    QTest::newRow("empty") << QJsonObject();
    QJsonObject outPort = connectionJson(idA, idB);
    outPort.insert("out_index", -1);
    QTest::newRow("output port") << outPort;
}

void tst_SceneDocument::connectionToNothingIsRejected()
{
    QFETCH(QJsonObject, connection);
    CWorld world;
    world.load({nodeJson(idA), nodeJson(idB)});
    world.said.clear();
    QVERIFY(!world.scene->restoreConnection(connection));
    QCOMPARE(world.said, QStringList());
    QCOMPARE(world.scene->nodes().size(), std::size_t(2));
    QVERIFY(world.scene->connections().empty());

    world.load({}, {connection, connectionJson(idA, idB)});
    QCOMPARE(world.said, QStringList({"connectionCreated"}));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::deepDocuments_data()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<int>("nodes");
    QTest::newRow("deep") << 1000 << 1;
    QTest::newRow("too deep") << 2000 << 0;
    QTest::newRow("far too deep") << 1000000 << 0;
}

void tst_SceneDocument::deepDocuments()
{
    QFETCH(int, depth);
    QFETCH(int, nodes);
    CWorld world;
    QJsonObject node = nodeJson(idA);
    node.insert("more", "depth");
    QByteArray document = documentOf({node});
    world.scene->loadFromMemory(document.replace("\"depth\"", QByteArray(depth, '[') + QByteArray(depth, ']')));
    QCOMPARE(int(world.scene->nodes().size()), nodes);
    QCOMPARE(faultOf(*world.scene), QString());
}

void tst_SceneDocument::tenMegabytes()
{
    // Were any step to search the whole scene for each object, this would not end within the test's time.
    CWorld world;
    const int count = 40000;
    const auto idOf = [](int number) {
        return QStringLiteral("%1-0000-0000-0000-000000000000").arg(number, 8, 16, QChar('0'));
    };
    QJsonArray nodes;
    QJsonArray connections;
    for (int i = 1; i <= count; ++i) {
        nodes.append(nodeJson(idOf(i)));
        connections.append(connectionJson(idOf(i), idOf(i % count + 1)));
    }
    const QByteArray document = documentOf(nodes, connections);
    QVERIFY(document.size() > 10 << 20);
    world.scene->loadFromMemory(document);

    QCOMPARE(world.scene->connections().size(), std::size_t(count));
    QCOMPARE(contentsOf(world.scene->saveToMemory()), contentsOf(document));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::replacedNodeIsNotVisited()
{
    CWorld world;
    world.load(chainNodes(), {});
    int visits = 0;
    world.scene->iterateOverNodes([&](CNodeBase* visited) {
        ++visits;
        for (const QString& id : {idA, idB, idC}) {
            const Core::CId key(qPrintable(id));
            // Sooner or later one comes to lie where the first one lay.
            for (int i = 0; i < 10 && visited->id() != key; ++i)
                world.scene->restoreNode(nodeJson(id));
        }
    });
    QCOMPARE(visits, 1);
    QCOMPARE(world.scene->nodes().size(), std::size_t(3));
}

void tst_SceneDocument::presentNodeIsReplaced()
{
    CWorld world;
    world.load(chainNodes(), chainConnections());
    world.said.clear();
    bool isDestroyed = false;
    modelOf(*world.scene, idB).onDestroyed = [&isDestroyed] { isDestroyed = true; };
    world.load({nodeJson(idB, "Named")});

    QVERIFY(isDestroyed);
    QCOMPARE(world.said, QStringList({"nodeCreated"}));
    QCOMPARE(world.node(idB).nodeDataModel()->name(), QStringLiteral("Named"));
    QCOMPARE(rootOf(world.scene->saveToMemory())["connections"].toArray(), QJsonArray());
    modelOf(*world.scene, idA).offer(CTestData::make(1)); // along what is left of the old connection
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::loadingTwice()
{
    CWorld world;
    world.load(chainNodes(), chainConnections());
    world.load(chainNodes(), chainConnections());
    QCOMPARE(world.scene->nodes().size(), std::size_t(3));
    QCOMPARE(world.scene->connections().size(), std::size_t(4));
    QCOMPARE(world.said.count("nodeDeleted"), 0);
    QCOMPARE(world.said.count("connectionDeleted"), 0);
    QCOMPARE(contentsOf(world.scene->saveToMemory()), contentsOf(documentOf(chainNodes(), chainConnections())));

    modelOf(*world.scene, idA).offer(CTestData::make(1));
    QCOMPARE(modelOf(*world.scene, idC).values(), std::vector<int>({1}));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::handlerOfNodeCreated_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<int>("nodes");
    QTest::addColumn<int>("connections");
    QTest::newRow("removes the node") << "remove" << 0 << 0;
    QTest::newRow("removes the others") << "remove others" << 1 << 0;
    QTest::newRow("clears") << "clear" << 0 << 0;
    QTest::newRow("saves") << "save" << 3 << 2;
    QTest::newRow("destroys") << "destroy" << 0 << 0;
}

void tst_SceneDocument::handlerOfNodeCreated()
{
    QFETCH(QString, action);
    CWorld world;
    QObject::connect(world.scene.get(), &CNodeScene::nodeCreated, world.scene.get(), [&](CNodeBase& node) {
        if (action == "remove")
            world.scene->removeNode(node);
        else if (action == "remove others")
            world.scene->iterateOverNodes([&](CNodeBase* other) {
                if (other != &node)
                    world.scene->removeNode(*other);
            });
        else if (action == "clear")
            world.scene->clearScene();
        else if (action == "save")
            world.scene->saveToMemory();
        else
            CTestScene::endInside(world.scene);
    });
    world.load(chainNodes(), chainConnections());

    QCOMPARE(!world.scene, action == "destroy");
    QCOMPARE(world.said.count("nodeCreated"), world.scene ? 3 : 1);
    if (world.scene) {
        QTEST(int(world.scene->nodes().size()), "nodes");
        QTEST(int(world.scene->connections().size()), "connections");
        QCOMPARE(inconsistencyOf(*world.scene), QString());
    }
}

void tst_SceneDocument::handlerOfConnectionCreated_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<int>("nodes");
    QTest::addColumn<int>("connections");
    QTest::newRow("deletes the connection") << "delete" << 3 << 0;
    QTest::newRow("removes a node") << "remove" << 2 << 0;
    QTest::newRow("clears") << "clear" << 0 << 0;
    QTest::newRow("destroys") << "destroy" << 0 << 0;
}

void tst_SceneDocument::handlerOfConnectionCreated()
{
    QFETCH(QString, action);
    CWorld world;
    QObject::connect(world.scene.get(), &CNodeScene::connectionCreated, world.scene.get(), [&](CNodeConnection& made) {
        if (action == "delete")
            world.scene->deleteConnection(made);
        else if (action == "remove")
            world.scene->removeNode(world.node(idB));
        else if (action == "clear")
            world.scene->clearScene();
        else
            CTestScene::endInside(world.scene);
    });
    world.load(chainNodes(), chainConnections());

    QCOMPARE(!world.scene, action == "destroy");
    if (world.scene) {
        QTEST(int(world.scene->nodes().size()), "nodes");
        QTEST(int(world.scene->connections().size()), "connections");
        QCOMPARE(inconsistencyOf(*world.scene), QString());
    }
}

void tst_SceneDocument::restoreThatThrows()
{
    CWorld world;
    world.load({nodeJson(idA), nodeJson(idB)});
    world.onCreate = [](CTestModel& model) { model.onRestore = [] { throw std::runtime_error("settings"); }; };
    QVERIFY_EXCEPTION_THROWN(world.load({nodeJson(idC, "Named"), nodeJson(idB), nodeJson(noId, "Named")}),
                             std::runtime_error);
    QVERIFY(world.has(idC));
    QCOMPARE(world.scene->nodes().size(), std::size_t(3)); // the old one of the same id among them

    world.onCreate = nullptr;
    world.load({}, chainConnections());
    QCOMPARE(world.scene->connections().size(), std::size_t(2));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::restoreThatChangesTheScene_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<int>("nodes");
    QTest::addColumn<int>("connections");
    QTest::newRow("removes a node") << "remove" << 2 << 0;
    QTest::newRow("clears") << "clear" << 1 << 0;
    QTest::newRow("loads") << "load" << 4 << 2;
    QTest::newRow("destroys") << "destroy" << 0 << 0;
}

void tst_SceneDocument::restoreThatChangesTheScene()
{
    QFETCH(QString, action);
    CWorld world;
    world.onCreate = [&](CTestModel& model) {
        model.onRestore = [&] {
            if (!world.has(idB) || world.has(idC) || world.has(noId))
                return;
            if (action == "remove")
                world.scene->removeNode(world.node(idB));
            else if (action == "clear")
                world.scene->clearScene();
            else if (action == "load")
                world.load({nodeJson(noId, "Named")});
            else
                world.scene.reset();
        };
    };
    world.load(chainNodes(), chainConnections());

    QCOMPARE(!world.scene, action == "destroy");
    if (world.scene) {
        QVERIFY(world.has(idC));
        QTEST(int(world.scene->nodes().size()), "nodes");
        QTEST(int(world.scene->connections().size()), "connections");
        QCOMPARE(inconsistencyOf(*world.scene), QString());
    }
}

void tst_SceneDocument::saveThatRemovesNodes()
{
    CWorld world;
    world.load(chainNodes(), chainConnections());
    // Whichever is asked first removes the two others and then itself.
    for (const QString& id : {idA, idB, idC})
        modelOf(*world.scene, id).onSave = [&world] { world.scene->clearScene(); };
    const QJsonObject root = rootOf(world.scene->saveToMemory());

    QCOMPARE(root["nodes"].toArray().size(), 1);
    QCOMPARE(root["nodes"][0]["model"]["name"].toString(), QStringLiteral("Test"));
    QCOMPARE(root["connections"].toArray(), QJsonArray());
    QVERIFY(world.scene->nodes().empty());
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::saveThatChangesConnections()
{
    CWorld world;
    world.load(chainNodes(), chainConnections());
    // Whichever is asked first: what it deletes is not saved, what it makes is.
    auto isFirst = std::make_shared<bool>(true);
    for (const QString& id : {idA, idB, idC}) {
        modelOf(*world.scene, id).onSave = [&world, isFirst] {
            if (!std::exchange(*isFirst, false))
                return;
            while (!world.scene->connections().empty())
                world.scene->deleteConnectionNow(*world.scene->connections().begin()->second);
            const auto& nodes = world.scene->nodes();
            CNodeBase& only = *nodes.at(Core::CId(idB.toLatin1().constData()));
            QVERIFY(world.scene->createConnection(only, 0, only, 0, NodeDataConverter()));
        };
    }
    const QJsonArray saved = rootOf(world.scene->saveToMemory())["connections"].toArray();
    QCOMPARE(saved.size(), 1);
    QCOMPARE(saved[0]["in_id"], saved[0]["out_id"]);
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::typeAskedForDeletesConnections()
{
    CWorld world;
    world.load(chainNodes());
    const auto pass = [](CNodeDataPtr data) { return data; };
    // Whichever is saved first deletes the other.
    world.scene->createConnection(world.node(idB), 0, world.node(idA), 0, pass);
    world.scene->createConnection(world.node(idC), 0, world.node(idA), 1, pass);
    modelOf(*world.scene, idA).onDataType = [&world](ENodePortType, NodePortIndex index) {
        const std::unordered_map<Core::CId, std::shared_ptr<CNodeConnection>> present = world.scene->connections();
        for (const auto& entry : present) {
            if (entry.second->getPortIndex(ENodePortType::Out) != index)
                world.scene->deleteConnectionNow(*entry.second);
        }
        return CTestData::defaultType();
    };
    QCOMPARE(rootOf(world.scene->saveToMemory())["connections"].toArray().size(), 1);
    QCOMPARE(world.scene->connections().size(), std::size_t(1));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::typeAskedForDestroysTheScene()
{
    CWorld world;
    world.load(chainNodes());
    const auto pass = [](CNodeDataPtr data) { return data; };
    world.scene->createConnection(world.node(idB), 0, world.node(idA), 0, pass);
    world.scene->createConnection(world.node(idC), 0, world.node(idA), 1, pass);
    modelOf(*world.scene, idA).onDataType = [&world](ENodePortType, NodePortIndex) {
        world.scene.reset();
        return CTestData::defaultType();
    };
    const QJsonObject root = rootOf(world.scene->saveToMemory());
    QVERIFY(!world.scene);
    QCOMPARE(root["nodes"].toArray().size(), 3);
    QCOMPARE(root["connections"].toArray().size(), 1); // the one that was asked
}

void tst_SceneDocument::handlersThatThrow_data()
{
    QTest::addColumn<bool>("onNode");
    QTest::newRow("nodeCreated") << true;
    QTest::newRow("connectionCreated") << false;
}

void tst_SceneDocument::handlersThatThrow()
{
    QFETCH(const bool, onNode);
    CWorld world;
    bool throws = true;
    const auto handler = [&throws] {
        if (std::exchange(throws, false))
            throw std::runtime_error("handler");
    };
    if (onNode)
        connect(world.scene.get(), &CNodeScene::nodeCreated, handler);
    else
        connect(world.scene.get(), &CNodeScene::connectionCreated, handler);
    QVERIFY_EXCEPTION_THROWN(world.load(chainNodes(), chainConnections()), std::runtime_error);
    QCOMPARE(world.scene->nodes().size(), std::size_t(onNode ? 1 : 3));
    QCOMPARE(inconsistencyOf(*world.scene), QString());

    world.scene->clearScene();
    world.load(chainNodes(), chainConnections());
    QCOMPARE(world.scene->nodes().size(), std::size_t(3));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::saveThatDestroysTheScene()
{
    CWorld world;
    world.load(chainNodes(), chainConnections());
    for (const QString& id : {idA, idB, idC})
        modelOf(*world.scene, id).onSave = [&world] { world.scene.reset(); };
    const QJsonObject root = rootOf(world.scene->saveToMemory());
    QVERIFY(!world.scene);
    QCOMPARE(root["nodes"].toArray().size(), 1);
    QCOMPARE(root["connections"].toArray(), QJsonArray());
}

void tst_SceneDocument::creatorDestroysTheScene()
{
    CWorld world;
    world.onCreate = [&world](CTestModel&) { world.scene.reset(); };
    world.load(chainNodes(), chainConnections());
    QVERIFY(!world.scene);
    QCOMPARE(world.said, QStringList());
}

void tst_SceneDocument::creatorReplacesTheRegistry()
{
    CWorld world;
    const CWorld other;
    world.onCreate = [&](CTestModel&) {
        world.registry.reset();
        world.scene->setRegistry(other.registry);
    };
    world.load(chainNodes(), chainConnections());
    QCOMPARE(contentsOf(world.scene->saveToMemory()), contentsOf(documentOf(chainNodes(), chainConnections())));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::infoHandlerDestroysTheScene()
{
    class CInfo : public Core::AppCoreComponents::IBaseInfo
    {
    };
    CWorld world;
    auto scene = std::make_unique<CTestScene>(world.registry, QSharedPointer<CInfo>::create(), nullptr);
    world.onCreate = [&scene](CTestModel& model) {
        QObject::connect(&model, &CNodeDataModel::infoInjected, [&scene] { scene.reset(); });
    };
    scene->loadFromMemory(documentOf(chainNodes(), chainConnections()));
    QVERIFY(!scene);
}

void tst_SceneDocument::replacedModelDestroysTheScene()
{
    CWorld world;
    world.load({nodeJson(idA)});
    modelOf(*world.scene, idA).onDestroyed = [&world] { world.scene.reset(); };
    world.load(chainNodes(), chainConnections());
    QVERIFY(!world.scene);
    QCOMPARE(world.said.count("nodeCreated"), 1); // the new one was never announced
}

void tst_SceneDocument::replacedModelClearsTheScene()
{
    CWorld world;
    world.load({nodeJson(idA)});
    modelOf(*world.scene, idA).onDestroyed = [&world] { world.scene->clearScene(); };
    world.load(chainNodes(), chainConnections());
    QVERIFY(!world.has(idA));
    QCOMPARE(world.scene->nodes().size(), std::size_t(2));
    QCOMPARE(world.scene->connections().size(), std::size_t(1));
    QCOMPARE(inconsistencyOf(*world.scene), QString());
}

void tst_SceneDocument::nameOfAModelRemovesNodes_data()
{
    QTest::addColumn<bool>("wholeScene");
    QTest::newRow("its node") << false;
    QTest::newRow("the scene") << true;
}

void tst_SceneDocument::nameOfAModelRemovesNodes() const
{
    class CFleetingModel : public CTestModel
    {
    public:
        QString name() override
        {
            if (onName)
                onName();
            return QStringLiteral("Fleeting");
        }
        std::function<void()> onName;
    };
    QFETCH(bool, wholeScene);
    auto scene = std::make_unique<CTestScene>(nullptr, nullptr);
    auto model = std::make_unique<CFleetingModel>();
    CFleetingModel& fleeting = *model;
    CNodeBase& node = scene->createNode(std::move(model));
    fleeting.onName = [&] { wholeScene ? scene.reset() : scene->removeNode(node); };

    QCOMPARE(&scene->restoreNode(nodeJson(idA, "Fleeting", true)), &CNodeScene::noNode());
    QCOMPARE(CTestModel::alive(), 0);
}

QTEST_GUILESS_MAIN(tst_SceneDocument)
#include "tst_SceneDocument.moc"
