// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/SLinkReport.h"

#include <QTest>

using namespace Host;

class tst_SLinkReport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void dashesStandWhereNothingWasMeasured();
    void text();
    void missedFrames();
    void usbHasNoPackets();
    void lineIsAsWideAsTheTerminal();
};

namespace {

// Of a camera of that address, tested for two seconds.
SLinkReport tested(const QString& address)
{
    SLinkReport report;
    report.camera = QStringLiteral("Maker Model (%1), 640 x 480 Mono8").arg(address);
    report.address = address;
    report.time = std::chrono::milliseconds(2000);
    report.span = std::chrono::milliseconds(1000);
    return report;
}

} // namespace

void tst_SLinkReport::defaults()
{
    const SLinkReport report;
    QVERIFY(!report.isSound());
    QVERIFY(!report.framesPerSecond());
    QVERIFY(!report.bytesPerSecond());
    const QJsonObject json = report.json();
    QVERIFY(json["packets"]["received"].isNull());
    QVERIFY(json["link"]["interface"].isNull());
    QVERIFY(json["asked_frames_per_second"].isNull());
    SLinkReport asked;
    asked.askedForPerSecond = 12.5;
    QCOMPARE(asked.json().value("asked_frames_per_second").toDouble(), 12.5);
}

void tst_SLinkReport::dashesStandWhereNothingWasMeasured()
{
    SLinkReport report;
    report.frames.grabbed = report.frames.complete = 2;
    for (const char* line : {"\nData rate          -\n", "\nInterface          -\n", "\nPacket size        -\n",
                             "\nPackets received   -\n", "\nSocket buffer      -\n", "\nKernel drops       -\n"})
        QVERIFY2(report.text().contains(line), line);
    QVERIFY(SLinkReport().text().contains("\nFrames missed      -\n"));
    QVERIFY(SLinkReport().json().value("frames")["missed"].isNull());
}

void tst_SLinkReport::text()
{
    SLinkReport report = tested(QStringLiteral("192.168.0.5"));
    report.frames = {12, 11, 1, 0};
    report.packetBytes = 1500;
    report.largestPacketBytes = 9000;
    report.packets = {2400, 3, 5, 2, 0, 4000000};
    report.socket = {false, 1048576, 4194304, 0};
    report.link = {QStringLiteral("eth0"), 9000, 1000000000};
    QVERIFY2(report.text().startsWith(QStringLiteral(R"(Camera             Maker Model (192.168.0.5), 640 x 480 Mono8
Tested for         2.0 s
Frames grabbed     12 = 11 complete + 1 incomplete
Frames missed      0
Underruns          0
Frames per second  10.0
Data rate          2.0 MB/s

Interface          eth0, packets of up to 9000 bytes, 1000 Mbit/s
Packet size        1500 bytes; up to 9000 bytes get through
Packets received   2400
Packets missing    3
Asked for again    5
Sent again         2
Socket buffer      1.0 MiB, at most 4.0 MiB
Kernel drops       0

missing: of each frame from its first gap on, unless they were sent again

What to change
  Packets of 9000 bytes get through. They are fewer, and less work.
      halvex-host cameras 192.168.0.5 --test 10s --camera-set )")),
             qPrintable(report.text()));
    QVERIFY(report.text(80, true).contains("\x1b[1mWhat to change\x1b[0m\n"));
}

void tst_SLinkReport::missedFrames()
{
    SLinkReport whole;
    whole.frames.grabbed = whole.frames.complete = 10;
    QVERIFY(whole.isSound());

    SLinkReport skippedByNumber = whole;
    skippedByNumber.frames.missed = 3;
    SLinkReport skippedInStream = whole;
    skippedInStream.packets.missedFrames = 3;
    for (const SLinkReport& report : {skippedByNumber, skippedInStream}) {
        QVERIFY(!report.isSound());
        QVERIFY2(report.text().contains("\nFrames missed      3\n"), qPrintable(report.text()));
        QVERIFY(!report.text().contains("every frame came whole"));
        QVERIFY(report.text().simplified().contains("Whole frames are missing"));
        QCOMPARE(report.json().value("frames")["missed"].toInt(), 3);
    }
}

void tst_SLinkReport::usbHasNoPackets()
{
    SLinkReport report = tested(QStringLiteral("Maker-17"));
    report.frames = {12, 11, 1, 0, 2};
    report.packets.bytes = 4000000;
    report.usb = {true, 16 << 20};
    QCOMPARE(report.text(), QStringLiteral(R"(Camera             Maker Model (Maker-17), 640 x 480 Mono8
Tested for         2.0 s
Frames grabbed     12 = 11 complete + 1 incomplete
Frames missed      2
Underruns          0
Frames per second  10.0
Data rate          2.0 MB/s

Interface          USB3 Vision
Memory for USB     16.0 MiB for all cameras together

What to change
  Frames did not come whole over USB. All devices at a controller share its
  bandwidth: use a USB 3 port without a hub or other cameras, a shorter cable,
  and test again.
      halvex-host cameras Maker-17 --test 10s
)"));
    QCOMPARE(report.json().value("usb")["memory_bytes"].toInt(), 16 << 20);
    report.usb.memoryBytes = 0;
    QVERIFY(report.text().contains("\nMemory for USB     no limit\n"));
    report.usb.memoryBytes.reset();
    QVERIFY(report.text().contains("\nMemory for USB     -\n"));
    report.usb.isUsed = false;
    QVERIFY(report.json().value("usb").isNull());
}

void tst_SLinkReport::lineIsAsWideAsTheTerminal()
{
    SLinkReport report;
    report.link.interface = QStringLiteral("eth0");
    report.packets.received = 0;
    const QStringList lines = report.text(40).split('\n');
    for (const QString& line : lines)
        QVERIFY2(line.size() <= 40 || line.startsWith(QStringLiteral("      sudo ")), qPrintable(line));
}

QTEST_GUILESS_MAIN(tst_SLinkReport)
#include "tst_SLinkReport.moc"
