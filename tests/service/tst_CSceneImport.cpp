// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "service/CSceneImport_p.h"

#include "CHostModel.h"
#include "ImportDocument.h"
#include "support/CTestModel.h"
#include "support/CTestScene.h"
#include "support/FreshSeed.h"
#include "support/ServiceConsistency.h"

#include <Halvex/graph/CNodeConnection.h>
#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/CNodeService.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <map>
#include <random>

using namespace Plugin::Halvex;

namespace {

QString noId()
{
    return Core::CId().toString();
}

QString marker()
{
    return QStringLiteral("Halvex.NoUniqueName");
}

QJsonObject fedBy(const QString& label, const QJsonValue& sources)
{
    return element(label, "View", {{"unique_sources", sources}});
}

QJsonObject feeding(const QString& label, const QJsonValue& consumers)
{
    return element(label, "View", {{"connection", consumers}});
}

QJsonObject nodeEntry(const QString& id, const QJsonObject& model)
{
    return {{"id", id}, {"model", model}};
}

QJsonObject copiedView(const QString& id)
{
    return nodeEntry(id, {{"name", "View"}, {"is_unique", false}});
}

QJsonObject connectionEntry(const QString& inId, int inIndex, const QString& outId, int outIndex)
{
    return {{"in_id", inId}, {"in_index", inIndex}, {"out_id", outId}, {"out_index", outIndex}};
}

QJsonArray nodesOf(const QJsonObject& sceneDocument)
{
    return sceneDocument["nodes"].toArray();
}

QJsonArray connectionsOf(const QJsonObject& sceneDocument)
{
    return sceneDocument["connections"].toArray();
}

QString idAt(const QJsonObject& sceneDocument, int node)
{
    return nodesOf(sceneDocument).at(node)["id"].toString();
}

/// A scene of the test's own, and what an import of documents into it gives.
class CFixture
{
public:
    CNodeBase& add(const QString& uniqueName, bool unique = true, const QString& name = QStringLiteral("Source"))
    {
        auto model = std::make_unique<CHostModel>(ENodeDataModelType::Source, name, uniqueName);
        model->unique = unique;
        return scene.createNode(std::move(model));
    }

    QJsonObject importAll(const QStringList& documents)
    {
        CSceneImport import(scene);
        for (const QString& document : documents)
            import.addDocument(document);
        return import.sceneDocument();
    }
    QJsonObject import(const QJsonArray& elements) { return importAll({document(elements)}); }

    CTestScene scene{nullptr, nullptr};
};

/// What the import should give, by searching the scene for every name.
class CNaiveImport
{
public:
    explicit CNaiveImport(const CNodeScene& scene)
        : m_scene(scene)
    {
    }

    void addDocument(const QString& text)
    {
        const QJsonDocument json = QJsonDocument::fromJson(text.toUtf8());
        if (!json.isArray())
            return;
        const QJsonArray elements = json.array();
        for (const QJsonValue& entry : elements) {
            if (!entry.isObject())
                continue;
            const QString label = entry["name"].isString() ? entry["name"].toString() : "";
            if (m_ids.count(label) == 0)
                m_ids[label] = QString("fresh %1").arg(++m_count);
            QJsonObject model = entry["model"].isObject() ? entry["model"].toObject() : QJsonObject();
            model["is_unique"] = false;
            m_nodes.append(nodeEntry(m_ids[label], model));
            for (const auto& source : sourcesOf(entry)) {
                CNodeBase* const node = find(source.second);
                if (!node)
                    continue;
                auto* const found = dynamic_cast<ANodeDataModel*>(node->nodeDataModel());
                m_ids[source.second] = node->id().toString();
                m_nodes.append(
                    nodeEntry(m_ids[source.second], {{"name", found->name()}, {"is_unique", found->isUnique()}}));
            }
        }
        for (const QJsonValue& entry : elements) {
            if (!entry.isObject())
                continue;
            const QString self = idOf(entry["name"].isString() ? entry["name"].toString() : "");
            for (const auto& source : sourcesOf(entry))
                m_connections.append(connectionEntry(self, source.first, idOf(source.second), source.first));
            if (entry["connection"].isArray()) {
                const QJsonArray groups = entry["connection"].toArray();
                for (const QJsonValue& group : groups)
                    feed(self, group);
            }
        }
    }

    QJsonObject sceneDocument() const { return {{"nodes", m_nodes}, {"connections", m_connections}}; }

private:
    static std::vector<std::pair<int, QString>> sourcesOf(const QJsonValue& entry)
    {
        std::vector<std::pair<int, QString>> sources;
        if (!entry["unique_sources"].isArray())
            return sources;
        int port = 0;
        const QJsonArray ports = entry["unique_sources"].toArray();
        for (const QJsonValue& names : ports) {
            if (names.isArray()) {
                const QJsonArray list = names.toArray();
                for (const QJsonValue& name : list) {
                    if (name.isString())
                        sources.emplace_back(port, name.toString());
                }
            }
            ++port;
        }
        return sources;
    }

    static int indexOf(const QJsonValue& value)
    {
        const double number = value.isDouble() ? value.toDouble() : 0;
        return number == int(number) ? int(number) : 0;
    }

    void feed(const QString& self, const QJsonValue& group)
    {
        if (!group.isArray())
            return;
        const QJsonArray items = group.toArray();
        for (const QJsonValue& item : items) {
            if (item.isString())
                m_connections.append(connectionEntry(idOf(item.toString()), 0, self, 0));
            if (!item.isObject())
                continue;
            const QString label = item["name"].isString() ? item["name"].toString() : "";
            m_connections.append(
                connectionEntry(idOf(label), indexOf(item["index_in"]), self, indexOf(item["index _out"])));
        }
    }

    CNodeBase* find(const QString& uniqueName) const
    {
        for (const auto& entry : m_scene.nodes()) {
            const auto* const model = dynamic_cast<ANodeDataModel*>(entry.second->nodeDataModel());
            if (model && model->hasUniqueName() && model->uniqueName() == uniqueName)
                return entry.second.get();
        }
        return nullptr;
    }

    QString idOf(const QString& label)
    {
        if (m_ids.count(label) == 0) {
            const CNodeBase* const node = find(label);
            m_ids[label] = node ? node->id().toString() : noId();
        }
        return m_ids[label];
    }

    const CNodeScene& m_scene;
    std::map<QString, QString> m_ids;
    QJsonArray m_nodes;
    QJsonArray m_connections;
    int m_count = 0;
};

/// The document with every id that is neither empty nor of a node in \a scene replaced by the number of its first
/// appearance, since such ids are made anew by each import.
QJsonObject withoutFreshIds(const QJsonObject& sceneDocument, const CNodeScene& scene)
{
    std::map<QString, QString> names{{noId(), noId()}};
    for (const auto& entry : scene.nodes())
        names[entry.first.toString()] = entry.first.toString();
    const auto rename = [&names](QJsonObject entry, const QString& key) {
        const QString number = QString("#%1").arg(names.size());
        entry[key] = names.emplace(entry[key].toString(), number).first->second;
        return entry;
    };
    QJsonArray nodes;
    const QJsonArray sceneNodes = nodesOf(sceneDocument);
    for (const QJsonValue& node : sceneNodes)
        nodes.append(rename(node.toObject(), "id"));
    QJsonArray connections;
    const QJsonArray sceneConnections = connectionsOf(sceneDocument);
    for (const QJsonValue& connection : sceneConnections)
        connections.append(rename(rename(connection.toObject(), "in_id"), "out_id"));
    return {{"nodes", nodes}, {"connections", connections}};
}

/// Documents in which everything that can be wrong is wrong sometimes.
class CRandomDocuments
{
public:
    explicit CRandomDocuments(unsigned int seed)
        : m_random(seed)
    {
    }

    int upTo(int most) { return int(m_random() % unsigned(most + 1)); }

    QString next()
    {
        switch (upTo(24)) {
        case 0:
            return "[{\"name\":";
        case 1:
            return QString::fromUtf8(QJsonDocument(element()).toJson());
        default:
            break;
        }
        QJsonArray elements;
        for (int count = upTo(6); count > 0; --count)
            elements.append(oddOr(element()));
        return document(elements);
    }

private:
    bool once(int in) { return upTo(in - 1) == 0; }

    QJsonValue oddOr(const QJsonValue& value)
    {
        if (!once(12))
            return value;
        const QJsonValue odd[] = {
            QJsonValue(), 7,     1.5,          true, "text", QJsonArray{"a", 3}, QJsonObject{{"name", "a"}},
            QJsonArray{}, -1e30, QJsonObject{}};
        return odd[upTo(9)];
    }

    QString label()
    {
        const char* const labels[] = {"a",     "b",    "c",     "",       "cam",
                                      "cam-2", "twin", "named", "nobody", "\xc3\xa9t\xc3\xa9"};
        return once(20) ? marker() : QString::fromUtf8(labels[upTo(9)]);
    }

    QJsonObject element()
    {
        QJsonObject json;
        if (!once(10))
            json["name"] = oddOr(label());
        if (!once(10))
            json["model"] = oddOr(QJsonObject{{"name", label()}, {"is_unique", oddOr(once(2))}, {"x", upTo(5)}});
        if (once(2))
            json["unique_sources"] = oddOr(sources());
        if (once(2))
            json["connection"] = oddOr(consumers());
        return json;
    }

    QJsonArray sources()
    {
        QJsonArray ports;
        for (int count = upTo(3); count > 0; --count) {
            QJsonArray names;
            for (int name = upTo(2); name > 0; --name)
                names.append(oddOr(label()));
            ports.append(oddOr(names));
        }
        return ports;
    }

    QJsonArray consumers()
    {
        QJsonArray groups;
        for (int count = upTo(3); count > 0; --count) {
            QJsonArray items;
            for (int item = upTo(3); item > 0; --item)
                items.append(oddOr(once(2) ? QJsonValue(label()) : consumer()));
            groups.append(oddOr(items));
        }
        return groups;
    }

    QJsonObject consumer()
    {
        QJsonObject json{{"name", oddOr(label())}};
        if (!once(5))
            json["index_in"] = oddOr(upTo(3) - 1);
        if (!once(5))
            json[once(5) ? "index_out" : "index _out"] = oddOr(upTo(3) - 1);
        return json;
    }

    std::mt19937 m_random;
};

} // namespace

class tst_CSceneImport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void nothingGivesEmptyArrays();
    void elementBecomesANode();
    void modelIsCopiedAsItIs();
    void copiedModelIsNeverUnique_data();
    void copiedModelIsNeverUnique();
    void everyLabelHasAFreshId();
    void sameLabelTwiceIsOneId();
    void labelsAreSharedByDocuments();
    void labelsAreNotSharedByImports();

    void sourceOfTheSceneIsReferredTo();
    void sourceThatIsNotUniqueIsReferredToAsThat();
    void sourceStandsOncePerNaming();
    void sourceOverwritesALabel();
    void labelAfterItsSourceHasTheSourcesId();
    void firstOfTwoSourcesIsTaken();
    void markerIsNeverMatched();
    void emptyNameMatchesNoNodeWithoutAName();
    void modelWithoutAnIdentityIsNeverMatched();
    void kindOfTheSourceDoesNotMatter();
    void sourceMayBeALabel();
    void unknownSourceHasNoId();
    void unknownLabelKeepsNoId();
    void sourcePortsAreTheInputPorts();
    void severalSourcesOfOnePort();

    void connectionFeedsALabel();
    void connectionHasIndexes();
    void indexOutHasABlank();
    void connectionToALaterElement();
    void connectionToALaterDocumentIsLost();
    void connectionsComeAfterSources();
    void noConverterIsWritten();

    void wrongDocuments_data();
    void wrongDocuments();
    void wrongElements_data();
    void wrongElements();
    void wrongConsumers_data();
    void wrongConsumers();

    void randomDocuments_data();
    void randomDocuments();

    void sourceThatLeavesWhenAsked_data();
    void sourceThatLeavesWhenAsked();
    void sceneIsLeftAsItIs();

    void chainCarriesData();
    void chainOfSeveralPortsCarriesData();
    void sourceThatHasDataFeedsTheChainAtOnce();
    void manyElementsAskLittle();
};

void tst_CSceneImport::cleanup()
{
    QCOMPARE(CHostModel::alive(), 0);
    QCOMPARE(CTestModel::alive(), 0);
    QCOMPARE(CTestData::alive(), 0);
}

void tst_CSceneImport::nothingGivesEmptyArrays()
{
    CFixture f;
    f.add("cam");
    const QJsonObject empty{{"nodes", QJsonArray()}, {"connections", QJsonArray()}};
    QCOMPARE(f.importAll(QStringList()), empty);
    QCOMPARE(f.import(QJsonArray()), empty);
}

void tst_CSceneImport::elementBecomesANode()
{
    CFixture f;
    const QJsonObject made = f.import(QJsonArray{element("a")});
    QCOMPARE(made.keys(), QStringList({"connections", "nodes"}));
    QCOMPARE(nodesOf(made), QJsonArray{copiedView(idAt(made, 0))});
    QVERIFY(connectionsOf(made).isEmpty());
    const QString id = idAt(made, 0);
    QVERIFY(id != noId());
    QCOMPARE(Core::CId(id.toLatin1().constData()).toString(), id);
}

void tst_CSceneImport::modelIsCopiedAsItIs()
{
    CFixture f;
    const QJsonObject model{{"name", "Decoupler"}, {"property", QJsonObject{{"frames_per_second", 12}}}, {"n", 7}};
    const QJsonObject made = f.import(QJsonArray{QJsonObject{{"name", "a"}, {"model", model}}});
    QJsonObject expected = model;
    expected["is_unique"] = false;
    QCOMPARE(nodesOf(made).first()["model"].toObject(), expected);
}

void tst_CSceneImport::copiedModelIsNeverUnique_data()
{
    QTest::addColumn<QJsonValue>("says");
    QTest::newRow("true") << QJsonValue(true);
    QTest::newRow("false") << QJsonValue(false);
    QTest::newRow("no boolean") << QJsonValue("yes");
    QTest::newRow("nothing") << QJsonValue(QJsonValue::Undefined);
}

void tst_CSceneImport::copiedModelIsNeverUnique()
{
    QFETCH(QJsonValue, says);
    CFixture f;
    QJsonObject json = element("a");
    QJsonObject model{{"name", "View"}};
    if (!says.isUndefined())
        model["is_unique"] = says;
    json["model"] = model;
    const QJsonObject made = f.import(QJsonArray{json});
    QCOMPARE(nodesOf(made), QJsonArray{copiedView(idAt(made, 0))});
}

void tst_CSceneImport::everyLabelHasAFreshId()
{
    CFixture f;
    const QJsonArray elements{element("a"), element("b"), element("A")};
    const QJsonObject first = f.import(elements);
    const QJsonObject second = f.import(elements);
    QSet<QString> ids;
    for (int i = 0; i < 3; ++i)
        ids << idAt(first, i) << idAt(second, i);
    QCOMPARE(ids.size(), 6);
}

void tst_CSceneImport::sameLabelTwiceIsOneId()
{
    CFixture f;
    const QJsonObject made = f.import(QJsonArray{element("a"), element("b"), element("a")});
    QCOMPARE(nodesOf(made).size(), 3);
    QCOMPARE(idAt(made, 2), idAt(made, 0));
    QVERIFY(idAt(made, 1) != idAt(made, 0));
}

void tst_CSceneImport::labelsAreSharedByDocuments()
{
    CFixture f;
    const QJsonObject made = f.importAll(
        {document({element("a")}), document({element("a"), feeding("b", QJsonArray{QJsonValue(QJsonArray{"a"})})})});
    QCOMPARE(nodesOf(made).size(), 3);
    QCOMPARE(idAt(made, 1), idAt(made, 0));
    QCOMPARE(connectionsOf(made), QJsonArray{connectionEntry(idAt(made, 0), 0, idAt(made, 2), 0)});
}

void tst_CSceneImport::labelsAreNotSharedByImports()
{
    CFixture f;
    f.import(QJsonArray{element("a")});
    const QJsonObject made = f.import(QJsonArray{feeding("b", QJsonArray{QJsonValue(QJsonArray{"a"})})});
    QCOMPARE(connectionsOf(made), QJsonArray{connectionEntry(noId(), 0, idAt(made, 0), 0)});
}

void tst_CSceneImport::sourceOfTheSceneIsReferredTo()
{
    CFixture f;
    f.add("other");
    const QString cam = f.add("cam", true, "Camera").id().toString();
    const QJsonObject made = f.import(QJsonArray{fedBy("a", QJsonArray{QJsonValue(QJsonArray{"cam"})})});
    QCOMPARE(nodesOf(made),
             (QJsonArray{copiedView(idAt(made, 0)), nodeEntry(cam, {{"name", "Camera"}, {"is_unique", true}})}));
    QCOMPARE(connectionsOf(made), QJsonArray{connectionEntry(idAt(made, 0), 0, cam, 0)});
    QVERIFY(idAt(made, 0) != cam);
}

void tst_CSceneImport::sourceThatIsNotUniqueIsReferredToAsThat()
{
    CFixture f;
    const QString cam = f.add("cam", false).id().toString();
    const QJsonObject made = f.import(QJsonArray{fedBy("a", QJsonArray{QJsonValue(QJsonArray{"cam"})})});
    QCOMPARE(nodesOf(made).last().toObject(), nodeEntry(cam, {{"name", "Source"}, {"is_unique", false}}));
}

void tst_CSceneImport::sourceStandsOncePerNaming()
{
    CFixture f;
    const QString cam = f.add("cam").id().toString();
    const QJsonObject made =
        f.importAll({document({fedBy("a", QJsonArray{QJsonArray{"cam", "cam"}, QJsonArray{"cam"}})}),
                     document({fedBy("b", QJsonArray{QJsonValue(QJsonArray{"cam"})})})});
    QStringList ids;
    for (int i = 0; i < nodesOf(made).size(); ++i)
        ids << idAt(made, i);
    QCOMPARE(ids, QStringList({ids.at(0), cam, cam, cam, ids.at(4), cam}));
    QCOMPARE(connectionsOf(made).size(), 4);
}

void tst_CSceneImport::sourceOverwritesALabel()
{
    CFixture f;
    const QString cam = f.add("cam").id().toString();
    const QJsonObject made = f.import(QJsonArray{feeding("cam", QJsonArray{QJsonValue(QJsonArray{"a"})}),
                                                 fedBy("a", QJsonArray{QJsonValue(QJsonArray{"cam"})})});
    // The element's node was entered before its label was overwritten, its connections after.
    QVERIFY(idAt(made, 0) != cam);
    const QString a = idAt(made, 1);
    QCOMPARE(idAt(made, 2), cam);
    QCOMPARE(connectionsOf(made), (QJsonArray{connectionEntry(a, 0, cam, 0), connectionEntry(a, 0, cam, 0)}));
}

void tst_CSceneImport::labelAfterItsSourceHasTheSourcesId()
{
    CFixture f;
    const QString cam = f.add("cam").id().toString();
    const QJsonObject made =
        f.import(QJsonArray{fedBy("a", QJsonArray{QJsonValue(QJsonArray{"cam"})}), element("cam")});
    QCOMPARE(nodesOf(made).last().toObject(), copiedView(cam));
}

void tst_CSceneImport::firstOfTwoSourcesIsTaken()
{
    for (int round = 0; round < 10; ++round) {
        CFixture f;
        f.add("twin");
        f.add("twin");
        f.add("other");
        QString first;
        for (auto entry = f.scene.nodes().begin(); first.isEmpty(); ++entry) {
            if (static_cast<ANodeDataModel*>(entry->second->nodeDataModel())->uniqueName() == "twin")
                first = entry->first.toString();
        }
        QCOMPARE(idAt(f.import(QJsonArray{fedBy("a", QJsonArray{QJsonValue(QJsonArray{"twin"})})}), 1), first);
    }
}

void tst_CSceneImport::markerIsNeverMatched()
{
    CFixture f;
    f.add(marker());
    const QJsonObject made = f.import(QJsonArray{fedBy("a", QJsonArray{QJsonValue(QJsonArray{marker()})})});
    QCOMPARE(nodesOf(made), QJsonArray{copiedView(idAt(made, 0))});
    QCOMPARE(connectionsOf(made), QJsonArray{connectionEntry(idAt(made, 0), 0, noId(), 0)});
}

// The marker says that there is no name at all, while an empty name is one, which a model can have. Models without a
// name are the many: an empty text in a document must not take just any of them for its source.
void tst_CSceneImport::emptyNameMatchesNoNodeWithoutAName()
{
    CFixture f;
    f.add(marker());
    const QJsonObject made = f.import(QJsonArray{fedBy("a", QJsonArray{QJsonValue(QJsonArray{""})})});
    QCOMPARE(connectionsOf(made), QJsonArray{connectionEntry(idAt(made, 0), 0, noId(), 0)});

    const QString named = f.add("").id().toString();
    const QJsonObject again = f.import(QJsonArray{fedBy("a", QJsonArray{QJsonValue(QJsonArray{""})})});
    QCOMPARE(connectionsOf(again), QJsonArray{connectionEntry(idAt(again, 0), 0, named, 0)});
}

void tst_CSceneImport::modelWithoutAnIdentityIsNeverMatched()
{
    CFixture f;
    f.scene.createNode(std::make_unique<CTestModel>(1, 1, "cam"));
    const QJsonObject made = f.import(QJsonArray{fedBy("a", QJsonArray{QJsonValue(QJsonArray{"cam"})})});
    QCOMPARE(connectionsOf(made), QJsonArray{connectionEntry(idAt(made, 0), 0, noId(), 0)});
}

void tst_CSceneImport::kindOfTheSourceDoesNotMatter()
{
    CFixture f;
    const QString sink =
        f.scene.createNode(std::make_unique<CHostModel>(ENodeDataModelType::Sink, "S", "sink")).id().toString();
    QCOMPARE(idAt(f.import(QJsonArray{fedBy("a", QJsonArray{QJsonValue(QJsonArray{"sink"})})}), 1), sink);
}

void tst_CSceneImport::sourceMayBeALabel()
{
    CFixture f;
    const QJsonObject made = f.import(QJsonArray{fedBy("a", QJsonArray{QJsonValue(QJsonArray{"b"})}), element("b")});
    QCOMPARE(nodesOf(made).size(), 2);
    QCOMPARE(connectionsOf(made), QJsonArray{connectionEntry(idAt(made, 0), 0, idAt(made, 1), 0)});
}

void tst_CSceneImport::unknownSourceHasNoId()
{
    CFixture f;
    f.add("cam");
    const QJsonObject made = f.import(QJsonArray{fedBy("a", QJsonArray{QJsonValue(QJsonArray{"nobody"})})});
    QCOMPARE(nodesOf(made), QJsonArray{copiedView(idAt(made, 0))});
    QCOMPARE(connectionsOf(made), QJsonArray{connectionEntry(idAt(made, 0), 0, noId(), 0)});
}

void tst_CSceneImport::unknownLabelKeepsNoId()
{
    CFixture f;
    const QJsonObject made = f.importAll(
        {document({feeding("a", QJsonArray{QJsonValue(QJsonArray{"late"})})}), document({element("late")})});
    QCOMPARE(idAt(made, 1), noId());
}

void tst_CSceneImport::sourcePortsAreTheInputPorts()
{
    CFixture f;
    const QString a = f.add("A").id().toString();
    const QString b = f.add("B").id().toString();
    const QJsonObject made = f.import(QJsonArray{fedBy("x", QJsonArray{QJsonArray{"A"}, QJsonArray{"B"}})});
    const QString x = idAt(made, 0);
    QCOMPARE(connectionsOf(made), (QJsonArray{connectionEntry(x, 0, a, 0), connectionEntry(x, 1, b, 1)}));
}

void tst_CSceneImport::severalSourcesOfOnePort()
{
    CFixture f;
    const QString a = f.add("A").id().toString();
    const QString b = f.add("B").id().toString();
    const QJsonObject made =
        f.import(QJsonArray{fedBy("x", QJsonArray{QJsonArray{}, QJsonArray{"B", "A"}, 3, QJsonArray{"A"}})});
    const QString x = idAt(made, 0);
    QCOMPARE(connectionsOf(made),
             (QJsonArray{connectionEntry(x, 1, b, 1), connectionEntry(x, 1, a, 1), connectionEntry(x, 3, a, 3)}));
}

void tst_CSceneImport::connectionFeedsALabel()
{
    CFixture f;
    const QJsonObject made = f.import(QJsonArray{element("a"), feeding("b", QJsonArray{QJsonValue(QJsonArray{"a"})})});
    QCOMPARE(connectionsOf(made), QJsonArray{connectionEntry(idAt(made, 0), 0, idAt(made, 1), 0)});
}

void tst_CSceneImport::connectionHasIndexes()
{
    CFixture f;
    const QJsonObject item{{"name", "a"}, {"index_in", 3}, {"index _out", 5}};
    const QJsonObject made = f.import(QJsonArray{element("a"), feeding("b", QJsonArray{QJsonValue(QJsonArray{item})})});
    QCOMPARE(connectionsOf(made), QJsonArray{connectionEntry(idAt(made, 0), 3, idAt(made, 1), 5)});
}

void tst_CSceneImport::indexOutHasABlank()
{
    CFixture f;
    const QJsonObject item{{"name", "a"}, {"index_in", 3}, {"index_out", 5}, {"index  _out", 6}, {"index_ out", 7}};
    const QJsonObject made = f.import(QJsonArray{element("a"), feeding("b", QJsonArray{QJsonValue(QJsonArray{item})})});
    QCOMPARE(connectionsOf(made), QJsonArray{connectionEntry(idAt(made, 0), 3, idAt(made, 1), 0)});
}

void tst_CSceneImport::connectionToALaterElement()
{
    CFixture f;
    const QJsonObject made =
        f.import(QJsonArray{feeding("b", QJsonArray{QJsonValue(QJsonArray{"a", "b"})}), element("a")});
    QCOMPARE(connectionsOf(made), (QJsonArray{connectionEntry(idAt(made, 1), 0, idAt(made, 0), 0),
                                              connectionEntry(idAt(made, 0), 0, idAt(made, 0), 0)}));
}

void tst_CSceneImport::connectionToALaterDocumentIsLost()
{
    CFixture f;
    const QJsonObject made =
        f.importAll({document({feeding("b", QJsonArray{QJsonValue(QJsonArray{"a"})})}), document({element("a")})});
    QCOMPARE(connectionsOf(made), QJsonArray{connectionEntry(noId(), 0, idAt(made, 0), 0)});
}

void tst_CSceneImport::connectionsComeAfterSources()
{
    CFixture f;
    const QString cam = f.add("cam").id().toString();
    QJsonObject both = feeding("a", QJsonArray{QJsonArray{"b"}, QJsonArray{"c"}});
    both["unique_sources"] = QJsonArray{QJsonValue(QJsonArray{"cam"})};
    const QJsonObject made =
        f.import(QJsonArray{both, element("b"), fedBy("c", QJsonArray{QJsonValue(QJsonArray{"b"})})});
    const QString a = idAt(made, 0);
    const QString b = idAt(made, 2);
    const QString c = idAt(made, 3);
    QCOMPARE(connectionsOf(made), (QJsonArray{connectionEntry(a, 0, cam, 0), connectionEntry(b, 0, a, 0),
                                              connectionEntry(c, 0, a, 0), connectionEntry(c, 0, b, 0)}));
}

void tst_CSceneImport::noConverterIsWritten()
{
    CFixture f;
    const QJsonObject item{{"name", "a"}, {"converter", QJsonObject{{"in", QJsonObject()}, {"out", QJsonObject()}}}};
    const QJsonObject made = f.import(QJsonArray{element("a"), feeding("b", QJsonArray{QJsonValue(QJsonArray{item})})});
    QCOMPARE(connectionsOf(made).first().toObject().keys(), QStringList({"in_id", "in_index", "out_id", "out_index"}));
}

void tst_CSceneImport::wrongDocuments_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("null text") << QString();
    QTest::newRow("not JSON") << "name: a";
    QTest::newRow("ends early") << R"([{"name": "a", "model": {"name": "View"}})";
    QTest::newRow("object") << R"({"name": "a", "model": {"name": "View"}})";
    QTest::newRow("string") << R"("a")";
    QTest::newRow("null") << "null";
    QTest::newRow("no elements in it") << R"([null, true, 1, "a", [], [{"name": "a"}]])";
}

void tst_CSceneImport::wrongDocuments()
{
    QFETCH(QString, text);
    CFixture f;
    f.add("cam");
    const QString good = document({element("a"), feeding("b", QJsonArray{QJsonValue(QJsonArray{"a"})})});
    const QJsonObject made = f.importAll({text, good, text});
    QCOMPARE(nodesOf(made).size(), 2);
    QCOMPARE(connectionsOf(made).size(), 1);
}

void tst_CSceneImport::wrongElements_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QJsonArray>("nodes");       // without ids
    QTest::addColumn<QJsonArray>("connections"); // input port and output port
    const QJsonObject view{{"name", "View"}, {"is_unique", false}};
    const QJsonObject none{{"is_unique", false}};
    const QJsonArray one{view};

    QTest::newRow("empty object") << "[{}]" << QJsonArray{none} << QJsonArray();
    for (const char* value : {"null", "3", "true", "[]", "[\"a\"]", "{}", "{\"name\": \"a\"}"}) {
        QTest::addRow("name %s", value) << QString(R"([{"name": %1, "model": {"name": "View"}}])").arg(value) << one
                                        << QJsonArray();
    }
    for (const char* value : {"null", "3", "true", "[]", "[{\"name\": \"View\"}]", "\"View\""}) {
        QTest::addRow("model %s", value) << QString(R"([{"name": "a", "model": %1}])").arg(value) << QJsonArray{none}
                                         << QJsonArray();
    }
    for (const char* value :
         {"null", "3", "true", "\"cam\"", "{\"0\": [\"cam\"]}", "[]", "[\"cam\"]", "[{\"name\": \"cam\"}]", "[7, null]",
          "[[7, null, true, [\"cam\"], {\"name\": \"cam\"}]]"}) {
        QTest::addRow("unique_sources %s", value)
            << QString(R"([{"name": "a", "model": {"name": "View"}, "unique_sources": %1}])").arg(value) << one
            << QJsonArray();
    }
    for (const char* value : {"null", "3", "true", "\"a\"", "{\"name\": \"a\"}", "[]", "[\"a\"]", "[{\"name\": \"a\"}]",
                              "[7, null]", "[[7, null, true, [\"a\"]]]"}) {
        QTest::addRow("connection %s", value)
            << QString(R"([{"name": "a", "model": {"name": "View"}, "connection": %1}])").arg(value) << one
            << QJsonArray();
    }
}

void tst_CSceneImport::wrongElements()
{
    QFETCH(QString, text);
    QFETCH(QJsonArray, nodes);
    QFETCH(QJsonArray, connections);
    CFixture f;
    f.add("cam");
    const QJsonObject made = f.importAll(QStringList(text));
    QJsonArray models;
    const QJsonArray madeNodes = nodesOf(made);
    for (const QJsonValue& node : madeNodes)
        models.append(node["model"]);
    QCOMPARE(models, nodes);
    QCOMPARE(connectionsOf(made), connections);
}

void tst_CSceneImport::wrongConsumers_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<bool>("known");
    QTest::addColumn<int>("in");
    QTest::addColumn<int>("out");
    QTest::newRow("empty object") << "{}" << false << 0 << 0;
    QTest::newRow("no name") << R"({"index_in": 1, "index _out": 2})" << false << 1 << 2;
    QTest::newRow("name is a number") << R"({"name": 1, "index_in": 1, "index _out": 2})" << false << 1 << 2;
    QTest::newRow("indexes are texts") << R"({"name": "a", "index_in": "1", "index _out": "2"})" << true << 0 << 0;
    QTest::newRow("indexes are fractions") << R"({"name": "a", "index_in": 1.5, "index _out": -0.5})" << true << 0 << 0;
    QTest::newRow("indexes are integers with a point")
        << R"({"name": "a", "index_in": 1.0, "index _out": 2e0})" << true << 1 << 2;
    QTest::newRow("indexes are too large")
        << R"({"name": "a", "index_in": 1e30, "index _out": -1e30})" << true << 0 << 0;
    QTest::newRow("indexes are negative") << R"({"name": "a", "index_in": -1, "index _out": -7})" << true << -1 << -7;
    QTest::newRow("indexes are null") << R"({"name": "a", "index_in": null, "index _out": []})" << true << 0 << 0;
}

void tst_CSceneImport::wrongConsumers()
{
    QFETCH(QString, item);
    QFETCH(bool, known);
    QFETCH(int, in);
    QFETCH(int, out);
    CFixture f;
    const QString text = R"([{"name": "a", "model": {}}, {"name": "b", "model": {}, "connection": [[%1]]}])";
    const QJsonObject made = f.importAll(QStringList(text.arg(item)));
    QCOMPARE(connectionsOf(made), QJsonArray{connectionEntry(known ? idAt(made, 0) : noId(), in, idAt(made, 1), out)});
}

void tst_CSceneImport::randomDocuments_data()
{
    QTest::addColumn<unsigned int>("seed");
    const unsigned int firstSeed = freshSeed();
    for (unsigned int seed = firstSeed; seed < firstSeed + 20; ++seed)
        QTest::addRow("%u", seed) << seed;
}

void tst_CSceneImport::randomDocuments()
{
    QFETCH(unsigned int, seed);
    CFixture f;
    f.add("cam");
    f.add("cam-2");
    f.add("twin");
    f.add("twin", false);
    f.add("named", false, "Other");
    f.add(marker());
    f.scene.createNode(std::make_unique<CTestModel>(1, 1, "a"));

    CRandomDocuments random(seed);
    for (int round = 0; round < 100; ++round) {
        CSceneImport import(f.scene);
        CNaiveImport naive(f.scene);
        QString texts;
        for (int count = random.upTo(4); count >= 0; --count) {
            const QString text = random.next();
            texts += text + '\n';
            import.addDocument(text);
            naive.addDocument(text);
        }
        const QJsonObject made = withoutFreshIds(import.sceneDocument(), f.scene);
        const QJsonObject expected = withoutFreshIds(naive.sceneDocument(), f.scene);
        QVERIFY2(made == expected, qPrintable(texts));
    }
}

void tst_CSceneImport::sourceThatLeavesWhenAsked_data()
{
    QTest::addColumn<bool>("wholeScene");
    QTest::addColumn<bool>("byName");
    QTest::newRow("node, asked whether it is unique") << false << false;
    QTest::newRow("scene, asked whether it is unique") << true << false;
    QTest::newRow("node, asked for its name") << false << true;
    QTest::newRow("scene, asked for its name") << true << true;
}

void tst_CSceneImport::sourceThatLeavesWhenAsked()
{
    QFETCH(bool, wholeScene);
    QFETCH(bool, byName);
    auto scene = std::make_unique<CTestScene>(nullptr, nullptr);
    CNodeBase& node = scene->createNode(makeSource("cam"));
    auto* const model = static_cast<CHostModel*>(node.nodeDataModel());
    (byName ? model->onName : model->onIsUnique) = [&] {
        if (wholeScene)
            scene.reset();
        else
            scene->removeNode(node);
    };
    CSceneImport import(*scene);
    import.addDocument(document({fedBy("a", QJsonArray{QJsonArray{"cam"}, QJsonArray { "cam" }})}));
    const QJsonObject made = import.sceneDocument();
    QCOMPARE(nodesOf(made), QJsonArray{copiedView(idAt(made, 0))});
    QCOMPARE(CHostModel::alive(), 0);
}

void tst_CSceneImport::sceneIsLeftAsItIs()
{
    CFixture f;
    f.add("cam");
    f.import(QJsonArray{fedBy("a", QJsonArray{QJsonValue(QJsonArray{"cam"})}),
                        feeding("b", QJsonArray{QJsonValue(QJsonArray{"a"})})});
    QCOMPARE(f.scene.nodes().size(), std::size_t(1));
    QVERIFY(f.scene.connections().empty());
}

namespace {

/// A service with a unique source "cam", whose registry knows "View".
class CServiceFixture
{
public:
    CServiceFixture()
    {
        service.registry()->registerModel([] { return std::make_unique<CHostModel>(ENodeDataModelType::Sink, "View"); },
                                          QStringLiteral("Test"));
        cam = add("cam");
    }
    ~CServiceFixture() { QCOMPARE(inconsistencyOfScenes(service), QString()); }

    CHostModel* add(const QString& uniqueName)
    {
        auto model = makeSource(uniqueName);
        CHostModel* const added = model.get();
        service.addNode(std::move(model), nullptr);
        return added;
    }

    std::vector<CHostModel*> views() const
    {
        std::vector<CHostModel*> found;
        const auto documentNodes = service.documentNodes();
        for (CNodeBase* node : documentNodes)
            found.push_back(dynamic_cast<CHostModel*>(node->nodeDataModel()));
        return found;
    }

    CNodeService service{nullptr};
    CHostModel* cam = nullptr;
};

} // namespace

void tst_CSceneImport::chainCarriesData()
{
    CServiceFixture f;
    QJsonObject first = feeding("a", QJsonArray{QJsonValue(QJsonArray{"b", "c"})});
    first["unique_sources"] = QJsonArray{QJsonValue(QJsonArray{"cam"})};
    QVERIFY(f.service.importDocument(
        document({first, element("b"), feeding("c", QJsonArray{QJsonValue(QJsonArray{"d"})}), element("d")})));
    QCOMPARE(f.service.getActiveScene()->connections().size(), std::size_t(4));
    f.cam->offer(CTestData::make(6));
    QCOMPARE(f.views().size(), std::size_t(4));
    for (const CHostModel* view : f.views())
        QCOMPARE(view->received, (std::vector<std::pair<int, int>>{{6, 0}}));
    QCOMPARE(inconsistencyOf(*f.service.getActiveScene()), QString());
}

void tst_CSceneImport::chainOfSeveralPortsCarriesData()
{
    CServiceFixture f;
    const QJsonObject item{{"name", "b"}, {"index_in", 1}, {"index _out", 0}};
    QVERIFY(f.service.importDocument(document({element("b"), fedBy("a", QJsonArray{QJsonArray{}, QJsonArray{"cam"}}),
                                               feeding("c", QJsonArray{QJsonValue(QJsonArray{item})})})));
    std::vector<std::pair<int, int>> ports;
    for (const auto& entry : f.service.getActiveScene()->connections())
        ports.emplace_back(entry.second->getPortIndex(ENodePortType::In),
                           entry.second->getPortIndex(ENodePortType::Out));
    std::sort(ports.begin(), ports.end());
    QCOMPARE(ports, (std::vector<std::pair<int, int>>{{1, 0}, {1, 1}}));
    for (CHostModel* view : f.views())
        view->offer(CTestData::make(9)); // on output 0
    std::vector<std::pair<int, int>> received;
    for (const CHostModel* view : f.views())
        received.insert(received.end(), view->received.begin(), view->received.end());
    QCOMPARE(received, (std::vector<std::pair<int, int>>{{9, 1}}));
}

void tst_CSceneImport::sourceThatHasDataFeedsTheChainAtOnce()
{
    CServiceFixture f;
    f.cam->offer(CTestData::make(2));
    QVERIFY(f.service.importDocument(document({fedBy("a", QJsonArray{QJsonValue(QJsonArray{"cam"})})})));
    QCOMPARE(f.views().front()->received, (std::vector<std::pair<int, int>>{{2, 0}}));
}

void tst_CSceneImport::manyElementsAskLittle()
{
    CServiceFixture f;
    const int sources = 5000;
    const int elements = 10000;
    for (int i = 0; i < sources; ++i) {
        auto model = std::make_unique<CHostModel>(ENodeDataModelType::Source, "Source", QString("source-%1").arg(i));
        model->unique = true;
        f.service.getActiveScene()->createNode(std::move(model));
    }
    QJsonArray chain;
    for (int i = 0; i < elements; ++i) {
        const QJsonArray names{QString("source-%1").arg((i * 7) % sources), "cam"};
        chain.append(fedBy(QString("element-%1").arg(i), QJsonArray{QJsonValue(names)}));
    }

    int before = CHostModel::calls();
    CSceneImport import(*f.service.getActiveScene());
    import.addDocument(document(chain));
    const int buildCalls = CHostModel::calls() - before;
    QCOMPARE(nodesOf(import.sceneDocument()).size(), 3 * elements);

    before = CHostModel::calls();
    QVERIFY(f.service.importDocument(document(chain)));
    const int importCalls = CHostModel::calls() - before;
    QCOMPARE(f.service.getActiveScene()->nodes().size(), std::size_t(1 + sources + elements));
    QCOMPARE(f.service.getActiveScene()->connections().size(), std::size_t(2 * elements));

    // A search per mention would ask thousands of models ten thousand times.
    QVERIFY2(buildCalls < 10 * (sources + elements), qPrintable(QString::number(buildCalls)));
    QVERIFY2(importCalls < 50 * (sources + elements), qPrintable(QString::number(importCalls)));
}

QTEST_GUILESS_MAIN(tst_CSceneImport)
#include "tst_CSceneImport.moc"
