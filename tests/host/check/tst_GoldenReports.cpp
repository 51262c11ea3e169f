// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Documents and the exact reports that come of them: golden/<run>/<document>.json and .txt. After a message has
// changed, HALVEX_WRITE_REPORTS=1 writes the reports anew, to be read before they are committed.

#include "host/check/CheckFiles.h"

#include "SCheckedService.h"
#include "TestFile.h"
#include "TestTable.h"

#include <QDir>
#include <QMap>

using namespace Host;

namespace {

// What the documents of a folder are checked for.
const QMap<QString, SCheckOptions> runs{
    {"syntax", withCameras({"fake"})},
    {"chain", withCameras({"fake"})},
    {"two-cameras", withCameras({"left", "right"})},
    {"no-cameras", {}},
    {"scene", withCameras({"fake"})},
};

} // namespace

class tst_GoldenReports : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void enoughDocuments();
    void report_data();
    void report();
};

void tst_GoldenReports::enoughDocuments()
{
    int broken = 0;
    const QDir golden(GOLDEN_REPORTS);
    for (const QString& run : golden.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QVERIFY2(runs.contains(run), qPrintable(run));
        const QDir folder(golden.filePath(run));
        for (const QString& report : folder.entryList({"*.txt"}, QDir::Files))
            broken += content(folder.filePath(report)).contains(": error: ") ? 1 : 0;
    }
    QVERIFY2(broken >= 60, qPrintable(QString::number(broken)));
}

void tst_GoldenReports::report_data()
{
    addColumns<QString, QString>({"run", "document"});
    for (const QString& run : runs.keys()) {
        const QDir folder(QDir(GOLDEN_REPORTS).filePath(run));
        for (const QString& document : folder.entryList({"*.json"}, QDir::Files, QDir::Name))
            addRow(qPrintable(run + '/' + document), run, document);
    }
}

void tst_GoldenReports::report()
{
    QFETCH(QString, run);
    QFETCH(QString, document);
    // Reports name the file as it was given.
    QVERIFY(QDir::setCurrent(QDir(GOLDEN_REPORTS).filePath(run)));
    SCheckedService service(runs.value(run));
    const SCheckOutcome outcome = checkFiles({document}, service.check);
    const QString file = QString(document).replace(".json", ".txt");
    if (qEnvironmentVariableIsSet("HALVEX_WRITE_REPORTS"))
        QVERIFY(write(file, outcome.report));
    const QByteArray expected = content(file);
    QCOMPARE(QString::fromUtf8(outcome.report), QString::fromUtf8(expected));
    QCOMPARE(outcome.exitCode, expected.contains(": error: ") ? 1 : 0);
    QVERIFY(service.host.nodes.scenes().isEmpty());
}

QTEST_GUILESS_MAIN(tst_GoldenReports)
#include "tst_GoldenReports.moc"
