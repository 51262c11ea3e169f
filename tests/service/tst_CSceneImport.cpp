// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What an import document says, and what comes of one that says it wrongly; any text at all is fuzz_ImportDocument's.

#include "service/CSceneImport_p.h"

#include "HostModels.h"
#include "support/CLeakTest.h"
#include "support/CTestScene.h"

#include <QJsonDocument>
#include <QtTest>

#include <map>

using namespace Plugin::Halvex;

namespace {

/// A document's text: in the tests, ' stands for ".
QString text(QString document)
{
    return document.replace('\'', '"');
}

/// A scene with sources: "cam" and "cam-2", which are unique; "shy", which is not; "" and "sink"; one whose unique name
/// says that it has none; and one without an identity that is called "plain".
class CFixture
{
public:
    CFixture()
    {
        for (const char* name : {"cam", "cam-2"})
            scene.createNode(makeSource(name));
        for (const char* uniqueName : {"shy", "", "Halvex.NoUniqueName"})
            scene.createNode(makeModel(ENodeDataModelType::Source, "Source", QString(uniqueName)));
        scene.createNode(makeModel(ENodeDataModelType::Sink, "Sink", QString("sink")));
        scene.createNode(std::make_unique<CTestModel>(1, 1, "plain"));
        for (const auto& entry : scene.nodes()) {
            if (const auto* const model = dynamic_cast<ANodeDataModel*>(entry.second->nodeDataModel()))
                m_names[entry.first.toString()] = '<' + model->uniqueName() + '>';
        }
    }

    QJsonObject import(const QStringList& documents)
    {
        CSceneImport import(scene);
        for (const QString& document : documents)
            import.addDocument(document);
        return import.sceneDocument();
    }

    /// The nodes of a scene document: for each what its id stands for, the name of its model if it has one, and "!" if
    /// it says that it is unique. Nodes of the scene are called <unique name>, others A, B and so on.
    QString nodesOf(const QJsonObject& sceneDocument)
    {
        QStringList nodes;
        const QJsonArray all = sceneDocument["nodes"].toArray();
        for (const QJsonValue& node : all) {
            const QString model = node["model"]["name"].toString();
            nodes << nameOf(node["id"]) + (model.isEmpty() ? "" : '=' + model) +
                         (node["model"]["is_unique"].toBool(true) ? "!" : "");
        }
        return nodes.join(' ');
    }

    /// The connections of a scene document, as "A1-B0" if output 1 of A feeds input 0 of B; "?" is no node.
    QString connectionsOf(const QJsonObject& sceneDocument)
    {
        QStringList connections;
        const QJsonArray all = sceneDocument["connections"].toArray();
        for (const QJsonValue& json : all)
            connections << QString("%1%2-%3%4")
                               .arg(nameOf(json["out_id"]))
                               .arg(json["out_index"].toInt(99))
                               .arg(nameOf(json["in_id"]))
                               .arg(json["in_index"].toInt(99));
        return connections.join(' ');
    }

    CTestScene scene{nullptr, nullptr};

private:
    QString nameOf(const QJsonValue& id)
    {
        const QString fresh(QChar('A' + m_count));
        const auto named = m_names.emplace(id.toString(), fresh);
        m_count += int(named.second);
        return named.first->second;
    }

    std::map<QString, QString> m_names{{Core::CId().toString(), "?"}};
    int m_count = 0;
};

} // namespace

class tst_CSceneImport : public CLeakTest
{
    Q_OBJECT

private Q_SLOTS:
    void documents_data();
    void documents();
    void wrongValues_data();
    void wrongValues();
    void indexes_data();
    void indexes();

    void nodesAndConnectionsAreWhole();
    void severalDocumentsAreOne();
    void firstOfTwoSourcesIsTaken();
    void emptyNameIsNoneOfAModelWithoutAName();
    void sourceThatLeavesWhenAsked();
};

void tst_CSceneImport::documents_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<QString>("nodes");
    QTest::addColumn<QString>("connections");
    const auto add = [](const char* what, const char* document, const char* nodes, const char* connections) {
        QTest::newRow(what) << text(document) << nodes << connections;
    };

    add("nothing", "[]", "", "");
    add("model", "[{'name': 'a', 'model': {'name': 'View'}}]", "A=View", "");
    add("model, unique", "[{'name': 'a', 'model': {'name': 'View', 'is_unique': true}}]", "A=View", "");
    add("model, unique by a text", "[{'name': 'a', 'model': {'name': 'View', 'is_unique': 'yes'}}]", "A=View", "");
    add("nothing in it", "[{}]", "A", "");
    add("labels", "[{'name': 'a'}, {'name': 'b'}, {'name': 'A'}]", "A B C", "");
    add("label twice", "[{'name': 'a'}, {'name': 'b'}, {'name': 'a'}]", "A B A", "");

    add("source", "[{'name': 'a', 'unique_sources': [['cam']]}]", "A <cam>=cam!", "<cam>0-A0");
    add("source not unique", "[{'name': 'a', 'unique_sources': [['shy']]}]", "A <shy>=Source", "<shy>0-A0");
    add("source of another type", "[{'name': 'a', 'unique_sources': [['sink']]}]", "A <sink>=Sink", "<sink>0-A0");
    add("source with an empty name", "[{'name': 'a', 'unique_sources': [['']]}]", "A <>=Source", "<>0-A0");
    add("source that is a label", "[{'name': 'a', 'unique_sources': [['b']]}, {'name': 'b'}]", "A B", "B0-A0");
    add("source unknown", "[{'name': 'a', 'unique_sources': [['nobody']]}]", "A", "?0-A0");
    add("source by the mark", "[{'name': 'a', 'unique_sources': [['Halvex.NoUniqueName']]}]", "A", "?0-A0");
    add("source without an identity", "[{'name': 'a', 'unique_sources': [['plain']]}]", "A", "?0-A0");
    add("sources of one port", "[{'name': 'a', 'unique_sources': [['cam-2', 'cam']]}]", "A <cam-2>=cam-2! <cam>=cam!",
        "<cam-2>0-A0 <cam>0-A0");
    add("sources of later ports", "[{'name': 'a', 'unique_sources': [[], ['cam-2'], 3, ['cam']]}]",
        "A <cam-2>=cam-2! <cam>=cam!", "<cam-2>1-A1 <cam>3-A3");
    add("source twice",
        "[{'name': 'a', 'unique_sources': [['cam', 'cam']]}, {'name': 'b', 'unique_sources': [['cam']]}]",
        "A <cam>=cam! <cam>=cam! B <cam>=cam!", "<cam>0-A0 <cam>0-A0 <cam>0-B0");
    // An element's node is entered before a source takes its label, its connections after.
    add("source with the label of an earlier element",
        "[{'name': 'cam', 'connection': [['a']]}, {'name': 'a', 'unique_sources': [['cam']]}]", "A B <cam>=cam!",
        "<cam>0-B0 <cam>0-B0");
    add("source with the label of a later element", "[{'name': 'a', 'unique_sources': [['cam']]}, {'name': 'cam'}]",
        "A <cam>=cam! <cam>", "<cam>0-A0");

    add("connection", "[{'name': 'a'}, {'name': 'b', 'connection': [['a']]}]", "A B", "B0-A0");
    add("connection to a later element and itself", "[{'name': 'b', 'connection': [['a', 'b']]}, {'name': 'a'}]", "A B",
        "A0-B0 A0-A0");
    add("connection to a source", "[{'name': 'a', 'connection': [['cam']]}]", "A", "A0-<cam>0");
    add("connections in groups", "[{'name': 'a', 'connection': [['b'], [], ['c', 'b']]}, {'name': 'b'}, {'name': 'c'}]",
        "A B C", "A0-B0 A0-C0 A0-B0");
    add("connection after sources",
        "[{'name': 'a', 'connection': [['b']], 'unique_sources': [['cam']]}, {'name': 'b', 'unique_sources': [['a']]}]",
        "A <cam>=cam! B", "<cam>0-A0 A0-B0 A0-B0");

    // Text that is no array adds nothing, nor does an element that is no object.
    for (const char* wrong :
         {"", "name: a", "[{'name': 'a'}", "{'name': 'a'}", "'a'", "null", "[null, true, 1, 'a', [], [{'name': 'a'}]]"})
        add(qPrintable(QString("wrong: ") + wrong), wrong, "", "");
}

void tst_CSceneImport::documents()
{
    QFETCH(QString, document);
    QFETCH(QString, nodes);
    QFETCH(QString, connections);
    CFixture f;
    const QJsonObject made = f.import({document});
    QCOMPARE(made.keys(), QStringList({"connections", "nodes"}));
    QVERIFY(made["nodes"].isArray() && made["connections"].isArray());
    QCOMPARE(f.nodesOf(made), nodes);
    QCOMPARE(f.connectionsOf(made), connections);
    QCOMPARE(f.scene.nodes().size(), std::size_t(7)); // it only reads the scene
    QVERIFY(f.scene.connections().empty());
}

void tst_CSceneImport::wrongValues_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<QString>("nodes");
    const auto add = [](const char* key, const char* rest, const char* nodes,
                        std::initializer_list<const char*> values) {
        for (const char* value : values)
            QTest::addRow("%s %s", key, value) << text(QString("[{'%1': %2%3}]").arg(key, value, rest)) << nodes;
    };
    add("name", ", 'model': {'name': 'View'}", "A=View", {"null", "3", "true", "[]", "['a']", "{}", "{'name': 'a'}"});
    add("model", ", 'name': 'a'", "A", {"null", "3", "true", "[]", "[{'name': 'View'}]", "'View'", "{}"});
    add("unique_sources", ", 'name': 'a'", "A",
        {"null", "3", "true", "'cam'", "{'0': ['cam']}", "[]", "['cam']", "[{'name': 'cam'}]", "[7, null]",
         "[[7, null, true, ['cam'], {'name': 'cam'}]]"});
    add("connection", ", 'name': 'a'", "A",
        {"null", "3", "true", "'a'", "{'name': 'a'}", "[]", "['a']", "[{'name': 'a'}]", "[7, null]",
         "[[7, null, true, ['a']]]"});
}

void tst_CSceneImport::wrongValues()
{
    QFETCH(QString, document);
    QFETCH(QString, nodes);
    CFixture f;
    const QJsonObject made = f.import({document});
    QCOMPARE(f.nodesOf(made), nodes);
    QCOMPARE(f.connectionsOf(made), QString());
}

void tst_CSceneImport::indexes_data()
{
    QTest::addColumn<QString>("consumer");
    QTest::addColumn<QString>("connection");
    const auto add = [](const char* consumer, const char* connection) {
        QTest::newRow(consumer) << text(consumer) << connection;
    };
    add("{'name': 'a', 'index_in': 3, 'index _out': 5}", "B5-A3");
    add("{'name': 'a'}", "B0-A0");
    // The blank is part of the key.
    add("{'name': 'a', 'index_in': 3, 'index_out': 5, 'index  _out': 6, 'index_ out': 7}", "B0-A3");
    // The label is then the empty text, which is the name of a source.
    add("{}", "B0-<>0");
    add("{'index_in': 1, 'index _out': 2}", "B2-<>1");
    add("{'name': 1, 'index_in': 1, 'index _out': 2}", "B2-<>1");
    add("{'name': 'a', 'index_in': '1', 'index _out': '2'}", "B0-A0");
    add("{'name': 'a', 'index_in': 1.5, 'index _out': -0.5}", "B0-A0");
    add("{'name': 'a', 'index_in': 1.0, 'index _out': 2e0}", "B2-A1");
    add("{'name': 'a', 'index_in': 1e30, 'index _out': -1e30}", "B0-A0");
    add("{'name': 'a', 'index_in': -1, 'index _out': -7}", "B-7-A-1");
    add("{'name': 'a', 'index_in': null, 'index _out': []}", "B0-A0");
}

void tst_CSceneImport::indexes()
{
    QFETCH(QString, consumer);
    QFETCH(QString, connection);
    CFixture f;
    const QJsonObject made = f.import({text("[{'name': 'a'}, {'name': 'b', 'connection': [[%1]]}]").arg(consumer)});
    QCOMPARE(f.nodesOf(made), QString("A B"));
    QCOMPARE(f.connectionsOf(made), connection);
}

void tst_CSceneImport::nodesAndConnectionsAreWhole()
{
    CFixture f;
    const QJsonObject model{{"name", "Filter"}, {"property", QJsonObject{{"frames_per_second", 12}}}, {"n", 7}};
    const QString document = text("[{'name': 'a', 'model': %1, 'unique_sources': [[], ['cam']],"
                                  "  'connection': [[{'name': 'a', 'converter': {'in': {}, 'out': {}}}]]}]")
                                 .arg(QString::fromUtf8(QJsonDocument(model).toJson()));
    const QJsonObject made = f.import({document});
    const QString id = made["nodes"][0]["id"].toString();
    const QString cam = nodeOf(f.scene, modelNamed(&f.scene, "cam"))->id().toString();
    QJsonObject copied = model;
    copied["is_unique"] = false;
    const QJsonArray nodes{QJsonObject{{"id", id}, {"model", copied}},
                           QJsonObject{{"id", cam}, {"model", QJsonObject{{"name", "cam"}, {"is_unique", true}}}}};
    const QJsonArray connections{QJsonObject{{"in_id", id}, {"in_index", 1}, {"out_id", cam}, {"out_index", 1}},
                                 QJsonObject{{"in_id", id}, {"in_index", 0}, {"out_id", id}, {"out_index", 0}}};
    QCOMPARE(made["nodes"].toArray(), nodes);
    QCOMPARE(made["connections"].toArray(), connections);
    QVERIFY(Core::CId(id.toLatin1().constData()) != Core::CId());
    QCOMPARE(Core::CId(id.toLatin1().constData()).toString(), id);
}

void tst_CSceneImport::severalDocumentsAreOne()
{
    CFixture f;
    const QJsonObject made = f.import({text("[{'name': 'a', 'connection': [['late']], 'unique_sources': [['cam']]}]"),
                                       text("{'name': 'no array'}"), text("[{'name': 'late'}, {'name': 'a'}]"),
                                       text("[{'name': 'b', 'unique_sources': [['cam', 'a']]}]")});
    // A label that nothing had when it was first used stands for nothing from then on.
    QCOMPARE(f.nodesOf(made), QString("A <cam>=cam! ? A B <cam>=cam!"));
    QCOMPARE(f.connectionsOf(made), QString("<cam>0-A0 A0-?0 <cam>0-B0 A0-B0"));
    // The next import knows none of the labels.
    QCOMPARE(f.nodesOf(f.import({text("[{'name': 'a'}, {'name': 'late'}]")})), QString("C D"));
}

void tst_CSceneImport::firstOfTwoSourcesIsTaken()
{
    for (int round = 0; round < 10; ++round) {
        CFixture f;
        f.scene.createNode(makeSource("twin"));
        f.scene.createNode(makeSource("twin"));
        QString first;
        for (auto entry = f.scene.nodes().begin(); first.isEmpty(); ++entry) {
            if (entry->second->nodeDataModel()->name() == "twin")
                first = entry->first.toString();
        }
        const QJsonObject made = f.import({text("[{'name': 'a', 'unique_sources': [['twin']]}]")});
        QCOMPARE(made["nodes"][1]["id"].toString(), first);
    }
}

// Models without a name are the many: an empty text in a document must not take just any of them for its source.
void tst_CSceneImport::emptyNameIsNoneOfAModelWithoutAName()
{
    CTestScene scene(nullptr, nullptr);
    scene.createNode(makeModel(ENodeDataModelType::Source));
    CSceneImport import(scene);
    import.addDocument(text("[{'name': 'a', 'unique_sources': [['']]}]"));
    QCOMPARE(import.sceneDocument()["nodes"].toArray().size(), 1);
}

void tst_CSceneImport::sourceThatLeavesWhenAsked()
{
    for (const bool wholeScene : {false, true}) {
        for (const bool byName : {false, true}) {
            auto scene = std::make_unique<CTestScene>(nullptr, nullptr);
            CNodeBase& node = scene->createNode(makeSource("cam"));
            auto* const model = static_cast<CNamedTestModel*>(node.nodeDataModel());
            (byName ? model->onName : model->onIsUnique) = [&] {
                if (wholeScene)
                    scene.reset();
                else
                    scene->removeNode(node);
            };
            CSceneImport import(*scene);
            import.addDocument(text("[{'name': 'a', 'unique_sources': [['cam'], ['cam']]}]"));
            QCOMPARE(import.sceneDocument()["nodes"].toArray().size(), 1);
            QCOMPARE(CTestModels::alive(), 0);
        }
    }
}

QTEST_GUILESS_MAIN(tst_CSceneImport)
#include "tst_CSceneImport.moc"
