// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CFakeGigECamera.h"
#include "CHostProgram.h"
#include "TestTable.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <csignal>

namespace {

QJsonValue json(const CHostProgram& program)
{
    return QJsonDocument::fromJson(program.output().toUtf8()).object();
}

QStringList reasons(const QJsonValue& report)
{
    QStringList texts;
    const QJsonArray advices = report["advice"].toArray();
    for (const QJsonValue& advice : advices)
        texts << advice["reason"].toString();
    return texts;
}

} // namespace

/// What the program tells of cameras, and of the way that their frames take.
class tst_HalvexHostCameras : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noPacketIsLost();
    void somePacketsAreLost();
    void allPacketsAreLost();
    void triggerThatNobodyPulls();
    void packetSize();
    void cameraThatIsNotOnTheNetwork();
    void signalEndsTheTest();
    void cameraThatGoes();
    void sameOptionsAsARun();
    void featuresWithoutACategory();
    void listAndFeaturesAsJson();
    void refused_data();
    void refused();
};

void tst_HalvexHostCameras::noPacketIsLost()
{
    CFakeGigECamera device;
    QVERIFY(device.start());
    CHostProgram program;
    QCOMPARE(program.exec({"cameras", CFakeGigECamera::address(), "--test", "500ms"}), 0);
    for (const char* line :
         {"Camera             Aravis Fake (127.0.0.1), 512 x 512 Mono8\n", "Tested for         0.5 s\n",
          "\nFrames missed      0\n", "\nInterface          lo, packets of up to ", "\nPacket size        1400 bytes",
          "\nPackets missing    0\n", "\nSent again         0\n", "\nKernel drops       0\n",
          "\nWhat to change\n  Nothing: every frame came whole.\n"})
        QVERIFY2(program.output().contains(line), qPrintable(line + program.output()));
    const QStringList lines = program.output().split('\n');
    for (const QString& line : lines)
        QVERIFY2(line.size() <= 80, qPrintable(line));
}

void tst_HalvexHostCameras::somePacketsAreLost()
{
    CFakeGigECamera device;
    QVERIFY(device.start(5));
    CHostProgram program;
    QCOMPARE(program.exec({"cameras", CFakeGigECamera::address(), "--test", "2s", "--json"}), 1);
    const QJsonValue report = json(program);
    QVERIFY2(!report["sound"].toBool() && report["frames"]["incomplete"].toInt() > 0, qPrintable(program.output()));
    QVERIFY(report["packets"]["received"].toInt() > 1000);
    QVERIFY(report["packets"]["missing"].toInt() > 0);
    // It is asked, and cannot do it.
    QVERIFY(report["packets"]["asked_again"].toInt() > 0);
    QCOMPARE(report["packets"]["sent_again"].toInt(), 0);
    QVERIFY2(reasons(report).filter("sent none of those").size() == 1, qPrintable(program.output()));

    QCOMPARE(program.exec({"cameras", CFakeGigECamera::address(), "--test", "2s", "--json", "--resend", "off"}), 1);
    QCOMPARE(json(program)["packets"]["asked_again"].toInt(), 0);
    QVERIFY2(reasons(json(program)).filter("Leave out --resend off").size() == 1, qPrintable(program.output()));
}

void tst_HalvexHostCameras::allPacketsAreLost()
{
    CFakeGigECamera device;
    QVERIFY(device.start(1000));
    CHostProgram program;
    QCOMPARE(program.exec({"cameras", CFakeGigECamera::address(), "--test", "500ms"}), 1);
    for (const char* line :
         {"\nFrames grabbed     0 = 0 complete + 0 incomplete\n", "\nFrames per second  -\n",
          "\nPackets received   0\n", "      sudo iptables -I INPUT -p udp -s 127.0.0.1 -j ACCEPT\n"})
        QVERIFY2(program.output().contains(line), qPrintable(line + program.output()));
}

void tst_HalvexHostCameras::triggerThatNobodyPulls()
{
    CFakeGigECamera device;
    QVERIFY(device.start());
    CHostProgram program;
    const QStringList arguments{"cameras", CFakeGigECamera::address(), "--test", "300ms"};
    QCOMPARE(program.exec(arguments + QStringList{"--camera-set", "TriggerMode=On"}), 1);
    QVERIFY2(program.output().contains("halvex-host cameras 127.0.0.1 --test 10s --camera-set TriggerMode=Off\n"),
             qPrintable(program.output()));
}

void tst_HalvexHostCameras::packetSize()
{
    CFakeGigECamera device;
    QVERIFY(device.start());
    CHostProgram program;
    QCOMPARE(program.exec({"cameras", CFakeGigECamera::address(), "--test", "300ms", "--camera-set",
                           "GevSCPSPacketSize=8000", "--json"}),
             0);
    QCOMPARE(json(program)["packets"]["bytes"].toInt(), 8000);
    QVERIFY(json(program)["packets"]["largest_bytes"].isNull());
}

void tst_HalvexHostCameras::cameraThatIsNotOnTheNetwork()
{
    CHostProgram program;
    QCOMPARE(program.exec({"cameras", "fake", "--test", "300ms"}), 0);
    for (const char* line : {"\nInterface          -\n", "\nPackets received   -\n", "\nKernel drops       -\n"})
        QVERIFY2(program.output().contains(line), qPrintable(line + program.output()));
    QVERIFY(program.errorLines().constLast().startsWith("0.3 of 0.3 s, "));
}

void tst_HalvexHostCameras::signalEndsTheTest()
{
    CHostProgram program;
    program.start({"cameras", "fake", "--test", "10min"});
    program.process().setReadChannel(QProcess::StandardError);
    QVERIFY(QTest::qWaitFor([&program] { return program.process().bytesAvailable() > 0; }, 30000));
    QCOMPARE(kill(pid_t(program.process().processId()), SIGINT), 0);
    QVERIFY(program.waitForEnd());
    QCOMPARE(program.process().exitCode(), 130);
    QVERIFY(program.output().contains("\nWhat to change\n"));
}

void tst_HalvexHostCameras::cameraThatGoes()
{
    CFakeGigECamera device;
    QVERIFY(device.start());
    CHostProgram program;
    program.start({"cameras", CFakeGigECamera::address(), "--test", "10min"});
    program.process().setReadChannel(QProcess::StandardError);
    QVERIFY(QTest::qWaitFor([&program] { return program.process().bytesAvailable() > 0; }, 30000));
    device.kill();
    QVERIFY(program.waitForEnd());
    QCOMPARE(program.process().exitCode(), 1);
    QVERIFY(program.output().contains("\nWhat to change\n"));
    QCOMPARE(program.errorLines().constLast(),
             QStringLiteral("halvex-host: camera '127.0.0.1' has gone: it no longer answers"));
}

void tst_HalvexHostCameras::sameOptionsAsARun()
{
    CHostProgram program;
    QCOMPARE(program.exec({"cameras", "fake", "--test", "2s", "--json", "--fps", "10", "--pixel-format", "RGB8"}), 0);
    QVERIFY2(json(program)["camera"].toString().endsWith(" RGB8"), qPrintable(program.output()));
    QVERIFY(reasons(json(program)).isEmpty());
    // Some 20; the camera's own rate is 25 a second.
    QVERIFY2(json(program)["frames"]["complete"].toInt() < 35, qPrintable(program.output()));
}

void tst_HalvexHostCameras::featuresWithoutACategory()
{
    CFakeGigECamera device;
    QVERIFY(device.start());
    CHostProgram program;
    QCOMPARE(program.exec({"cameras", CFakeGigECamera::address()}), 0);
    const QString others = program.output().section("\nIn no category\n", 1);
    QVERIFY2(others.contains("\n  GevSCPSPacketSize  "), qPrintable(program.output()));
    QVERIFY(!others.contains("Reg ")); // registers are behind the features
}

void tst_HalvexHostCameras::listAndFeaturesAsJson()
{
    CHostProgram program;
    QCOMPARE(program.exec({"cameras", "--json"}), 0);
    const QJsonArray cameras = QJsonDocument::fromJson(program.output().toUtf8()).array();
    QCOMPARE(cameras[0]["id"].toString(), QStringLiteral("fake"));
    QCOMPARE(program.exec({"cameras", "fake", "--json"}), 0);
    const QJsonArray features = QJsonDocument::fromJson(program.output().toUtf8()).array();
    QVERIFY(features.size() > 10);
    QVERIFY(!features[0]["name"].toString().isEmpty());
}

void tst_HalvexHostCameras::refused_data()
{
    addColumns<QStringList, QString>({"arguments", "reason"});
    const QString help = QStringLiteral(" See 'halvex-host cameras --help'.");
    addRow("no camera", QStringList{"--test", "1s"}, "--test takes a camera's ID." + help);
    addRow("no time", QStringList{"fake", "--test", "long"},
           "--test takes a time like 500ms, 30s, 5min or 2h, or 30 for seconds, not 'long'." + help);
    addRow("no test", QStringList{"fake", "--buffers", "3"},
           "--fps, --pixel-format, --camera-set, --buffers and --resend go with --test." + help);
    addRow("no rate", QStringList{"fake", "--test", "1s", "--fps", "0"},
           "--fps takes a number above 0, at most 10000, not '0'." + help);
    addRow("no pixel format", QStringList{"fake", "--test", "1s", "--pixel-format", "rgb8"},
           QStringLiteral("camera 'fake': the feature 'PixelFormat' takes one of BayerBG8, BayerGB8, "
                          "BayerGR8, BayerRG8, Mono8, RGB8, Mono16, not 'rgb8'; did you mean 'RGB8'?"));
    addRow("no feature", QStringList{"fake", "--test", "1s", "--camera-set", "Widht=9"},
           QStringLiteral("camera 'fake': it has no feature 'Widht'; did you mean 'Width'?"));
}

void tst_HalvexHostCameras::refused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);
    CHostProgram program;
    QCOMPARE(program.exec(QStringList("cameras") + arguments), 2);
    QCOMPARE(program.errorLines(), QStringList("halvex-host: " + reason));
    QCOMPARE(program.output(), QString());
}

QTEST_GUILESS_MAIN(tst_HalvexHostCameras)
#include "tst_HalvexHostCameras.moc"
