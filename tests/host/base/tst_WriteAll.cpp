// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/WriteAll.h"

#include "TestFile.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Host;

class tst_WriteAll : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesEveryByte();
    void fullDeviceTellsItsReason();
};

void tst_WriteAll::writesEveryByte()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("data"));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    QVERIFY(writeAll(file, "frames", 6));
    QVERIFY(writeAll(file, nullptr, 0));
    file.close();
    QCOMPARE(content(file.fileName()), QByteArray("frames"));
}

void tst_WriteAll::fullDeviceTellsItsReason()
{
    QFile device("/dev/full");
    QVERIFY(device.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    QVERIFY(!writeAll(device, "frames", 6));
    QCOMPARE(device.errorString(), QString("No space left on device"));
}

QTEST_GUILESS_MAIN(tst_WriteAll)
#include "tst_WriteAll.moc"
