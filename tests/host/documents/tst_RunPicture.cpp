// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/RunPicture.h"

#include "TestTable.h"
#include "host/report/SRunReport.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Host;

namespace {

QByteArray reportOf(const std::vector<SRunReport>& reports)
{
    QJsonArray cameras;
    for (const SRunReport& report : reports)
        cameras.append(report.json());
    return QJsonDocument(QJsonObject{{"cameras", cameras}}).toJson();
}

SRunReport sample()
{
    SRunReport report;
    report.camera = QStringLiteral("Fake");
    report.nodes.resize(2);
    report.nodes[0].kind = ENodeKind::Source;
    report.nodes[0].framesPerSecond = 196.24;
    report.nodes[1].kind = ENodeKind::Decoupler;
    report.nodes[1].name = QStringLiteral("[1] Decoupler");
    report.nodes[1].dropped = 3;
    report.connections.push_back({0, 1, {}, QStringLiteral("port 1"), QStringLiteral("VGR"), 300});
    return report;
}

} // namespace

class tst_RunPicture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ratesAndDrops();
    void camerasAreGroups();
    void noReport_data();
    void noReport();
};

void tst_RunPicture::ratesAndDrops()
{
    QString error;
    const SPicture picture = runPicture(reportOf({sample()}), &error);
    QCOMPARE(error, QString());
    QVERIFY(picture.nodes[0].kind == ENodeKind::Source);
    QCOMPARE(picture.nodes[0].note, QString("196.2 per second"));
    QVERIFY(picture.nodes[1].kind == ENodeKind::Decoupler);
    QCOMPARE(picture.nodes[1].caption, QString("[1] Decoupler"));
    QCOMPARE(picture.nodes[1].warning, QString("3 dropped"));
    QCOMPARE(picture.edges.size(), std::size_t(1));
    QCOMPARE(picture.edges[0].type, QString("VGR"));
    QCOMPARE(picture.edges[0].note, QString("300 frames"));
    QCOMPARE(picture.edges[0].inPort, QString("port 1"));
    QVERIFY(picture.groups.isEmpty());
}

void tst_RunPicture::camerasAreGroups()
{
    QString error;
    const SPicture picture = runPicture(reportOf({sample(), sample()}), &error);
    QCOMPARE(picture.groups, QStringList({"Fake", "Fake"}));
    QCOMPARE(picture.nodes[2].group, 1);
    QCOMPARE(picture.edges[1].from, 2);
    QCOMPARE(picture.edges[1].to, 3);
}

void tst_RunPicture::noReport_data()
{
    addColumns<QByteArray, QString>({"report", "error"});
    const QString none = QStringLiteral("it is no report of 'halvex-host run --json'");
    addRow("empty", QByteArray(), QStringLiteral("no JSON: illegal value at offset 0"));
    addRow("another document", QByteArray("[]"), none);
    addRow("without nodes", QByteArray("{\"cameras\": [{}]}"), none);
    addRow("an edge to nowhere",
           QByteArray("{\"cameras\": [{\"nodes\": [{}], \"connections\": [{\"from\": 0, \"to\": 1}]}]}"), none);
}

void tst_RunPicture::noReport()
{
    QFETCH(QByteArray, report);
    QString error;
    QVERIFY(runPicture(report, &error).nodes.empty());
    QTEST(error, "error");
}

QTEST_GUILESS_MAIN(tst_RunPicture)
#include "tst_RunPicture.moc"
