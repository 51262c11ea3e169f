// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What becomes of documents of scenes that are wrong.

#include "scene/SceneDocuments.h"
#include "support/CLeakTest.h"
#include "support/CMessageCatcher.h"

#include <QtTest>

#include <algorithm>

using namespace Plugin::Halvex;

namespace {

using CDecouplerModel = SDocumentWorld::CDecouplerModel;

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

class tst_WrongSceneDocuments : public CLeakTest
{
    Q_OBJECT

private Q_SLOTS:
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
};

void tst_WrongSceneDocuments::textThatIsNoSceneLoadsNothing_data()
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

void tst_WrongSceneDocuments::textThatIsNoSceneLoadsNothing()
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

void tst_WrongSceneDocuments::wrongTypes_data()
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

void tst_WrongSceneDocuments::wrongTypes()
{
    QFETCH(const SPlace, place);
    QFETCH(const QJsonValue, value);
    const QJsonObject type = typeJson(CTestData::defaultType());
    const QJsonObject decoupler{{"name", "DecouplerT"}, {"property", QJsonObject{{"frames_per_second", 30}}}};
    const QJsonObject connection =
        with(connectionJson(idA, idB), "converter", QJsonObject{{"in", type}, {"out", type}});
    const QByteArray valid = documentOf({nodeJson(idA), with(nodeJson(idB), "model", decoupler)}, {connection});

    const SDocumentWorld world;
    world.registry->registerTypeConverter({CTestData::defaultType(), CTestData::defaultType()}, &passOn);
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

void tst_WrongSceneDocuments::portIndices_data()
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

void tst_WrongSceneDocuments::portIndices()
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

void tst_WrongSceneDocuments::ids_data()
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

void tst_WrongSceneDocuments::ids()
{
    QFETCH(const QJsonValue, saved);
    QFETCH(const QString, id);
    const SDocumentWorld world;
    world.load({with(nodeJson(idA), "id", saved), nodeJson(idB)}, {with(connectionJson(idA, idB), "out_id", saved)});

    QVERIFY(world.has(id));
    QCOMPARE(world.contents(), contentsOf(documentOf({nodeJson(id), nodeJson(idB)}, {connectionJson(id, idB)})));
    QCOMPARE(faultOf(*world.scene), QString());
}

void tst_WrongSceneDocuments::duplicateIdsLeaveTheLast()
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

void tst_WrongSceneDocuments::connectionToNothingIsRejected_data()
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

void tst_WrongSceneDocuments::connectionToNothingIsRejected()
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

QTEST_GUILESS_MAIN(tst_WrongSceneDocuments)
#include "tst_WrongSceneDocuments.moc"
