// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/StallText.h"

#include <QTest>

using namespace Host;

using EStall = IFrameSource::EStall;

namespace {

SStalledCamera networkCamera(quint64 packetBytes)
{
    SStalledCamera camera;
    camera.address = QStringLiteral("left");
    camera.buffers = 16;
    camera.packetBytes = packetBytes;
    return camera;
}

SStalledCamera usbCamera()
{
    SStalledCamera camera;
    camera.address = QStringLiteral("left");
    camera.isUsb = true;
    camera.buffers = 16;
    return camera;
}

SGrabStatistics incompleteFrames(quint64 count)
{
    SGrabStatistics before;
    before.grabbed = before.incomplete = count;
    return before;
}

} // namespace

class tst_StallText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void silentFromTheBeginning();
    void silentAfterFrames();
    void waitsForTrigger();
    void nothingWhole();
    void suggestsNothingThatIsSo();
    void noFreeBuffer();
    void overUsb();
};

void tst_StallText::silentFromTheBeginning()
{
    QCOMPARE(cameraStallText(networkCamera(9000), "5 s", EStall::Silent, {}),
             QStringLiteral("camera 'left' sends nothing: no frame for 5 s; is a firewall in the way, are its packets "
                            "too large for the network (--camera-set GevSCPSPacketSize=1400) or does one exposure take "
                            "longer (--timeout)?"));
}

void tst_StallText::silentAfterFrames()
{
    const QString gone = QStringLiteral("camera 'left' has gone: no frame for 5 s");
    QCOMPARE(cameraStallText(networkCamera(9000), "5 s", EStall::Silent, incompleteFrames(1)), gone);
    QCOMPARE(cameraStallText(usbCamera(), "5 s", EStall::Silent, incompleteFrames(1)), gone);
}

void tst_StallText::waitsForTrigger()
{
    SStalledCamera camera = networkCamera(9000);
    camera.waitsForTrigger = true;
    QCOMPARE(cameraStallText(camera, "5 s", EStall::Silent, {}),
             QStringLiteral("camera 'left' sends nothing: no frame for 5 s; it waits for a trigger (--camera-set "
                            "TriggerMode=Off)"));
}

void tst_StallText::nothingWhole()
{
    const QString text = cameraStallText(networkCamera(9000), "5 s", EStall::Incomplete, incompleteFrames(7));
    QVERIFY2(text.startsWith("camera 'left' gave no whole frame for 5 s, 7 incomplete ones in all; try "),
             qPrintable(text));
    QVERIFY2(text.contains("GevSCPSPacketSize") && text.contains("--buffers 64"), qPrintable(text));
}

void tst_StallText::suggestsNothingThatIsSo()
{
    SStalledCamera camera = networkCamera(1400);
    camera.buffers = 64;
    const QString incomplete = cameraStallText(camera, "5 s", EStall::Incomplete, incompleteFrames(7));
    QVERIFY2(incomplete.endsWith("; try another cable or fewer frames per second (--fps)"), qPrintable(incomplete));
    const QString silent = cameraStallText(camera, "5 s", EStall::Silent, {});
    QVERIFY2(!silent.contains("GevSCPSPacketSize") && !silent.contains("trigger"), qPrintable(silent));
}

void tst_StallText::noFreeBuffer()
{
    QCOMPARE(cameraStallText(networkCamera(1400), "5 s", EStall::NoFreeBuffer, {}),
             QStringLiteral("the graph holds as many frames of camera 'left' as may be in flight (16), and gave none "
                            "back for 5 s; try more (--buffers 64), or a longer --timeout"));
}

void tst_StallText::overUsb()
{
    const QString incomplete = cameraStallText(usbCamera(), "5 s", EStall::Incomplete, incompleteFrames(7));
    const QString silent = cameraStallText(usbCamera(), "5 s", EStall::Silent, {});
    QVERIFY2(incomplete.contains("cable") && incomplete.contains("--fps"), qPrintable(incomplete));
    QVERIFY2(silent.contains("usbfs_memory_mb"), qPrintable(silent));
    for (const char* ofNetworks : {"firewall", "packets", "GevSCPSPacketSize"})
        QVERIFY2(!incomplete.contains(ofNetworks) && !silent.contains(ofNetworks), ofNetworks);
}

QTEST_GUILESS_MAIN(tst_StallText)
#include "tst_StallText.moc"
