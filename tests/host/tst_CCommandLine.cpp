// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CCommandLine.h"

#include "TestTable.h"

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
    const SRunOptions& options = line.options();
    QCOMPARE(options.cameras.size(), std::size_t(1));
    QCOMPARE(options.cameras[0].address, QStringLiteral("fake"));
    QCOMPARE(options.cameras[0].framesPerSecond, 200.0);
    for (const QString& text :
         {options.cameras[0].pixelFormat, options.plugins, options.chain, options.load, options.save})
        QCOMPARE(text, QString());
    QCOMPARE(options.frames, 300);
    QCOMPARE(options.writeEvery, 30);
    QCOMPARE(options.output, QStringLiteral("halvex-output"));
    QCOMPARE(options.silence.count(), 5000);
}

void tst_CCommandLine::everyOption()
{
    const CCommandLine line =
        parse({"run", "--camera", "10.0.0.2", "--frames", "7", "--fps", "12.5", "--output", "o", "--pixel-format",
               "RGB8", "--write-every", "2", "--load", "l.json", "--save", "s.json", "--plugins", "p"});
    QCOMPARE(line.action(), CCommandLine::EAction::Run);
    const SRunOptions& options = line.options();
    QCOMPARE(options.cameras[0].address, QStringLiteral("10.0.0.2"));
    QCOMPARE(options.cameras[0].pixelFormat, QStringLiteral("RGB8"));
    QCOMPARE(options.cameras[0].framesPerSecond, 12.5);
    QCOMPARE(options.plugins, QStringLiteral("p"));
    QCOMPARE(options.frames, 7);
    QCOMPARE(options.writeEvery, 2);
    QCOMPARE(options.output, QStringLiteral("o"));
    QCOMPARE(options.load, QStringLiteral("l.json"));
    QCOMPARE(options.save, QStringLiteral("s.json"));
    QCOMPARE(options.silence.count(), 5000);
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
    QStringList told;
    for (const SCameraOptions& camera : line.options().cameras)
        told << QStringLiteral("%1 %2 %3").arg(camera.address, camera.pixelFormat).arg(camera.framesPerSecond);
    QCOMPARE(told, QStringList({"fake-1 RGB8 200", "10.0.0.2 RGB8 0", "fake-20 RGB8 200"}));
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
    addColumns<QStringList, QString>({"arguments", "reason"});
    addRow("no command", QStringList(), "No command given.");
    const auto row = [](const QString& line, const QString& reason) {
        // Two quotes stand for an empty argument.
        addRow(qPrintable(line), line.split(' ').replaceInStrings("''", ""), reason);
    };
    row("walk", "Unknown command 'walk'.");
    row("run a.json fast", "Unexpected argument 'fast'.");
    row("run ''", "The chain's file has no name.");
    row("run a.json --load b.json", "A chain or --load, not both.");
    row("run --camera a --camera b --camera a", "--camera 'a' is given twice.");
    for (const char* camera : {"chain.json", "Halvex.NoUniqueName", "../a"})
        row(QString("run --camera ") + camera, QStringLiteral("--camera '%1' is no address.").arg(camera));
    row("run --camera a --camera b --load c.json", "--load and --save take one camera.");
    row("run --camera a --camera b --save c.json", "--load and --save take one camera.");
    row("run --speed 3", "Unknown option 'speed'.");
    row("run --frames", "Missing value after '--frames'.");
    row("run --frames ''", "--frames takes a whole number from 1 to 1000000, not ''.");
    row("run --write-every 0", "--write-every takes a whole number from 1 to 1000000, not '0'.");
    for (const char* value : {"0", "-1", "many", "1000001", "3.5"})
        row(QString("run --frames ") + value,
            QStringLiteral("--frames takes a whole number from 1 to 1000000, not '%1'.").arg(value));
    for (const char* value : {"0", "-1", "nan", "inf", "fast", "10001"})
        row(QString("run --fps ") + value,
            QStringLiteral("--fps takes a number above 0, at most 10000, not '%1'.").arg(value));
    for (const char* line : {"compare a", "compare a b c", "compare a b --frames 3"})
        row(line, "'compare' takes two files and no option.");
    for (const char* option : {"--camera", "--output", "--pixel-format", "--load", "--save", "--plugins"})
        row(QStringLiteral("run %1=").arg(option), QStringLiteral("%1 is empty.").arg(option));
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
