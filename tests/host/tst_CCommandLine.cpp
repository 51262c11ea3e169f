// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CCommandLine.h"

#include <QTest>

using namespace Host;

namespace {

CCommandLine parse(const QStringList& arguments)
{
    return CCommandLine(QStringList("halvex-host") + arguments);
}

} // namespace

class tst_CCommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void everyOption();
    void realCameraKeepsItsRate();
    void severalCamerasAndAChain();
    void compare();
    void slowCameraMayBeSilentForLonger();
    void refused_data();
    void refused();
    void help();
    void version();
};

void tst_CCommandLine::defaults()
{
    const CCommandLine line = parse({"run"});
    QCOMPARE(line.action(), CCommandLine::EAction::Run);
    QCOMPARE(line.options().cameras.size(), std::size_t(1));
    QCOMPARE(line.options().cameras[0].address, QStringLiteral("fake"));
    QCOMPARE(line.options().cameras[0].pixelFormat, QString());
    QCOMPARE(line.options().cameras[0].framesPerSecond, 200.0);
    QCOMPARE(line.options().plugins, QString());
    QCOMPARE(line.options().chain, QString());
    QCOMPARE(line.options().load, QString());
    QCOMPARE(line.options().save, QString());
    QCOMPARE(line.options().frames, 300);
    QCOMPARE(line.options().writeEvery, 30);
    QCOMPARE(line.options().output, QStringLiteral("halvex-output"));
    QCOMPARE(line.options().silence.count(), 5000);
}

void tst_CCommandLine::everyOption()
{
    const CCommandLine line =
        parse({"run", "--camera", "10.0.0.2", "--frames", "7", "--fps", "12.5", "--output", "o", "--pixel-format",
               "RGB8", "--write-every", "2", "--load", "l.json", "--save", "s.json", "--plugins", "p"});
    QCOMPARE(line.action(), CCommandLine::EAction::Run);
    QCOMPARE(line.options().cameras[0].address, QStringLiteral("10.0.0.2"));
    QCOMPARE(line.options().cameras[0].pixelFormat, QStringLiteral("RGB8"));
    QCOMPARE(line.options().cameras[0].framesPerSecond, 12.5);
    QCOMPARE(line.options().plugins, QStringLiteral("p"));
    QCOMPARE(line.options().frames, 7);
    QCOMPARE(line.options().writeEvery, 2);
    QCOMPARE(line.options().output, QStringLiteral("o"));
    QCOMPARE(line.options().load, QStringLiteral("l.json"));
    QCOMPARE(line.options().save, QStringLiteral("s.json"));
    QCOMPARE(line.options().silence.count(), 5000);
}

void tst_CCommandLine::realCameraKeepsItsRate()
{
    QCOMPARE(parse({"run", "--camera", "10.0.0.2"}).options().cameras[0].framesPerSecond, 0.0);
    QCOMPARE(parse({"run", "--camera", "fake", "--fps", "10"}).options().cameras[0].framesPerSecond, 10.0);
}

void tst_CCommandLine::severalCamerasAndAChain()
{
    const CCommandLine line = parse({"run", "chain.json", "--camera", "fake-1", "--camera", "10.0.0.2", "--camera",
                                     "fake-20", "--pixel-format", "RGB8"});
    QCOMPARE(line.action(), CCommandLine::EAction::Run);
    QCOMPARE(line.options().chain, QStringLiteral("chain.json"));
    const auto& cameras = line.options().cameras;
    QCOMPARE(cameras.size(), std::size_t(3));
    QCOMPARE(cameras[0].address, QStringLiteral("fake-1"));
    QCOMPARE(cameras[0].framesPerSecond, 200.0);
    QCOMPARE(cameras[1].address, QStringLiteral("10.0.0.2"));
    QCOMPARE(cameras[1].framesPerSecond, 0.0);
    QCOMPARE(cameras[2].address, QStringLiteral("fake-20"));
    QCOMPARE(cameras[2].framesPerSecond, 200.0);
    for (const SCameraOptions& camera : cameras)
        QCOMPARE(camera.pixelFormat, QStringLiteral("RGB8"));
}

void tst_CCommandLine::compare()
{
    const CCommandLine line = parse({"compare", "a.json", "b.json"});
    QCOMPARE(line.action(), CCommandLine::EAction::Compare);
    QCOMPARE(line.files(), QStringList({"a.json", "b.json"}));
}

void tst_CCommandLine::slowCameraMayBeSilentForLonger()
{
    QCOMPARE(parse({"run", "--fps", "0.1"}).options().silence.count(), 30000);
}

void tst_CCommandLine::refused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no command") << QStringList{} << "No command given.";
    QTest::newRow("unknown command") << QStringList{"walk"} << "Unknown command 'walk'.";
    QTest::newRow("second command") << QStringList{"run", "a.json", "fast"} << "Unexpected argument 'fast'.";
    QTest::newRow("chain without a name") << QStringList{"run", ""} << "The chain's file has no name.";
    QTest::newRow("chain and document") << QStringList{"run", "a.json", "--load", "b.json"}
                                        << "A chain or --load, not both.";
    QTest::newRow("camera twice") << QStringList{"run", "--camera", "a", "--camera", "b", "--camera", "a"}
                                  << "--camera 'a' is given twice.";
    QTest::newRow("camera where the chain goes")
        << QStringList{"run", "--camera", "chain.json"} << "--camera 'chain.json' is no address.";
    QTest::newRow("camera without a unique name")
        << QStringList{"run", "--camera", "Halvex.NoUniqueName"} << "--camera 'Halvex.NoUniqueName' is no address.";
    QTest::newRow("camera elsewhere") << QStringList{"run", "--camera", "../a"} << "--camera '../a' is no address.";
    for (const char* option : {"--load", "--save"})
        QTest::newRow(qPrintable(QStringLiteral("%1 for two").arg(option)))
            << QStringList{"run", "--camera", "a", "--camera", "b", option, "c.json"}
            << "--load and --save take one camera.";
    QTest::newRow("unknown option") << QStringList{"run", "--speed", "3"} << "Unknown option 'speed'.";
    QTest::newRow("value missing") << QStringList{"run", "--frames"} << "Missing value after '--frames'.";
    for (const char* value : {"0", "-1", "many", "1000001", "3.5", ""})
        QTest::newRow(qPrintable(QStringLiteral("frames '%1'").arg(value)))
            << QStringList{"run", "--frames", value}
            << QStringLiteral("--frames takes a whole number from 1 to 1000000, not '%1'.").arg(value);
    QTest::newRow("write never") << QStringList{"run", "--write-every", "0"}
                                 << "--write-every takes a whole number from 1 to 1000000, not '0'.";
    for (const char* value : {"0", "-1", "nan", "inf", "fast", "10001"})
        QTest::newRow(qPrintable(QStringLiteral("fps '%1'").arg(value)))
            << QStringList{"run", "--fps", value}
            << QStringLiteral("--fps takes a number above 0, at most 10000, not '%1'.").arg(value);
    QTest::newRow("compare one") << QStringList{"compare", "a"} << "'compare' takes two files and no option.";
    QTest::newRow("compare three") << QStringList{"compare", "a", "b", "c"}
                                   << "'compare' takes two files and no option.";
    QTest::newRow("compare with option") << QStringList{"compare", "a", "b", "--frames", "3"}
                                         << "'compare' takes two files and no option.";
    for (const char* option : {"camera", "output", "pixel-format", "load", "save", "plugins"})
        QTest::newRow(qPrintable(QStringLiteral("no %1").arg(option)))
            << QStringList{"run", QStringLiteral("--%1=").arg(option)} << QStringLiteral("--%1 is empty.").arg(option);
}

void tst_CCommandLine::refused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);
    const CCommandLine line = parse(arguments);
    QCOMPARE(line.action(), CCommandLine::EAction::Refuse);
    QCOMPARE(line.text(), reason + QStringLiteral(" See 'halvex-host --help'."));
}

void tst_CCommandLine::help()
{
    const CCommandLine line = parse({"--help"});
    QCOMPARE(line.action(), CCommandLine::EAction::Print);
    for (const char* option : {"--camera", "--frames", "--fps", "--output", "--pixel-format", "--write-every", "--load",
                               "--save", "first frame is grabbed", "compare", "--plugins", "[CHAIN]"})
        QVERIFY2(line.text().contains(QLatin1String(option)), option);
}

void tst_CCommandLine::version()
{
    const CCommandLine line = parse({"--version"});
    QCOMPARE(line.action(), CCommandLine::EAction::Print);
    QVERIFY(line.text().startsWith(QStringLiteral("halvex-host ")));
    QVERIFY(line.text().contains(QLatin1Char('.')));
}

QTEST_GUILESS_MAIN(tst_CCommandLine)
#include "tst_CCommandLine.moc"
