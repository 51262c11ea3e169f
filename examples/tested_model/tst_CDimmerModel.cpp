// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// The rules of models, tried from Qt Test.

#include "CDimmerModel.h"

#include <Halvex/testing/CheckData.h>
#include <Halvex/testing/CheckModel.h>

#include <QtTest>

using namespace Plugin::Halvex::Testing;

class tst_CDimmerModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void modelKeepsTheRules();
    void dataKeepsTheRules();
};

void tst_CDimmerModel::modelKeepsTheRules()
{
    SCheckOptions options;
    options.makeData = &makeBrightness;
    options.checksum = &checksumOfBrightness;
    const SReport report = checkModel([] { return std::make_unique<CDimmerModel>(); }, options);
    if (!report.findings.empty())
        QFAIL(qPrintable(toText(report)));
    if (!report.leftOut.empty())
        QFAIL(qPrintable(toText(report)));
}

void tst_CDimmerModel::dataKeepsTheRules()
{
    const SReport report = checkData([](int number) { return QSharedPointer<CBrightness>::create(number); });
    if (!report.findings.empty())
        QFAIL(qPrintable(toText(report)));
}

QTEST_GUILESS_MAIN(tst_CDimmerModel)
#include "tst_CDimmerModel.moc"
