// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Scenes as documents: what is written, and what is read back.

#include "scene/SceneDocuments.h"
#include "support/CLeakTest.h"

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QTextCodec>
#endif
#include <QtTest>

#include <stdexcept>

using namespace Plugin::Halvex;

namespace {

using CDecouplerModel = SDocumentWorld::CDecouplerModel;
using Numbers = std::vector<int>;

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

} // namespace

class tst_SceneDocument : public CLeakTest
{
    Q_OBJECT

private Q_SLOTS:
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
    void tenMegabytes();
};

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
    world.registry->registerTypeConverter({type, type}, &passOn);
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
