// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/SceneFile.h"

#include "TestJson.h"

#include <QTest>

using namespace Host;

namespace {

QByteArray text(const QJsonArray& nodes, const QJsonArray& connections)
{
    return QJsonDocument(QJsonObject{{"nodes", nodes}, {"connections", connections}}).toJson();
}

QJsonObject node(const char* id, const char* uniqueName = nullptr)
{
    QJsonObject model{{"name", "Any"}};
    if (uniqueName) {
        model.insert("is_unique", true);
        model.insert("unique_name", uniqueName);
    }
    return {{"id", id}, {"model", model}};
}

QJsonObject connection(const char* from, const char* to, int outIndex = 0)
{
    return {{"out_id", from}, {"out_index", outIndex}, {"in_id", to}, {"in_index", 0}};
}

QStringList idsOf(const QByteArray& scene)
{
    QStringList ids;
    const QJsonArray nodes = QJsonDocument::fromJson(scene).object().value("nodes").toArray();
    for (const QJsonValue& each : nodes)
        ids << each["id"].toString();
    return ids;
}

} // namespace

class tst_SceneFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void flowThenId();
    void orderOfTheDocumentDoesNotMatter();
    void loopsHaveAnOrderToo();
    void uniqueNodeIsNamedByItsUniqueName();
};

void tst_SceneFile::flowThenId()
{
    const QByteArray scene = orderedScene(text({node("a"), node("b"), node("c"), node("d")},
                                               {connection("d", "c"), connection("d", "b"), connection("c", "a")}));
    QCOMPARE(idsOf(scene), QStringList({"d", "b", "c", "a"}));
}

void tst_SceneFile::orderOfTheDocumentDoesNotMatter()
{
    const QByteArray one = orderedScene(text({node("a"), node("b"), node("c")},
                                             {connection("b", "a", 1), connection("b", "a", 0), connection("c", "a")}));
    const QByteArray other = orderedScene(text(
        {node("c"), node("b"), node("a")}, {connection("c", "a"), connection("b", "a", 0), connection("b", "a", 1)}));
    QCOMPARE(one, other);
    QCOMPARE(orderedScene(one), one);
    QVERIFY(one.endsWith("}\n"));
}

void tst_SceneFile::loopsHaveAnOrderToo()
{
    const QJsonArray loop{connection("c", "b"), connection("b", "a"), connection("a", "b"), connection("a", "d")};
    QCOMPARE(idsOf(orderedScene(text({node("d"), node("c"), node("b"), node("a")}, loop))),
             QStringList({"c", "b", "a", "d"}));
}

void tst_SceneFile::uniqueNodeIsNamedByItsUniqueName()
{
    const auto scene = [](const char* id, const char* name) {
        return orderedScene(text({node("x"), node(id, name)}, {connection(id, "x")}));
    };
    QCOMPARE(scene("1", "left"), scene("2", "left"));
    QVERIFY(idsOf(scene("1", "left")) != idsOf(scene("1", "right")));
    const QJsonObject document = QJsonDocument::fromJson(scene("1", "left")).object();
    QCOMPARE(document["connections"][0]["out_id"], document["nodes"][0]["id"]);
    QVERIFY(idsOf(orderedScene(text({node("1", "left"), node("2", "left")}, {}))).contains("2"));
}

QTEST_GUILESS_MAIN(tst_SceneFile)
#include "tst_SceneFile.moc"
