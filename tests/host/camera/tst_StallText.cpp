// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/StallText.h"

#include <QTest>

using namespace Host;

class tst_StallText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void silentFromTheBeginning();
    void silentAfterFrames();
    void nothingWhole();
    void overUsb();
};

void tst_StallText::silentFromTheBeginning()
{
    const QString text = cameraStallText("left", "5 s", true, false, {});
    QVERIFY2(text.startsWith("camera 'left' sends nothing: no frame for 5 s; "), qPrintable(text));
    for (const char* cause : {"trigger", "firewall", "GevSCPSPacketSize"})
        QVERIFY2(text.contains(cause), cause);
}

void tst_StallText::silentAfterFrames()
{
    SGrabStatistics before;
    before.grabbed = before.incomplete = 1;
    QCOMPARE(cameraStallText("left", "5 s", true, false, before),
             QStringLiteral("camera 'left' has gone: no frame for 5 s"));
}

void tst_StallText::nothingWhole()
{
    SGrabStatistics before;
    before.grabbed = before.incomplete = 7;
    const QString text = cameraStallText("left", "5 s", false, false, before);
    QVERIFY2(text.startsWith("camera 'left' gave no whole frame for 5 s, 7 incomplete ones in all; "),
             qPrintable(text));
    QVERIFY2(text.contains("GevSCPSPacketSize") && text.contains("--buffers"), qPrintable(text));
}

void tst_StallText::overUsb()
{
    SGrabStatistics before;
    before.grabbed = before.incomplete = 7;
    const QString incomplete = cameraStallText("left", "5 s", false, true, before);
    const QString silent = cameraStallText("left", "5 s", true, true, {});
    QVERIFY2(incomplete.contains("cable") && incomplete.contains("--fps"), qPrintable(incomplete));
    QVERIFY2(silent.contains("trigger") && silent.contains("usbfs_memory_mb"), qPrintable(silent));
    for (const char* ofNetworks : {"firewall", "packets", "GevSCPSPacketSize"})
        QVERIFY2(!incomplete.contains(ofNetworks) && !silent.contains(ofNetworks), ofNetworks);
    QCOMPARE(cameraStallText("left", "5 s", true, true, before),
             QStringLiteral("camera 'left' has gone: no frame for 5 s"));
}

QTEST_GUILESS_MAIN(tst_StallText)
#include "tst_StallText.moc"
