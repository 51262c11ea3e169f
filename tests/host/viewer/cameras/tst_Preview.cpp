// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/Preview.h"

#include "TestGrab.h"
#include "TestTable.h"

using namespace Host;

class tst_Preview : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fitsAndShowsTheValue_data();
    void fitsAndShowsTheValue();
    void nothingToShow();
};

void tst_Preview::fitsAndShowsTheValue_data()
{
    addColumns<QString, int>({"format", "bytes"});
    addRow("grey", QString("Mono8"), 1);
    addRow("16 bits", QString("Mono16"), 2);
    addRow("colour", QString("RGB8"), 3);
}

void tst_Preview::fitsAndShowsTheValue()
{
    QFETCH(QString, format);
    QFETCH(int, bytes);
    const QImage preview = previewOf(testGrab(1, qPrintable(format), bytes, 100), {32, 32});
    QCOMPARE(preview.size(), QSize(32, 24));
    QCOMPARE(preview.pixelColor(10, 10), QColor(100, 100, 100));
}

void tst_Preview::nothingToShow()
{
    QVERIFY(previewOf({}, {32, 32}).isNull());
    QVERIFY(previewOf(testGrab(1, "Mono1p"), {32, 32}).isNull());
}

QTEST_GUILESS_MAIN(tst_Preview)
#include "tst_Preview.moc"
