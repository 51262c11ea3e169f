// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Scenes as documents: what is written, what is read back, and what becomes of documents that are wrong.

#include "scene/SceneDocuments.h"
#include "support/CMessageCatcher.h"

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QTextCodec>
#endif
#include <QtTest>

#include <algorithm>
#include <stdexcept>

using namespace Plugin::Halvex;

namespace {

using CDecouplerModel = SDocumentWorld::CDecouplerModel;
using Numbers = std::vector<int>;

CNodeDataPtr pass(CNodeDataPtr data)
{
    return data;
}

/// The process is in a locale of ISO 8859-1 while this object lives; with Qt 6 every locale is of UTF-8.
class CLatin1Locale
{
public:
    Q_DISABLE_COPY(CLatin1Locale)

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    CLatin1Locale()
    {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    }
    ~CLatin1Locale()
    {
        QTextCodec::setCodecForLocale(m_codec);
    }

    static QByteArray encodedName()
    {
        return QByteArrayLiteral("Pr\374f");
    }

private:
    QTextCodec* const m_codec = QTextCodec::codecForLocale();
#else
    CLatin1Locale() = default;

    static QByteArray encodedName()
    {
        return QByteArrayLiteral("Pr\303\274f");
    }
#endif
};

QJsonObject typeJson(const SNodeDataType& type)
{
    return {{"id", type.id}, {"name", type.name}};
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
    return with(json.toObject(), step, replaced(json[step], path, value));
}

/// A scene of one node, with so many arrays in each other beside what is known of it.
QByteArray deepDocument(int depth)
{
    QByteArray document = documentOf({with(nodeJson(idA), "more", "depth")});
    return document.replace("\"depth\"", QByteArray(depth, '[') + QByteArray(depth, ']'));
}

/// Proves a scene sound, and that data gets along each of its connections between test models. Returns what is wrong.
QString faultOf(const CNodeScene& scene)
{
    for (const auto& entry : scene.connections()) {
        const CNodeConnection& connection = *entry.second;
        auto* const from = dynamic_cast<CTestModel*>(endOf(connection, ENodePortType::Out)->nodeDataModel());
        auto* const to = dynamic_cast<CTestModel*>(endOf(connection, ENodePortType::In)->nodeDataModel());
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

/// A place of a document, the type that it takes there, and what becomes of the document with a value of another.
struct SPlace
{
    const char* path;
    QJsonValue::Type type;
    bool throws;
    int nodes;
    int connections;
    bool converter;
    double rate; ///< Of the decoupler, if it comes to be.
};

} // namespace

Q_DECLARE_METATYPE(SPlace)

class tst_SceneDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void emptySceneHasEmptyArrays();
    void documentIsIndentedUtf8();
    void documentNamesItsParts();
    void orderIsThatOfTheTables();

    void whatWasSavedIsRestored();
    void savingAfterLoadingGivesTheSameDocument();
    void converterIsFoundByIdsFromOutToIn();
    void restoredConnectionCarriesThePresentOutput();
    void restoreNodeReturnsTheNode();
    void infoComesBeforeTheSettings();
    void presentNodeIsReplaced();
    void replacedNodeIsNotVisited();
    void loadingTwice();

    void unknownModelThrows_data();
    void unknownModelThrows();
    void unknownModelEndsTheLoad();
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
    void tenMegabytes();
};

void tst_SceneDocument::cleanup()
{
    QCOMPARE(CTestModel::alive(), 0);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_SceneDocument::emptySceneHasEmptyArrays()
{
    const SDocumentWorld world;
    const QByteArray document = world.scene->saveToMemory();
    QCOMPARE(rootOf(document), QJsonObject({{"nodes", QJsonArray()}, {"connections", QJsonArray()}}));

    world.loadChain();
    world.scene->loadFromMemory(document);
    QCOMPARE(world.contents(), contentsOf(chainDocument()));
}

void tst_SceneDocument::documentIsIndentedUtf8()
{
    CTestScene scene(nullptr, nullptr);
    const QString id = place(scene, QStringLiteral("Prüfung")).node.id().toString();
    QCOMPARE(QString::fromUtf8(scene.saveToMemory()).replace(id, "ID"), QStringLiteral(R"({
    "connections": [
    ],
    "nodes": [
        {
            "id": "ID",
            "model": {
                "name": "Prüfung"
            }
        }
    ]
}
)"));
}

void tst_SceneDocument::documentNamesItsParts()
{
    const SDocumentWorld world;
    world.load({nodeJson(idA), nodeJson(idB, "DecouplerT")}, {connectionJson(idA, idB)});
    const QJsonObject root = world.saved();

    QCOMPARE(root.keys(), QStringList({"connections", "nodes"}));
    QCOMPARE(root["connections"].toArray(), QJsonArray({connectionJson(idA, idB)}));
    const QJsonObject property{{"frames_per_second", 25.0}};
    const QJsonObject decoupler{{"name", "DecouplerT"}, {"is_unique", false}, {"property", property}};
    const QJsonArray nodes = root["nodes"].toArray();
    for (const QJsonValue& json : nodes) {
        QCOMPARE(json.toObject().keys(), QStringList({"id", "model"}));
        QCOMPARE(json["model"].toObject(), json["id"] == idB ? decoupler : QJsonObject({{"name", "Test"}}));
    }
}

void tst_SceneDocument::orderIsThatOfTheTables()
{
    CTestScene scene(nullptr, nullptr);
    const SPlaced hub = place(scene, "Hub", 20, 1);
    for (int i = 0; i < 20; ++i) {
        place(scene);
        join(scene, hub, hub, 0, i);
    }
    QStringList expected;
    for (const auto& entry : scene.nodes())
        expected << entry.first.toString();
    for (const auto& entry : scene.connections())
        expected << QString::number(entry.second->getPortIndex(ENodePortType::In));

    const QJsonObject root = rootOf(scene.saveToMemory());
    const QJsonArray nodes = root["nodes"].toArray();
    const QJsonArray connections = root["connections"].toArray();
    QStringList saved;
    for (const QJsonValue& json : nodes)
        saved << json["id"].toString();
    for (const QJsonValue& json : connections)
        saved << QString::number(json["in_index"].toInt());
    QCOMPARE(saved, expected);
}

void tst_SceneDocument::whatWasSavedIsRestored()
{
    const SDocumentWorld world;
    world.scene->loadFromMemory(deepDocument(1000));
    world.load({nodeJson(idB)}, {with(connectionJson(idA, idB, 1), "out_index", 1)});

    QCOMPARE(world.scene->nodes().size(), std::size_t(2));
    QCOMPARE(world.node(idA).id().toString(), idA);
    QCOMPARE(world.node(idB).nodeDataModel()->name(), QStringLiteral("Test"));
    QCOMPARE(world.model(idB).restored, std::vector<QJsonObject>({QJsonObject{{"name", "Test"}}}));
    QCOMPARE(endOf(world.onlyConnection(), ENodePortType::Out), &world.node(idA));
    QCOMPARE(endOf(world.onlyConnection(), ENodePortType::In), &world.node(idB));
    QCOMPARE(world.log->said, QStringList({"created Test", "created Test", "connected Test1-Test1"}));
}

void tst_SceneDocument::savingAfterLoadingGivesTheSameDocument()
{
    const SDocumentWorld world;
    const SNodeDataType type = CTestData::defaultType();
    world.registry->registerTypeConverter({type, type}, &pass);
    CNodeBase& source = world.scene->createNode(world.registry->create("Test"));
    CNodeBase& named = world.scene->createNode(world.registry->create("Named"));
    auto model = std::make_unique<CDecouplerModel>();
    model->setFramesPerSecond(1.0 / 3);
    CNodeBase& decoupler = world.scene->createNode(std::move(model));
    CNodeBase& sink = world.scene->createNode(world.registry->create("Test"));
    world.scene->createConnection(decoupler, 0, source, 1, {});
    world.scene->createConnection(sink, 1, decoupler, 0, world.registry->getTypeConverter(type, type));
    world.scene->createConnection(sink, 1, named, 0, {});
    world.scene->createConnection(sink, 1, named, 0, {}); // a second one between the same ports
    world.scene->createConnection(source, 0, source, 0, {});
    world.scene->createConnection(ENodePortType::In, sink, 0); // half a connection, which is left out

    CTestScene second(world.registry, nullptr, nullptr);
    second.loadFromMemory(world.scene->saveToMemory());
    QCOMPARE(contentsOf(second.saveToMemory()), world.contents());
    QCOMPARE(world.contents().size(), 9);
    QCOMPARE(world.contents().filter("converter").size(), 1);
}

void tst_SceneDocument::converterIsFoundByIdsFromOutToIn()
{
    const QJsonObject types{{"in", typeJson({"colour", "Colour"})}, {"out", typeJson({"grey", "Grey"})}};
    const auto answer = [](const CNodeDataPtr&) { return CTestData::make(42); };
    const SNodeDataType grey{"grey", "Old name"};
    const SNodeDataType colour{"colour", "Old name"};
    for (const bool isDirectionRight : {true, false}) {
        const SDocumentWorld world;
        world.registry->registerTypeConverter(isDirectionRight ? std::pair(grey, colour) : std::pair(colour, grey),
                                              answer);
        world.load(chainNodes(), {with(connectionJson(idA, idB), "converter", types)});

        world.model(idA).offer(CTestData::make(1));
        QCOMPARE(world.model(idB).values(), Numbers{isDirectionRight ? 42 : 1});
        QCOMPARE(world.onlyConnection().save().contains("converter"), isDirectionRight);
    }
}

void tst_SceneDocument::restoredConnectionCarriesThePresentOutput()
{
    const SDocumentWorld world;
    world.load(chainNodes());
    world.model(idA).out = CTestData::make(5);
    const auto connection = world.scene->restoreConnection(connectionJson(idA, idB));
    QCOMPARE(connection.get(), &world.onlyConnection());
    QCOMPARE(world.model(idB).values(), Numbers{5});
}

void tst_SceneDocument::restoreNodeReturnsTheNode()
{
    const SDocumentWorld world;
    CNodeBase& node = world.scene->restoreNode(nodeJson(idA));
    QCOMPARE(&node, &world.node(idA));
    QCOMPARE(world.log->said, QStringList{"created Test"});

    connect(world.scene.get(), &CNodeScene::nodeCreated, world.scene.get(), &CNodeScene::removeNode);
    QCOMPARE(&world.scene->restoreNode(nodeJson(idB)), &CNodeScene::noNode());
}

void tst_SceneDocument::infoComesBeforeTheSettings()
{
    SDocumentWorld world;
    Core::AppCoreComponents::BaseInfoPtr atRestore;
    world.onCreate = [&atRestore](CTestModel& model) {
        model.onRestore = [&atRestore, &model] { atRestore = model.getInfo(); };
    };
    world.load({nodeJson(idA)});
    QVERIFY(atRestore);
    QCOMPARE(atRestore, world.scene->getSceneInfo());
}

void tst_SceneDocument::presentNodeIsReplaced()
{
    const SDocumentWorld world;
    world.loadChain();
    world.log->said.clear();
    bool isDestroyed = false;
    world.model(idB).onDestroyed = [&isDestroyed] { isDestroyed = true; };
    world.load({nodeJson(idB, "Named")});

    QVERIFY(isDestroyed);
    QCOMPARE(world.log->said, QStringList{"created Named"});
    QCOMPARE(world.saved()["connections"].toArray(), QJsonArray());
    world.model(idA).offer(CTestData::make(1)); // along what is left of the old connection
}

void tst_SceneDocument::replacedNodeIsNotVisited()
{
    const SDocumentWorld world;
    world.load(chainNodes());
    int visits = 0;
    world.scene->iterateOverNodes([&](const CNodeBase* visited) {
        ++visits;
        for (const QString& id : {idA, idB, idC}) {
            // Sooner or later one comes to lie where the first one lay.
            for (int i = 0; i < 10 && visited->id() != SDocumentWorld::toId(id); ++i)
                world.scene->restoreNode(nodeJson(id));
        }
    });
    QCOMPARE(visits, 1);
    QCOMPARE(world.scene->nodes().size(), std::size_t(3));
}

void tst_SceneDocument::loadingTwice()
{
    const SDocumentWorld world;
    world.loadChain();
    world.loadChain();
    QCOMPARE(world.scene->nodes().size(), std::size_t(3));
    QCOMPARE(world.scene->connections().size(), std::size_t(4));
    QCOMPARE(world.log->count("deleted") + world.log->count("disconnected"), 0);
    QCOMPARE(world.contents(), contentsOf(chainDocument()));

    world.model(idA).offer(CTestData::make(1));
    QCOMPARE(world.model(idC).values(), Numbers{1});
}

void tst_SceneDocument::unknownModelThrows_data()
{
    QTest::addColumn<QJsonObject>("node");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("plain") << nodeJson(idA, "Unheard of") << QByteArray("Unheard of");
    // In the local encoding, which is neither UTF-8 nor ASCII here.
    QTest::newRow("non-ASCII") << nodeJson(idA, QStringLiteral("Prüf")) << CLatin1Locale::encodedName();
    QTest::newRow("other case") << nodeJson(idA, "test") << QByteArray("test");
    QTest::newRow("empty") << nodeJson(idA, QString()) << QByteArray();
    QTest::newRow("no name") << QJsonObject{{"id", idA}, {"model", QJsonObject()}} << QByteArray();
    QTest::newRow("no model") << QJsonObject{{"id", idA}} << QByteArray();
    QTest::newRow("nothing") << QJsonObject() << QByteArray();
}

void tst_SceneDocument::unknownModelThrows()
{
    QFETCH(const QJsonObject, node);
    QFETCH(const QByteArray, name);
    const SDocumentWorld world;
    [[maybe_unused]] const CLatin1Locale locale;
    QList<QByteArray> caught;
    for (const bool whole : {false, true}) {
        try {
            whole ? world.load({node}) : void(world.scene->restoreNode(node));
        } catch (const std::logic_error& error) {
            caught << error.what();
        }
    }

    const QByteArray what = "No registered model with name " + name;
    QCOMPARE(caught, QList<QByteArray>({what, what}));
    QCOMPARE(world.log->said, QStringList());
    QVERIFY(world.scene->nodes().empty());
}

void tst_SceneDocument::unknownModelEndsTheLoad()
{
    const SDocumentWorld world;
    const QJsonArray nodes{nodeJson(idA), nodeJson(idB), nodeJson(noId, "?"), nodeJson(idC)};
    QVERIFY_EXCEPTION_THROWN(world.load(nodes, {connectionJson(idA, idB)}), std::logic_error);
    QCOMPARE(world.contents(), contentsOf(documentOf({nodeJson(idA), nodeJson(idB)})));

    world.load({nodeJson(idC)}, chainConnections());
    QCOMPARE(world.contents(), contentsOf(chainDocument()));
}

void tst_SceneDocument::sceneWithoutRegistryKnowsNoModel()
{
    CTestScene scene(nullptr, nullptr);
    QVERIFY_EXCEPTION_THROWN(scene.loadFromMemory(documentOf({nodeJson(idA)})), std::logic_error);
    scene.loadFromMemory(documentOf({nodeJson(idA, "Test", true)}, {connectionJson(idA, idB)}));

    // Connections need none; they come without a converter.
    const QString id = place(scene).node.id().toString();
    const auto restored = scene.restoreConnection(with(connectionJson(id, id), "converter", QJsonObject()));
    QVERIFY(restored);
    QVERIFY(!restored->save().contains("converter"));
}

void tst_SceneDocument::uniqueModelIsNeverCreated()
{
    const SDocumentWorld world;
    world.load({nodeJson(idA, "Test", true), nodeJson(idB, "Unheard of", true), nodeJson(idC)});
    QCOMPARE(world.contents(), contentsOf(documentOf({nodeJson(idC)})));
    QCOMPARE(&world.scene->restoreNode(nodeJson(idA, "Named", true)), &CNodeScene::noNode());
    QCOMPARE(world.log->said, QStringList{"created Test"});
}

void tst_SceneDocument::uniqueModelIsMatchedByName()
{
    const SDocumentWorld world;
    world.load({nodeJson(idA), nodeJson(idB), nodeJson(noId, "Named")});
    world.log->said.clear();
    const CNodeBase& found = world.scene->restoreNode(nodeJson(idC, "Test", true));

    const auto& nodes = world.scene->nodes();
    const auto first = std::find_if(nodes.begin(), nodes.end(),
                                    [](const auto& entry) { return entry.second->nodeDataModel()->name() == "Test"; });
    QCOMPARE(&found, first->second.get());
    QVERIFY(!world.has(idC));
    QCOMPARE(world.model(found.id().toString()).restored.size(), std::size_t(1)); // the settings stay
    QCOMPARE(world.log->said, QStringList());
}

void tst_SceneDocument::connectionsDoNotReachTheSavedIdOfAUniqueModel()
{
    const SDocumentWorld world;
    world.load({nodeJson(idA)});
    world.load({nodeJson(idB, "Test", true), nodeJson(idC)}, chainConnections());
    QCOMPARE(world.scene->nodes().size(), std::size_t(2));
    QVERIFY(world.scene->connections().empty());
}

void tst_SceneDocument::textThatIsNoSceneLoadsNothing_data()
{
    QTest::addColumn<QByteArray>("text");
    const QByteArray valid = chainDocument();
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
    QTest::newRow("too deep") << deepDocument(2000);
    QTest::newRow("far too deep") << deepDocument(1000000);
    QTest::newRow("UTF-16") << QByteArray::fromRawData("{\0}\0", 4);
}

void tst_SceneDocument::textThatIsNoSceneLoadsNothing()
{
    QFETCH(const QByteArray, text);
    const SDocumentWorld world;
    const QByteArray before = documentOf({nodeJson(idA)});
    world.scene->loadFromMemory(before);
    world.log->said.clear();
    const CMessageCatcher messages;
    world.scene->loadFromMemory(text);

    QCOMPARE(messages.texts("default"), QStringList());
    QCOMPARE(messages.texts("halvex.graph"), QStringList());
    QCOMPARE(world.log->said, QStringList());
    QCOMPARE(world.contents(), contentsOf(before));
}

void tst_SceneDocument::wrongTypes_data()
{
    QTest::addColumn<SPlace>("place");
    QTest::addColumn<QJsonValue>("value");

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
            SPlace row = place;
            if (value.second.isUndefined() && QByteArray(place.path).endsWith("second"))
                row.rate = 25;
            QTest::addRow("%s %s", place.path, value.first) << row << value.second;
        }
    }
}

void tst_SceneDocument::wrongTypes()
{
    QFETCH(const SPlace, place);
    QFETCH(const QJsonValue, value);
    const QJsonObject type = typeJson(CTestData::defaultType());
    const QJsonObject decoupler{{"name", "DecouplerT"}, {"property", QJsonObject{{"frames_per_second", 30}}}};
    const QJsonObject connection =
        with(connectionJson(idA, idB), "converter", QJsonObject{{"in", type}, {"out", type}});
    const QByteArray valid = documentOf({nodeJson(idA), with(nodeJson(idB), "model", decoupler)}, {connection});

    const SDocumentWorld world;
    world.registry->registerTypeConverter({CTestData::defaultType(), CTestData::defaultType()}, &pass);
    bool hasThrown = false;
    try {
        const QJsonValue root = replaced(rootOf(valid), QString(place.path).split('/'), value);
        world.scene->loadFromMemory(QJsonDocument(root.toObject()).toJson());
    } catch (const std::logic_error&) {
        hasThrown = true;
    }

    QCOMPARE(hasThrown, place.throws);
    QCOMPARE(int(world.scene->nodes().size()), place.nodes);
    QCOMPARE(int(world.scene->connections().size()), place.connections);
    QCOMPARE(world.saved().value("connections")[0].toObject().contains("converter"), place.converter);
    if (world.has(idB))
        QCOMPARE(static_cast<CDecouplerModel*>(world.node(idB).nodeDataModel())->framesPerSecond(), place.rate);
    QCOMPARE(faultOf(*world.scene), QString());

    CTestScene again(world.registry, nullptr, nullptr);
    again.loadFromMemory(world.scene->saveToMemory());
    QCOMPARE(contentsOf(again.saveToMemory()), world.contents());
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
    QFETCH(const QByteArray, text);
    QFETCH(const int, index);
    for (const QString& key : {QString("in_index"), QString("out_index")}) {
        const SDocumentWorld world;
        QByteArray document = documentOf(chainNodes(), {with(connectionJson(idA, idB), key, "index")});
        world.scene->loadFromMemory(document.replace("\"index\"", text));

        QCOMPARE(world.scene->nodes().size(), std::size_t(3));
        QCOMPARE(world.scene->connections().size(), std::size_t(index < 0 ? 0 : 1));
        if (index >= 0)
            QCOMPARE(world.onlyConnection().save()[key].toInt(-1), index);
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
    QFETCH(const QJsonValue, saved);
    QFETCH(const QString, id);
    const SDocumentWorld world;
    world.load({with(nodeJson(idA), "id", saved), nodeJson(idB)}, {with(connectionJson(idA, idB), "out_id", saved)});

    QVERIFY(world.has(id));
    QCOMPARE(world.contents(), contentsOf(documentOf({nodeJson(id), nodeJson(idB)}, {connectionJson(id, idB)})));
    QCOMPARE(faultOf(*world.scene), QString());
}

void tst_SceneDocument::duplicateIdsLeaveTheLast()
{
    for (const QString& id : {idA, noId}) {
        const SDocumentWorld world;
        world.load({nodeJson(id), nodeJson(id, "Named"), nodeJson(id, "DecouplerT"), nodeJson(id, "Named")},
                   {connectionJson(id, id), connectionJson(id, id)});
        QCOMPARE(world.scene->nodes().size(), std::size_t(1));
        QCOMPARE(world.scene->connections().size(), std::size_t(2));
        const QStringList nodes{"created Test", "created Named", "created DecouplerT", "created Named"};
        QCOMPARE(world.log->said.mid(0, 4), nodes);
        QCOMPARE(world.log->said.size(), 6);
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
    QTest::newRow("null consumer") << connectionJson(idA, noId);
    QTest::newRow("input port") << connectionJson(idA, idB, 2);
    QTest::newRow("output port") << with(connectionJson(idA, idB), "out_index", -1);
    QTest::newRow("empty") << QJsonObject();
}

void tst_SceneDocument::connectionToNothingIsRejected()
{
    QFETCH(const QJsonObject, connection);
    const SDocumentWorld world;
    world.load({nodeJson(idA), nodeJson(idB)});
    world.log->said.clear();
    QVERIFY(!world.scene->restoreConnection(connection));
    QCOMPARE(world.log->said, QStringList());
    QCOMPARE(world.scene->nodes().size(), std::size_t(2));
    QVERIFY(world.scene->connections().empty());

    world.load({}, {connection, connectionJson(idA, idB)});
    QCOMPARE(world.log->said, QStringList{"connected Test0-Test0"});
}

void tst_SceneDocument::tenMegabytes()
{
    // Were any step to search the whole scene for each object, this would not end within the test's time.
    const SDocumentWorld world;
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
    QCOMPARE(world.contents(), contentsOf(document));
}

QTEST_GUILESS_MAIN(tst_SceneDocument)
#include "tst_SceneDocument.moc"
