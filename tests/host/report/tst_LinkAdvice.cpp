// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/LinkAdvice.h"

#include "host/report/SLinkReport.h"

#include <QTest>

#include <functional>

using namespace Host;

Q_DECLARE_METATYPE(std::function<void(SLinkReport&)>)

namespace {

using Change = std::function<void(SLinkReport&)>;

// Five megabytes a frame through a network card, and nothing is wrong.
SLinkReport soundReport()
{
    SLinkReport report;
    report.address = QStringLiteral("192.168.0.5");
    report.time = std::chrono::seconds(10);
    report.span = std::chrono::seconds(10);
    report.frames = {100, 100, 0, 0};
    report.frameBytes = quint64(5) * 1024 * 1024;
    report.buffers = 16;
    report.hasFrameRate = true;
    report.packetSizeFeature = QStringLiteral("GevSCPSPacketSize");
    report.setPacketBytes = report.packetBytes = report.largestPacketBytes = 9000;
    report.packets = {60000, 0, 0, 0, 0, 529000000};
    report.socket = {false, 5242880, 8388608, 0};
    report.link = {QStringLiteral("eth0"), 9000, 1000000000};
    return report;
}

void loseFrames(SLinkReport& report)
{
    report.frames = {100, 90, 10, 0};
    report.packets.missing = 300;
    report.packets.askedAgain = 400;
    report.packets.sentAgain = 100;
}

// Five megabytes a frame; the bus counts no packets.
void loseFramesOverUsb(SLinkReport& report)
{
    report.frames = {100, 90, 10, 0};
    report.packetSizeFeature.clear();
    report.setPacketBytes = report.packetBytes = report.largestPacketBytes = {};
    report.packets = {};
    report.socket = {};
    report.link = {};
    report.usb.isUsed = true;
}

} // namespace

class tst_LinkAdvice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingToChange();
    void commands_data();
    void commands();
    void reasonsTellWhatWasMeasured();
};

void tst_LinkAdvice::nothingToChange()
{
    QVERIFY(soundReport().isSound());
    QVERIFY(linkAdvice(soundReport()).empty());
}

void tst_LinkAdvice::commands_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QStringList>("commands");
    const QString test = QStringLiteral("halvex-host cameras 192.168.0.5 --test 10s ");
    const auto row = [](const char* name, const Change& change, const QStringList& commands) {
        QTest::newRow(name) << change << commands;
    };
    const auto nothing = [](SLinkReport& report) {
        report.frames = {};
        report.span = {};
        report.packets = {0, 0, 0, 0, 0, 0};
    };
    row("firewall", nothing, {"sudo iptables -I INPUT -p udp -s 192.168.0.5 -j ACCEPT"});
    row("trigger",
        [nothing](SLinkReport& report) {
            nothing(report);
            report.waitsForTrigger = true;
        },
        {test + "--camera-set TriggerMode=Off"});
    row("silent USB camera",
        [](SLinkReport& report) {
            report.frames = {};
            report.packets = {};
            report.link = {};
        },
        {"halvex-host cameras 192.168.0.5"});
    row("frames lost over USB", &loseFramesOverUsb, {test + "--fps 8"});
    row("little memory for USB",
        [](SLinkReport& report) {
            loseFramesOverUsb(report);
            report.usb.memoryBytes = 16 << 20;
        },
        {"echo 256 | sudo tee /sys/module/usbcore/parameters/usbfs_memory_mb", test + "--fps 8"});
    row("USB camera without a rate",
        [](SLinkReport& report) {
            loseFramesOverUsb(report);
            report.hasFrameRate = false;
        },
        {"halvex-host cameras 192.168.0.5 --test 10s"});
    row("silent USB camera, little memory",
        [](SLinkReport& report) {
            loseFramesOverUsb(report);
            report.frames = {};
            report.usb.memoryBytes = 16 << 20;
        },
        {"halvex-host cameras 192.168.0.5", "echo 256 | sudo tee /sys/module/usbcore/parameters/usbfs_memory_mb"});
    row("packets too large", [](SLinkReport& report) { report.packetBytes = report.largestPacketBytes = 1500; },
        {test + "--camera-set GevSCPSPacketSize=1500"});
    row("small socket buffer",
        [](SLinkReport& report) {
            report.socket = {false, 212992, 212992, 17};
        },
        {"sudo sysctl -w net.core.rmem_max=16777216"});
    row("slow computer", [](SLinkReport& report) { report.socket.drops = 17; }, {test + "--fps 8"});
    row("slow computer, camera without a rate",
        [](SLinkReport& report) {
            report.socket.drops = 17;
            report.hasFrameRate = false;
        },
        {"halvex-host cameras 192.168.0.5 --test 10s"});
    row("cable", &loseFrames, {test + "--fps 8", "sudo ethtool -G eth0 rx 4096"});
    row("camera without a rate",
        [](SLinkReport& report) {
            loseFrames(report);
            report.hasFrameRate = false;
        },
        {"halvex-host cameras 192.168.0.5 --test 10s", "sudo ethtool -G eth0 rx 4096"});
    row("full link",
        [](SLinkReport& report) {
            loseFrames(report);
            report.packets.bytes = 1200000000;
        },
        {test + "--fps 8", test + "--fps 8", "sudo ethtool -G eth0 rx 4096"});
    row("small packets",
        [](SLinkReport& report) {
            loseFrames(report);
            report.setPacketBytes = report.packetBytes = 1500;
        },
        {test + "--camera-set GevSCPSPacketSize=9000", test + "--fps 8", "sudo ethtool -G eth0 rx 4096"});
    row("small packets only",
        [](SLinkReport& report) {
            loseFrames(report);
            report.setPacketBytes = report.packetBytes = report.largestPacketBytes = report.link.mtu = 1500;
        },
        {"sudo ip link set eth0 mtu 9000", test + "--fps 8", "sudo ethtool -G eth0 rx 4096"});
    row("not asked again",
        [](SLinkReport& report) {
            loseFrames(report);
            report.asksAgain = false;
        },
        {test.trimmed(), test + "--fps 8", "sudo ethtool -G eth0 rx 4096"});
    row("rate that was missed", [](SLinkReport& report) { report.askedForPerSecond = 30.0; },
        {"halvex-host cameras 192.168.0.5"});
    row("rate that was met", [](SLinkReport& report) { report.askedForPerSecond = 10.0; }, {});
    row("few buffers", [](SLinkReport& report) { report.frames.underruns = 3; }, {test + "--buffers 64"});
}

void tst_LinkAdvice::commands()
{
    QFETCH(Change, change);
    QFETCH(QStringList, commands);
    SLinkReport report = soundReport();
    change(report);
    QStringList advised;
    for (const SLinkAdvice& advice : linkAdvice(report))
        advised << advice.command;
    QCOMPARE(advised, commands);
}

void tst_LinkAdvice::reasonsTellWhatWasMeasured()
{
    SLinkReport report = soundReport();
    report.socket = {false, 212992, 212992, 1};
    QCOMPARE(linkAdvice(report).at(0).reason,
             QStringLiteral("The kernel dropped 1 packet: the socket's buffer holds 208 KiB, less than a frame of "
                            "5.0 MiB."));
    report = soundReport();
    loseFrames(report);
    report.packets.askedAgain = report.packets.sentAgain = 0;
    QVERIFY(linkAdvice(report).at(0).reason.contains(QStringLiteral("The camera cannot send packets again.")));
}

QTEST_GUILESS_MAIN(tst_LinkAdvice)
#include "tst_LinkAdvice.moc"
