// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What the library says of the usual mistakes of those who use it: each in words, once, in a category that can be
// switched off.

#include "scene/SceneSupport.h"
#include "support/CMessageCatcher.h"
#include "support/HasAssertions.h"

#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/models/CGenericNodeDecouplerDataModel.h>
#include <Halvex/service/CNodeService.h>

#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLoggingCategory>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <stdexcept>

using namespace Plugin::Halvex;

namespace {

using Registry = std::shared_ptr<CNodeDataModelRegistry>;

/// Makes test models of that name.
ModelCreator creatorOf(const QString& name)
{
    return [name] { return std::make_unique<CNamedTestModel>(1, 1, name); };
}

Registry registryWith(const QString& name)
{
    const auto registry = std::make_shared<CNodeDataModelRegistry>();
    registry->registerModel<CNamedTestModel>(creatorOf(name), QStringLiteral("Tests"));
    return registry;
}

QByteArray textOf(const QJsonObject& document)
{
    return QJsonDocument(document).toJson(QJsonDocument::Compact);
}

QString idText(const CNodeBase& node)
{
    return node.id().toString();
}

/// A service with an active scene.
class CServiceWithSource
{
public:
    CServiceWithSource()
    {
        auto source = std::make_unique<CNamedTestModelOf<ASourceNodeDataModel>>(0, 1, QStringLiteral("Camera"),
                                                                                QStringLiteral("cam"));
        source->unique = true;
        service.addNode(std::move(source), {});
    }

    CNodeService service{nullptr};
};

const SNodeDataType imageType{QStringLiteral("Image"), QStringLiteral("I")};

/// Two nodes: one gives test data, the other takes images.
struct SDifferingPair
{
    SDifferingPair()
    {
        taker.model.onDataType = [](ENodePortType side, NodePortIndex) {
            return side == ENodePortType::In ? imageType : CTestData::defaultType();
        };
    }

    std::shared_ptr<CNodeConnection> connect(const NodeDataConverter& converter = {}) const
    {
        return scene->createConnection(taker.node, 0, giver.node, 0, converter);
    }

    std::unique_ptr<CTestScene> scene = std::make_unique<CTestScene>(nullptr, nullptr);
    SPlaced giver = place(*scene, QStringLiteral("Giver"));
    SPlaced taker = place(*scene, QStringLiteral("Taker"));
};

/// Three nodes, of which the last one throws at data.
class CChainThatThrows
{
public:
    CChainThatThrows()
    {
        join(m_scene, m_first, m_middle);
        m_thrower.model.onSetInData = [this](const CNodeDataPtr& data, NodePortIndex) {
            if (!data)
                return;
            if (disconnectsFirst)
                m_scene.deleteConnectionNow(*m_last);
            throw std::runtime_error("No data is good enough.");
        };
    }

    bool throwsWhenItDelivers() const
    {
        try {
            m_first.model.offer(CTestData::make(1));
        } catch (const std::runtime_error&) {
            return true;
        }
        return false;
    }

    QString idOfThrower() const { return idText(m_thrower.node); }

    /// Asked for its name, the node that throws goes.
    void removeThrowerByItsName()
    {
        m_thrower.model.onName = [this] { m_scene.removeNode(m_thrower.node); };
    }

    bool disconnectsFirst = false;

private:
    CTestScene m_scene{nullptr, nullptr};
    SPlaced m_first = place(m_scene, QStringLiteral("First"));
    SPlaced m_middle = place(m_scene, QStringLiteral("Middle"));
    SPlaced m_thrower = place(m_scene, QStringLiteral("Thrower"));
    CNodeConnection* m_last = join(m_scene, m_middle, m_thrower).get();
};

/// What it is asked for in a warning asks how far it has got.
class CDecouplerThatLooks : public CGenericNodeDecouplerDataModel<CTestData>
{
public:
    QString name() override
    {
        return statistics().received > 0 ? CGenericNodeDecouplerDataModel<CTestData>::name() : QString();
    }
};

void runInEventLoop(const std::function<void()>& work)
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] {
        work();
        loop.quit();
    });
    loop.exec();
}

} // namespace

class tst_Mistakes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsSaidOfWhatIsRight();
    void dataForAPortThatIsNotThere();
    void modelWithAParent();
    void nameThatIsRegisteredTwice();
    void typesThatDiffer();
    void askingMayTakeThingsAway_data();
    void askingMayTakeThingsAway();
    void dataOfAnotherTypeThanAnnounced();
    void askingDataForItsTypeMayEndTheNode();
    void converterThatGivesAnotherType();
    void exceptionThroughAnEventLoop();
    void exceptionOfANodeThatGoes();
    void exceptionWithoutAnEventLoop();
    void decouplerWithAnEventLoop(); // first: what was said once is not said again
    void decouplerWithoutAnEventLoop();
    void unknownModelIsMade();
    void modelIsMadeWithoutARegistry();
    void unknownModelIsSaved();
    void sceneDocument_data();
    void sceneDocument();
    void connectionsThatAreLeftOut();
    void import_data();
    void import();
    void sourceOfAnotherScene();
    void addNodeWithoutAScene();
    void addNodeOfAnUnknownModel();
    void addNodeThatGetsNoScene();
    void eachIsSaidOnce();
    void categoriesCanBeSwitchedOff();
};

void tst_Mistakes::nothingIsSaidOfWhatIsRight()
{
    const CMessageCatcher messages;
    CServiceWithSource host;
    host.service.registry()->registerModel<CNamedTestModel>(creatorOf(QStringLiteral("Filter")),
                                                            QStringLiteral("Tests"));
    const char* const chain =
        R"([{"name": "a", "model": {"name": "Filter"}, "unique_sources": [["cam"]], "connection": [["b"]]},
            {"name": "b", "model": {"name": "Filter"}}])";
    QVERIFY(host.service.importDocument(QString::fromLatin1(chain)));
    const QByteArray document = host.service.getActiveScene()->saveToMemory();
    host.service.getActiveScene()->loadFromMemory(document);
    QCOMPARE(messages.texts(), QStringList());
}

void tst_Mistakes::dataForAPortThatIsNotThere()
{
    const CMessageCatcher messages;
    CTestScene scene(nullptr, nullptr);
    const SPlaced splitter = place(scene, QStringLiteral("Splitter"));
    splitter.model.offer(CTestData::make(1), 1);
    splitter.model.offer(CTestData::make(2), 1);
    QCOMPARE(
        messages.texts("halvex.usage"),
        QStringList{QStringLiteral("The model \"Splitter\" of node %1 gives data for output port 1, which it does not "
                                   "have: its nPorts() said so when the node was made.")
                        .arg(idText(splitter.node))});
}

void tst_Mistakes::modelWithAParent()
{
    const CMessageCatcher messages;
    QObject parent;
    auto owned = std::make_unique<CTestModel>(1, 1, QStringLiteral("Child"));
    CTestModel* const model = owned.get();
    model->setParent(&parent);
    CTestScene scene(nullptr, nullptr);
    const QString id = idText(scene.createNode(std::move(owned)));
    model->setParent(nullptr);
    QCOMPARE(messages.texts("halvex.usage"),
             QStringList{
                 QStringLiteral("The model \"Child\" of node %1 has a QObject parent, which destroys it although the "
                                "node owns it: give it none.")
                     .arg(id)});
}

void tst_Mistakes::nameThatIsRegisteredTwice()
{
    const Registry registry = registryWith(QStringLiteral("Blur"));
    const CMessageCatcher messages;
    registry->registerModel<CNamedTestModel>(creatorOf(QStringLiteral("Blur")), QStringLiteral("Others"));
    QCOMPARE(messages.texts("halvex.usage"),
             QStringList{QStringLiteral("A model named \"Blur\" is registered already, in \"Tests\"; the other one, in "
                                        "\"Others\", is left out.")});
}

void tst_Mistakes::typesThatDiffer()
{
    const CMessageCatcher messages;
    const SDifferingPair pair;
    QVERIFY(pair.connect(&passOn));
    QCOMPARE(messages.texts(), QStringList());
    QVERIFY(pair.connect());
    QCOMPARE(
        messages.texts("halvex.usage"),
        QStringList{QStringLiteral("Output port 0 of the model \"Giver\" of node %1 gives \"Test data\", input port 0 "
                                   "of the model \"Taker\" of node %2 takes \"Image\", and no converter is between "
                                   "them.")
                        .arg(idText(pair.giver.node), idText(pair.taker.node))});
}

void tst_Mistakes::askingMayTakeThingsAway_data()
{
    QTest::addColumn<bool>("isForTypes"); // or for names
    QTest::addColumn<QString>("leaving");
    for (const char* const leaving : {"scene", "in node", "out node"}) {
        QTest::addRow("types, %s", leaving) << true << leaving;
        QTest::addRow("names, %s", leaving) << false << leaving;
    }
}

void tst_Mistakes::askingMayTakeThingsAway()
{
    QFETCH(const bool, isForTypes);
    QFETCH(const QString, leaving);
    const CMessageCatcher messages;
    SDifferingPair pair;
    const auto takeAway = [&] {
        pair.giver.model.onName = {};
        if (leaving == "scene")
            CTestScene::endInside(pair.scene);
        else
            pair.scene->removeNode(leaving == "in node" ? pair.taker.node : pair.giver.node);
    };
    if (isForTypes) {
        pair.taker.model.onDataType = [&](ENodePortType, NodePortIndex) {
            takeAway();
            return imageType;
        };
    } else {
        pair.giver.model.onName = takeAway;
    }

    const auto connection = pair.connect();
    QCOMPARE(messages.texts(), QStringList());
    if (pair.scene)
        QCOMPARE(pair.scene->nodes().size(), std::size_t(1));
    else
        QVERIFY(connection); // it is shared, and leads nowhere
    QCOMPARE(pair.scene == nullptr, leaving == "scene");
    QCOMPARE(CTestModels::alive(), pair.scene ? 1 : 0);
}

void tst_Mistakes::dataOfAnotherTypeThanAnnounced()
{
    const CMessageCatcher messages;
    CTestScene scene(nullptr, nullptr);
    const SPlaced giver = place(scene, QStringLiteral("Giver"));
    giver.model.offer(CTestData::make(1));
    QCOMPARE(messages.texts(), QStringList());

    giver.model.offer(QSharedPointer<CTestData>::create(2, imageType));
    giver.model.offer({});
    QStringList expected; // asking costs each delivery a call
    if (hasAssertions)
        expected << QStringLiteral(
                        "Output port 0 of the model \"Giver\" of node %1 is for \"Test data\", but \"Image\" "
                        "comes there.")
                        .arg(idText(giver.node));
    QCOMPARE(messages.texts("halvex.usage"), expected);
}

void tst_Mistakes::askingDataForItsTypeMayEndTheNode()
{
    class CDataThatEnds : public CTestData
    {
    public:
        SNodeDataType type() const override
        {
            onType();
            return imageType;
        }
        std::function<void()> onType;
    };

    const CMessageCatcher messages;
    auto owned = std::make_unique<CTestModel>();
    const QPointer<CTestModel> model = owned.get();
    auto node = std::make_unique<CNodeBase>(std::move(owned));
    const auto data = QSharedPointer<CDataThatEnds>::create();
    data->onType = [&node] { node.reset(); };
    model->offer(data);
    QCOMPARE(model.isNull(), hasAssertions); // nobody asks otherwise
    QCOMPARE(messages.texts(), QStringList());
}

void tst_Mistakes::converterThatGivesAnotherType()
{
    const CMessageCatcher messages;
    const SDifferingPair pair;
    QVERIFY(pair.connect(&passOn));
    pair.giver.model.offer(CTestData::make(1));
    QStringList expected;
    if (hasAssertions)
        expected << QStringLiteral("Input port 0 of the model \"Taker\" of node %1 is for \"Image\", but \"Test data\" "
                                   "comes there.")
                        .arg(idText(pair.taker.node));
    QCOMPARE(messages.texts("halvex.usage"), expected);
}

void tst_Mistakes::exceptionThroughAnEventLoop()
{
    for (const bool disconnectsFirst : {false, true}) {
        const CMessageCatcher messages;
        CChainThatThrows chain;
        chain.disconnectsFirst = disconnectsFirst;
        bool hasThrown = false;
        runInEventLoop([&] { hasThrown = chain.throwsWhenItDelivers(); });
        QVERIFY(hasThrown);
        QCOMPARE(messages.texts("halvex.usage"), // only of the one that threw
                 QStringList{QStringLiteral("An exception leaves setInData() of the model \"Thrower\" of node %1: an "
                                            "event loop that gets it ends the process.")
                                 .arg(chain.idOfThrower())});
    }
}

void tst_Mistakes::exceptionOfANodeThatGoes()
{
    const CMessageCatcher messages;
    CChainThatThrows chain;
    chain.removeThrowerByItsName();
    bool hasThrown = false;
    runInEventLoop([&] { hasThrown = chain.throwsWhenItDelivers(); });
    QVERIFY(hasThrown);
    QCOMPARE(messages.texts("halvex.usage"), QStringList());
}

void tst_Mistakes::exceptionWithoutAnEventLoop()
{
    const CMessageCatcher messages;
    CChainThatThrows chain;
    QVERIFY(chain.throwsWhenItDelivers());
    QCOMPARE(messages.texts(), QStringList());
}

void tst_Mistakes::decouplerWithoutAnEventLoop()
{
    const CMessageCatcher messages;
    CDecouplerThatLooks decoupler;
    for (int count = 0; count < 999; ++count)
        decoupler.setInData(CTestData::make(count), 0);
    QCOMPARE(messages.texts(), QStringList());
    for (int count = 0; count < 1001; ++count)
        decoupler.setInData(CTestData::make(count), 0);
    QCOMPARE(
        messages.texts("halvex.usage"),
        QStringList{QStringLiteral("1000 data came to the decoupler \"DecouplerT\" and none left it: its thread runs "
                                   "no event loop, so that its timer does not tick.")});
}

void tst_Mistakes::decouplerWithAnEventLoop()
{
    const CMessageCatcher messages;
    CGenericNodeDecouplerDataModel<CTestData> decoupler;
    runInEventLoop([&decoupler] {
        for (int count = 0; count < 2000; ++count)
            decoupler.setInData(CTestData::make(count), 0);
    });
    QCOMPARE(messages.texts(), QStringList());
}

void tst_Mistakes::unknownModelIsMade()
{
    CTestScene scene(registryWith(QStringLiteral("Known")), nullptr, nullptr);
    const CMessageCatcher messages;
    scene.createNode(std::make_unique<CNamedTestModel>(1, 1, QStringLiteral("Known")));
    auto unique = std::make_unique<CNamedTestModel>(1, 1, QStringLiteral("Camera"), QStringLiteral("cam"));
    unique->unique = true; // it is looked for, not made
    scene.createNode(std::move(unique));
    QCOMPARE(messages.texts(), QStringList());

    for (int i = 0; i < 2; ++i)
        scene.createNode(std::make_unique<CNamedTestModel>(1, 1, QStringLiteral("Newcomer")));
    QCOMPARE(
        messages.texts("halvex.usage"),
        QStringList{QStringLiteral("A node is made of the model \"Newcomer\", which is not registered: its scene's "
                                   "document cannot be loaded.")});
}

// A scene without a registry is never loaded from a document.
void tst_Mistakes::modelIsMadeWithoutARegistry()
{
    CTestScene scene(nullptr, nullptr);
    const CMessageCatcher messages;
    scene.createNode(std::make_unique<CNamedTestModel>(1, 1, QStringLiteral("Unlisted")));
    QCOMPARE(messages.texts(), QStringList());
}

void tst_Mistakes::unknownModelIsSaved()
{
    CTestScene scene(registryWith(QStringLiteral("Known")), nullptr, nullptr);
    scene.createNode(std::make_unique<CNamedTestModel>(1, 1, QStringLiteral("Known")));
    const CNodeBase& node = place(scene, QStringLiteral("Stranger")).node;
    auto unique = std::make_unique<CNamedTestModel>(1, 1, QStringLiteral("Camera"), QStringLiteral("cam"));
    unique->unique = true; // it is looked for, not made
    scene.createNode(std::move(unique));

    const CMessageCatcher messages;
    scene.saveToMemory();
    QCOMPARE(messages.texts("halvex.usage"),
             QStringList{
                 QStringLiteral("The model \"Stranger\" of node %1 is saved, but not registered under that name: the "
                                "document cannot be loaded.")
                     .arg(idText(node))});
}

void tst_Mistakes::sceneDocument_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("message");

    QTest::newRow("no JSON") << QByteArray("{\"nodes\": [")
                             << "A scene document is no JSON and is left out: unterminated array, at byte "
                                "11.";
    QTest::newRow("an array") << QByteArray("[]") << "A scene document is no JSON object and is left out.";
    QTest::newRow("nodes") << QByteArray("{\"nodes\": {}}")
                           << "\"nodes\" of a scene document is no array and is left out.";
    QTest::newRow("connections") << QByteArray("{\"connections\": 7}")
                                 << "\"connections\" of a scene document is no array and is left out.";
}

void tst_Mistakes::sceneDocument()
{
    QFETCH(const QByteArray, document);
    QFETCH(const QString, message);
    const CMessageCatcher messages;
    CTestScene scene(registryWith(QStringLiteral("Known")), nullptr, nullptr);
    scene.loadFromMemory(document);
    QCOMPARE(messages.texts("halvex.usage"), QStringList{message});
}

void tst_Mistakes::connectionsThatAreLeftOut()
{
    const CMessageCatcher messages;
    CTestScene scene(registryWith(QStringLiteral("Known")), nullptr, nullptr);
    const CNodeBase& node = scene.createNode(std::make_unique<CNamedTestModel>(1, 1, QStringLiteral("Known")));
    const QString id = idText(node);
    const QJsonObject toNobody{{"in_id", "nobody"}, {"in_index", 0}, {"out_id", id}, {"out_index", 0}};
    const QJsonObject toNoPort{{"in_id", id}, {"in_index", 7}, {"out_id", id}, {"out_index", 0}};
    scene.loadFromMemory(textOf({{"connections", QJsonArray{toNobody, toNoPort, 7}}}));
    QCOMPARE(
        messages.texts("halvex.usage"),
        QStringList({QStringLiteral("A connection of a document is left out: the scene has no node \"nobody\"."),
                     QStringLiteral("A connection of a document is left out: it leads from output port 0 of node %1 to "
                                    "input port 7 of node %1, and one of them is not there.")
                         .arg(id),
                     QStringLiteral("A connection of a document is left out: it is no object.")}));
    QVERIFY(scene.connections().empty());
}

void tst_Mistakes::import_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<QString>("message");

    QTest::newRow("no JSON") << "[1, "
                             << "An import is no JSON and is left out: unterminated array, at byte 4.";
    QTest::newRow("an object") << "{}"
                               << "An import is no JSON array and is left out.";
    QTest::newRow("an element") << "[7]"
                                << "Element 0 of an import is no object and is left out.";
    QTest::newRow("a label")
        << R"([{"name": "a", "model": {"name": "Filter"}, "connection": [["gone"]]}])"
        << "A connection of an import is left out: nothing is labelled \"gone\", and no node of the "
           "scene has that unique name.";
    const QString type = QStringLiteral("\"%1\" of the element \"%2\" of an import is to be a list of lists: what is "
                                        "something else is left out.");
    const auto addType = [&type](const char* label, const char* key, const char* value) {
        QTest::addRow("%s: %s", key, value)
            << QStringLiteral(R"([{"name": "%1", "model": {"name": "Filter"}, "%2": %3}])").arg(label, key, value)
            << type.arg(key, label);
    };
    addType("flat", "connection", R"(["flat"])");
    addType("bare", "connection", R"("bare")");
    addType("number", "connection", "[[7]]");
    addType("flat source", "unique_sources", R"(["cam"])");
    addType("bare source", "unique_sources", R"("cam")");
    addType("number of a source", "unique_sources", "[[7]]");
}

void tst_Mistakes::import()
{
    QFETCH(const QString, document);
    QFETCH(const QString, message);
    const CMessageCatcher messages;
    CServiceWithSource host;
    host.service.registry()->registerModel<CNamedTestModel>(creatorOf(QStringLiteral("Filter")),
                                                            QStringLiteral("Tests"));
    host.service.importDocument(document);
    QCOMPARE(messages.texts("halvex.usage"), QStringList{message});
    QCOMPARE(messages.texts().size(), 1); // the scene does not say it again
}

// A chain for several cameras is imported into the scene of each of them.
void tst_Mistakes::sourceOfAnotherScene()
{
    const CMessageCatcher messages;
    CServiceWithSource host;
    host.service.registry()->registerModel<CNamedTestModel>(creatorOf(QStringLiteral("Filter")),
                                                            QStringLiteral("Tests"));
    host.service.importDocument(
        QStringLiteral(R"([{"name": "a", "model": {"name": "Filter"}, "unique_sources": [["cam", "away"]]}])"));
    QCOMPARE(messages.texts(), QStringList());
}

void tst_Mistakes::addNodeWithoutAScene()
{
    const CMessageCatcher messages;
    CNodeService service(nullptr);
    QCOMPARE(service.addNode(std::make_unique<CNamedTestModel>(1, 1, QStringLiteral("Lost")), {}), Core::CId());
    QCOMPARE(
        messages.texts("halvex.usage"),
        QStringList{QStringLiteral("addNode(): there is no active scene for \"Lost\", which is destroyed. A unique "
                                   "source, added before, makes one.")});
}

void tst_Mistakes::addNodeOfAnUnknownModel()
{
    const CMessageCatcher messages;
    CServiceWithSource host;
    QVERIFY(host.service.addNode(std::make_unique<CNamedTestModel>(1, 1, QStringLiteral("Unheard")), {}) !=
            Core::CId());
    QCOMPARE(messages.texts("halvex.usage"),
             QStringList{QStringLiteral(
                 "A node is made of the model \"Unheard\", which is not registered: its scene's document "
                 "cannot be loaded.")});
}

void tst_Mistakes::addNodeThatGetsNoScene()
{
    const CMessageCatcher messages;
    CNodeService service(nullptr);
    auto model = std::make_unique<CNamedTestModel>(1, 1, QStringLiteral("Only one"), QStringLiteral("one"));
    model->unique = true;
    QCOMPARE(service.addNode(std::move(model), {}), Core::CId());
    QCOMPARE(messages.texts("halvex.usage"),
             QStringList{QStringLiteral("addNode(): \"Only one\" is unique, but no source: it gets no scene, and is "
                                        "destroyed.")});
}

void tst_Mistakes::eachIsSaidOnce()
{
    const Registry registry = registryWith(QStringLiteral("Twice"));
    const CMessageCatcher messages;
    for (int round = 0; round < 3; ++round)
        registry->registerModel<CNamedTestModel>(creatorOf(QStringLiteral("Twice")), QStringLiteral("Tests"));
    QCOMPARE(messages.texts().size(), 1);
}

void tst_Mistakes::categoriesCanBeSwitchedOff()
{
    QLoggingCategory::setFilterRules(QStringLiteral("halvex.usage.warning=false"));
    const Registry registry = registryWith(QStringLiteral("Silent"));
    const CMessageCatcher messages;
    registry->registerModel<CNamedTestModel>(creatorOf(QStringLiteral("Silent")), QStringLiteral("Tests"));
    QCOMPARE(messages.texts(), QStringList());

    // It was not said, so it can still be.
    QLoggingCategory::setFilterRules(QString());
    registry->registerModel<CNamedTestModel>(creatorOf(QStringLiteral("Silent")), QStringLiteral("Tests"));
    QCOMPARE(messages.texts().size(), 1);
}

QTEST_GUILESS_MAIN(tst_Mistakes)
#include "tst_Mistakes.moc"
