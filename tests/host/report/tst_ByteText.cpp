// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/ByteText.h"

#include <QTest>

using namespace Host;

class tst_ByteText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void units();
    void whereTheUnitChanges();
};

void tst_ByteText::units()
{
    QCOMPARE(byteText(1), QStringLiteral("1 byte"));
    QCOMPARE(byteText(9000), QStringLiteral("9000 bytes"));
    QCOMPARE(byteText(65536), QStringLiteral("64 KiB"));
    QCOMPARE(byteText(5 * 1024 * 1024 + 102400), QStringLiteral("5.1 MiB"));
}

void tst_ByteText::whereTheUnitChanges()
{
    QCOMPARE(byteText(10 * 1024 - 1), QStringLiteral("10239 bytes"));
    QCOMPARE(byteText(quint64(10) * 1024), QStringLiteral("10 KiB"));
    QCOMPARE(byteText(quint64(1024) * 1024), QStringLiteral("1.0 MiB"));
}

QTEST_GUILESS_MAIN(tst_ByteText)
#include "tst_ByteText.moc"
