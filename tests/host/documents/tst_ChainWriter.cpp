// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/ChainWriter.h"

#include "SReadDocuments.h"
#include "TestJson.h"
#include "host/check/FaultReport.h"

#include <QTest>

using namespace Host;

namespace {

// The camera, 'To Image' and 'Split', with these connections between their last digits.
QByteArray scene(const QByteArray& connections, const QByteArray& camera = {})
{
    QByteArray text = R"({'nodes': [
{'id': '00000000-0000-0000-0000-000000000003', 'model': {'name': 'Split', 'is_unique': false}},
{'id': '00000000-0000-0000-0000-000000000001', 'model': {'name': 'Camera Source', 'is_unique': true CAMERA}},
{'id': '00000000-0000-0000-0000-000000000002', 'model': {'name': 'To Image', 'is_unique': false}},
{'id': '00000000-0000-0000-0000-000000000004', 'model': {'name': 'Split', 'is_unique': false}}],
'connections': [CONNECTIONS]})";
    return text.replace("CAMERA", camera).replace("CONNECTIONS", connections);
}

QByteArray connection(char from, int outPort, char to, int inPort, const QByteArray& more = {})
{
    QByteArray text = "{'out_id': '00000000-0000-0000-0000-00000000000F', 'out_index': OUT,"
                      " 'in_id': '00000000-0000-0000-0000-00000000000T', 'in_index': IN MORE}";
    return text.replace("F'", QByteArray(1, from) + "'")
        .replace("T'", QByteArray(1, to) + "'")
        .replace("OUT", QByteArray::number(outPort))
        .replace("IN", QByteArray::number(inPort))
        .replace("MORE", more);
}

} // namespace

class tst_ChainWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void elementsInTheOrderOfTheFlow();
    void cameraKeepsItsName();
    void whatAChainCannotSay();

private:
    QStringList faultsOf(const QByteArray& text);

    SReadDocuments m_documents;
};

QStringList tst_ChainWriter::faultsOf(const QByteArray& text)
{
    CModelCatalogue models(*m_documents.host.nodes.registry());
    QStringList lines;
    for (const SFault& fault : chainFaults(m_documents.graphOf(text), models))
        lines << faultLine("scene.json", fault);
    return lines;
}

void tst_ChainWriter::elementsInTheOrderOfTheFlow()
{
    const QByteArray text = scene(connection('1', 0, '2', 0) + ',' + connection('2', 0, '3', 1) + ',' +
                                  connection('3', 1, '4', 0) + ',' + connection('3', 0, '4', 1));
    QCOMPARE(faultsOf(text), QStringList());
    QCOMPARE(QJsonValue(QJsonDocument::fromJson(chainText(m_documents.graphOf(text))).array()), json(R"([
        {'name': 'To Image', 'model': {'name': 'To Image'}, 'unique_sources': [['*']],
         'connection': [[{'name': 'Split', 'index_in': 1, 'index _out': 0}]]},
        {'name': 'Split', 'model': {'name': 'Split'},
         'connection': [[{'name': 'Split 2', 'index_in': 0, 'index _out': 1},
                         {'name': 'Split 2', 'index_in': 1, 'index _out': 0}]]},
        {'name': 'Split 2', 'model': {'name': 'Split'}}])"));
}

void tst_ChainWriter::cameraKeepsItsName()
{
    // Which no element may have as well.
    const QByteArray text = scene(connection('1', 0, '2', 0), ", 'unique_name': 'To Image'");
    const QJsonArray chain = QJsonDocument::fromJson(chainText(m_documents.graphOf(text))).array();
    QStringList names;
    for (const QJsonValue& element : chain)
        names << element["name"].toString();
    QCOMPARE(names, QStringList({"Split", "Split 2", "To Image 2"}));
    QCOMPARE(chain.at(2)["unique_sources"], json("[['To Image']]"));
}

void tst_ChainWriter::whatAChainCannotSay()
{
    const QByteArray converter = ", 'converter': {'out': {'id': 'Veltra Grab Result', 'name': 'VGR'},"
                                 " 'in': {'id': 'Host Image', 'name': 'IMG'}}";
    const QStringList faults =
        faultsOf(scene(connection('1', 0, '3', 0, converter) + ",\n" + connection('1', 0, '3', 1)));
    QCOMPARE(faults.size(), 2);
    QVERIFY(faults[0].startsWith("scene.json:6:"));
    QVERIFY(faults[0].endsWith("error: $.connections[0].converter: a chain's connections have no converter; "
                               "put a 'To Image' between"));
    QCOMPARE(faults[1],
             QString("scene.json:7:1: error: $.connections[1]: a chain takes output 0 of a camera to input 0, "
                     "not to input 1"));
}

QTEST_GUILESS_MAIN(tst_ChainWriter)
#include "tst_ChainWriter.moc"
