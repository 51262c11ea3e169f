// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Models that each break one rule, and the exact report of each: golden/<model>.txt. After a text has changed,
// HALVEX_WRITE_REPORTS=1 writes the reports anew, to be read before they are committed.

#include "CNumberModel.h"
#include "GoldenFile.h"
#include "WrongModels.h"

#include <Halvex/testing/CheckModel.h>
#include <Halvex/testing/SRuleInfo.h>

#include <QDir>
#include <QSet>
#include <QtTest>

using namespace Plugin::Halvex;
using namespace Plugin::Halvex::Testing;

Q_DECLARE_METATYPE(SWrongModel)

class tst_WrongModels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theSoundOneKeepsAllRules();
    void everyReportHasItsModel();
    void everyRuleHasAWrongModel();
    void report_data();
    void report();
};

void tst_WrongModels::theSoundOneKeepsAllRules()
{
    const SReport report = checkModel([] { return std::make_unique<CNumberModel>(); }, numberOptions());
    QVERIFY2(report.findings.empty() && report.leftOut.empty(), qPrintable(toText(report)));
    QCOMPARE(std::size_t(report.kept), modelRules().size());
}

void tst_WrongModels::everyReportHasItsModel()
{
    QStringList expected;
    for (const SWrongModel& model : wrongModels())
        expected << QString(model.name) + ".txt";
#ifndef COUNTS_MEMORY
    expected << "leaves-memory.txt";
#endif
    expected.sort();
    QCOMPARE(QDir(GOLDEN_REPORTS).entryList({"*.txt"}, QDir::Files, QDir::Name), expected);
}

void tst_WrongModels::everyRuleHasAWrongModel()
{
    QSet<QString> broken;
    for (const SWrongModel& model : wrongModels())
        broken << model.rule;
    // Told by a crash alone, which tst_HalvexCheck has.
    broken << "goes-in-its-own-signals";
    for (const SRuleInfo& rule : modelRules())
        QVERIFY2(broken.contains(rule.name), qPrintable(rule.name));
}

void tst_WrongModels::report_data()
{
    QTest::addColumn<SWrongModel>("wrong");
    for (const SWrongModel& model : wrongModels())
        QTest::newRow(model.name) << model;
}

void tst_WrongModels::report()
{
    QFETCH(SWrongModel, wrong);
    SReport report = checkModel(wrong.creator, wrong.options);
    report.times.clear(); // others each time
    const QString text = toText(report);
    QVERIFY2(report.findings.size() == 1, qPrintable(text));
    QCOMPARE(report.findings.front().rule, QString(wrong.rule));
    compareWithGolden(QString(wrong.name) + ".txt", text);
}

QTEST_GUILESS_MAIN(tst_WrongModels)
#include "tst_WrongModels.moc"
