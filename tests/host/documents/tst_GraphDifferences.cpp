// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/GraphDifferences.h"

#include "SReadDocuments.h"
#include "TestTable.h"
#include "host/documents/SComparedGraph.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Host;

namespace {

const char chain[] = R"([
    {'name': 'image', 'model': {'name': 'To Image'}, 'unique_sources': [['*']], 'connection': [['blur', 'edges']]},
    {'name': 'blur', 'model': {'name': 'Blur', 'property': {'size': 15}}, 'connection': [['files']]},
    {'name': 'edges', 'model': {'name': 'Edges'}},
    {'name': 'files', 'model': {'name': 'PNG Sink', 'property': {'sink_name': 'files'}}}])";

QByteArray changed(const QByteArray& before, const QByteArray& after)
{
    return QByteArray(chain).replace(before, after);
}

// Nodes 1 to 3 in a line behind the camera 0, the ids with that beginning.
QByteArray scene(const QByteArray& ids, const QByteArray& size = "15")
{
    return QByteArray(R"({'nodes': [
        {'id': 'X0000000-0000-0000-0000-000000000000', 'model': {'name': 'Camera Source', 'is_unique': true}},
        {'id': 'X0000000-0000-0000-0000-000000000001', 'model': {'name': 'To Image', 'is_unique': false}},
        {'id': 'X0000000-0000-0000-0000-000000000002', 'model': {'name': 'Blur', 'property': {'size': SIZE}}},
        {'id': 'X0000000-0000-0000-0000-000000000003', 'model': {'name': 'Blur'}}], 'connections': [
        {'out_id': 'X0000000-0000-0000-0000-000000000000', 'out_index': 0,
         'in_id': 'X0000000-0000-0000-0000-000000000001', 'in_index': 0},
        {'out_id': 'X0000000-0000-0000-0000-000000000001', 'out_index': 0,
         'in_id': 'X0000000-0000-0000-0000-000000000002', 'in_index': 0},
        {'out_id': 'X0000000-0000-0000-0000-000000000002', 'out_index': 0,
         'in_id': 'X0000000-0000-0000-0000-000000000003', 'in_index': 0}]})")
        .replace('X', ids)
        .replace("SIZE", size);
}

} // namespace

class tst_GraphDifferences : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void same_data();
    void same();
    void different_data();
    void different();
    void manyThatLookTheSame();
    void asJson();

private:
    QStringList compare(const QByteArray& left, const QByteArray& right);

    SReadDocuments m_documents;
};

QStringList tst_GraphDifferences::compare(const QByteArray& left, const QByteArray& right)
{
    Plugin::Halvex::CNodeDataModelRegistry& registry = *m_documents.host.nodes.registry();
    QStringList lines;
    for (const SDifference& each : graphDifferences(comparedGraph(m_documents.graphOf(left), registry),
                                                    comparedGraph(m_documents.graphOf(right), registry)))
        lines << differenceLine(each);
    return lines;
}

void tst_GraphDifferences::same_data()
{
    addColumns<QByteArray, QByteArray>({"left", "right"});
    const QByteArray left(chain);
    addRow("itself", left, left);
    addRow("other names", left, changed("'edges'", "'outline'").replace("'blur'", "'edges'"));
    addRow("defaults written", left,
           changed("{'name': 'Edges'}", "{'name': 'Edges', 'property': {'most_waiting': 16}}"));
    addRow("a string for an object", left, changed("['files']", "[{'name': 'files', 'index_in': 0, 'index _out': 0}]"));
    addRow("other ids", scene("a"), scene("b"));
    addRow("a chain and its scene",
           QByteArray("[{'name': 'a', 'model': {'name': 'To Image'}, 'unique_sources': [['*']], 'connection': [['b']]},"
                      "{'name': 'b', 'model': {'name': 'Blur', 'property': {'size': 15}}, 'connection': [['c']]},"
                      "{'name': 'c', 'model': {'name': 'Blur'}}]"),
           scene("c"));
}

void tst_GraphDifferences::same()
{
    QFETCH(QByteArray, left);
    QFETCH(QByteArray, right);
    QCOMPARE(compare(left, right), QStringList());
    QCOMPARE(compare(right, left), QStringList());
}

void tst_GraphDifferences::different_data()
{
    addColumns<QByteArray, QStringList>({"right", "lines"});
    addRow("a setting", changed("15", "21"), QStringList{"nodes[\"blur\"].model.property.size: 15 here, 21 there"});
    addRow("a setting that is written in one", changed(", 'property': {'size': 15}", ""),
           QStringList{"nodes[\"blur\"].model.property.size: 15 here, 7 there"});
    addRow("another model", changed("'Edges'", "'Threshold'"),
           QStringList{"nodes[\"edges\"].model.name: \"Edges\" here, \"Threshold\" there",
                       "nodes[\"edges\"].model.property.level: 150 here, 128 there",
                       "nodes[\"edges\"].model.property.method: \"Canny\" here, \"Otsu\" there",
                       "nodes[\"edges\"].model.property.size: 3 here, none there"});
    addRow("a camera", changed("'*'", "'left'"),
           QStringList{"nodes[\"camera\"].model.unique_name: none here, \"left\" there"});
    addRow("a node less", changed(", 'edges'", "").replace("{'name': 'edges', 'model': {'name': 'Edges'}},", ""),
           QStringList{"nodes[\"edges\"]: only here", "connections[\"image\" -> \"edges\"]: only here"});
    addRow("a node more",
           changed("'Edges'}}", "'Edges'}, 'connection': [['more']]}, {'name': 'more', 'model': {'name': 'Blur'}}"),
           QStringList{"nodes[\"more\"]: only there", "connections[\"edges\" -> \"more\"]: only there"});
    addRow("a connection elsewhere",
           changed("['blur', 'edges']", "['blur']").replace("['files']", "['files', 'edges']"),
           QStringList{"connections[\"image\" -> \"edges\"]: only here",
                       "connections[\"blur\" -> \"edges\"]: only there"});
    addRow("ports", changed("['files']", "[{'name': 'files', 'index_in': 1, 'index _out': 2}]"),
           QStringList{"connections[\"blur\" -> \"files\"]: only here",
                       "connections[\"blur\" port 2 -> \"files\" port 1]: only there"});
    addRow("twice", changed("['files']", "['files', 'files']"),
           QStringList{"connections[\"blur\" -> \"files\"]: only there"});
}

void tst_GraphDifferences::different()
{
    QFETCH(QByteArray, right);
    QTEST(compare(chain, right), "lines");
}

void tst_GraphDifferences::manyThatLookTheSame()
{
    // A line of equal filters, further than one looks around, and the same one with other ids.
    const auto line = [](const QByteArray& prefix) {
        QByteArray text = "[{'name': '" + prefix + "0', 'model': {'name': 'To Image'}, 'unique_sources': [['*']]";
        for (int i = 1; i < 300; ++i) {
            const QByteArray name = prefix + QByteArray::number(i);
            text += ", 'connection': [['" + name + "']]}, {'name': '" + name + "', 'model': {'name': 'Blur'}";
        }
        return text + "}]";
    };
    QCOMPARE(compare(line("a"), line("b")), QStringList());
}

void tst_GraphDifferences::asJson()
{
    const QJsonObject json =
        QJsonDocument::fromJson(
            differencesJson("a", "b", {{"nodes[\"x\"].model.name", "A", QJsonValue::Undefined, false}}))
            .object();
    QCOMPARE(json["a"].toString(), QString("a"));
    QVERIFY(!json["same"].toBool(true));
    QCOMPARE(json["differences"][0]["path"].toString(), QString("nodes[\"x\"].model.name"));
    QCOMPARE(json["differences"][0]["here"].toString(), QString("A"));
    QVERIFY(json["differences"][0]["there"].isUndefined());
    QVERIFY(QJsonDocument::fromJson(differencesJson("a", "b", {})).object()["same"].toBool());
}

QTEST_GUILESS_MAIN(tst_GraphDifferences)
#include "tst_GraphDifferences.moc"
