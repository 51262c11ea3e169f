// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Documents and the exact reports that come of them: golden/<folder>/<document>.json and .txt. After a message has
// changed, HALVEX_WRITE_REPORTS=1 writes the reports anew, to be read before they are committed.

#include "host/check/CheckFiles.h"

#include "SCheckedService.h"
#include "TestFile.h"
#include "TestTable.h"

#include <QDir>

using namespace Host;

namespace {

QStringList foldersOfDocuments()
{
    return QDir(GOLDEN_REPORTS).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
}

SCheckOptions optionsOf(const QString& folder)
{
    if (folder == "no-cameras")
        return {};
    return withCameras(folder == "two-cameras" ? QStringList{"left", "right"} : QStringList{"fake"});
}

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
    const QStringList folders = foldersOfDocuments();
    for (const QString& name : folders) {
        const QDir folder(QDir(GOLDEN_REPORTS).filePath(name));
        const QStringList reports = folder.entryList({"*.txt"}, QDir::Files);
        for (const QString& report : reports)
            broken += content(folder.filePath(report)).contains(": error: ") ? 1 : 0;
    }
    QVERIFY2(broken >= 60, qPrintable(QString::number(broken)));
}

void tst_GoldenReports::report_data()
{
    addColumns<QString, QString>({"folder", "document"});
    const QStringList folders = foldersOfDocuments();
    for (const QString& folder : folders) {
        const QStringList documents =
            QDir(QDir(GOLDEN_REPORTS).filePath(folder)).entryList({"*.json"}, QDir::Files, QDir::Name);
        for (const QString& document : documents)
            addRow(qPrintable(folder + '/' + document), folder, document);
    }
}

void tst_GoldenReports::report()
{
    QFETCH(QString, folder);
    QFETCH(QString, document);
    // Reports name the file as it was given.
    QVERIFY(QDir::setCurrent(QDir(GOLDEN_REPORTS).filePath(folder)));
    SCheckedService service(optionsOf(folder));
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
