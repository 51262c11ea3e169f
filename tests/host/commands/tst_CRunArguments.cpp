// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/CRunArguments.h"

#include "TestTable.h"

#include <CLI/CLI.hpp>

using namespace Host;

namespace {

SRunOptions parse(QStringList arguments)
{
    CLI::App command;
    const CRunArguments run(command);
    std::vector<std::string> words; // the parser takes the last one first
    while (!arguments.isEmpty())
        words.push_back(arguments.takeLast().toStdString());
    command.parse(words);
    return run.options();
}

} // namespace

class tst_CRunArguments : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void everyOption();
    void whatIsSet();
    void ending_data();
    void ending();
    void realCameraKeepsItsRate();
    void severalCamerasAndAChain();
    void chainBehindOptionsOfSeveralValues();
    void slowCameraMayBeSilentForLonger();
    void files();
    void resend();
    void reconnect();
    void severalChains();
    void refused_data();
    void refused();
};

void tst_CRunArguments::defaults()
{
    const SRunOptions options = parse({});
    QCOMPARE(options.cameras.size(), std::size_t(1));
    QCOMPARE(options.cameras[0].address, QStringLiteral("fake"));
    QCOMPARE(options.cameras[0].framesPerSecond, 200.0);
    for (const QString& text : {options.cameras[0].pixelFormat, options.plugins, options.load, options.save})
        QCOMPARE(text, QString());
    QCOMPARE(options.frames, 300);
    QCOMPARE(options.writeEvery, 30);
    QCOMPARE(options.output, QStringLiteral("halvex-output"));
    QCOMPARE(options.silence.count(), 5000);
    QVERIFY(!options.cameras[0].resend);
}

void tst_CRunArguments::everyOption()
{
    const SRunOptions options =
        parse({"--camera", "10.0.0.2", "--frames", "7", "--fps", "12.5", "--output", "o", "--pixel-format", "RGB8",
               "--write-every", "2", "--load", "l.json", "--save", "s.json", "--plugins", "p"});
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

void tst_CRunArguments::whatIsSet()
{
    const SRunOptions options = parse({"--set", "a.b.size=x=1", "--set", "c d.method=", "--camera-set", "Gain=3",
                                       "--camera-set", "Text=a=b", "--buffers", "3", "--strict", "--json", "-"});
    QCOMPARE(options.settings.size(), std::size_t(2));
    QCOMPARE(options.settings[0].node, QStringLiteral("a.b"));
    QCOMPARE(options.settings[0].key, QStringLiteral("size"));
    QCOMPARE(options.settings[0].value, QStringLiteral("x=1"));
    QCOMPARE(options.settings[1].text(), QStringLiteral("c d.method="));
    const std::vector<std::pair<QString, QString>> features{{"Gain", "3"}, {"Text", "a=b"}};
    QVERIFY(options.cameras[0].features == features);
    QCOMPARE(options.cameras[0].buffers, 3);
    QVERIFY(options.isStrict);
    QCOMPARE(options.json, QStringLiteral("-"));
}

void tst_CRunArguments::ending_data()
{
    addColumns<QStringList, int, int>({"arguments", "frames", "milliseconds"});
    addRow("fake camera", QStringList(), 300, 0);
    addRow("real camera", QStringList{"--camera", "10.0.0.2"}, 0, 0);
    addRow("one of them is real", QStringList{"--camera", "fake", "--camera", "10.0.0.2"}, 0, 0);
    addRow("without an end", QStringList{"--frames", "0"}, 0, 0);
    addRow("time", QStringList{"--duration", "1.5s"}, 0, 1500);
    addRow("time without a unit", QStringList{"--duration", "2"}, 0, 2000);
    addRow("both", QStringList{"--duration", "2min", "--frames", "7"}, 7, 120000);
    addRow("given twice", QStringList{"--frames", "300", "--frames", "7"}, 7, 0);
    addRow("short", QStringList{"--duration", "20ms"}, 0, 20);
    addRow("time without an end", QStringList{"--duration", "0"}, 0, 0);
    addRow("images", QStringList{"--images", "a"}, 0, 0);
    addRow("long", QStringList{"--duration", "2h"}, 0, 7200000);
}

void tst_CRunArguments::ending()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, frames);
    QFETCH(int, milliseconds);
    const SRunOptions options = parse(arguments);
    QCOMPARE(options.frames, frames);
    QCOMPARE(int(options.duration.count()), milliseconds);
}

void tst_CRunArguments::realCameraKeepsItsRate()
{
    QCOMPARE(parse({"--camera", "10.0.0.2"}).cameras[0].framesPerSecond, 0.0);
    QCOMPARE(parse({"--camera", "fake", "--fps", "10"}).cameras[0].framesPerSecond, 10.0);
}

void tst_CRunArguments::severalCamerasAndAChain()
{
    const SRunOptions options = parse(
        {"chain.json", "--camera", "fake-1", "--camera", "10.0.0.2", "--camera", "fake-20", "--pixel-format", "RGB8"});
    QCOMPARE(options.chains, QStringList("chain.json"));
    QStringList told;
    for (const SCameraOptions& camera : options.cameras)
        told << QStringLiteral("%1 %2 %3").arg(camera.address, camera.pixelFormat).arg(camera.framesPerSecond);
    QCOMPARE(told, QStringList({"fake-1 RGB8 200", "10.0.0.2 RGB8 0", "fake-20 RGB8 200"}));
}

void tst_CRunArguments::chainBehindOptionsOfSeveralValues()
{
    for (const QStringList& option :
         {QStringList{"--camera", "fake-1"}, QStringList{"--set", "a.b=1"}, QStringList{"--camera-set", "Gain=3"}}) {
        const SRunOptions options = parse(option + option.mid(0, 1) + QStringList{option[1] + '2', "chain.json"});
        QCOMPARE(options.chains, QStringList("chain.json"));
    }
}

void tst_CRunArguments::slowCameraMayBeSilentForLonger()
{
    QCOMPARE(parse({"--fps", "0.1"}).silence.count(), 30000);
}

void tst_CRunArguments::files()
{
    const SRunOptions options = parse({"--images", "a", "--video", "b", "--images", "c/*.png", "chain.json", "--loop",
                                       "--fps", "12", "--buffers", "5"});
    QCOMPARE(options.chains, QStringList("chain.json"));
    QVERIFY(options.cameras.empty());
    QStringList told;
    for (const SFileOptions& file : options.files) {
        told << QStringLiteral("%1 %2 %3").arg(file.name, file.place).arg(file.framesPerSecond);
        QVERIFY(file.isLooped);
        QCOMPARE(file.framesInFlight, 5);
        QCOMPARE(file.kind == SFileOptions::EKind::Video, file.name == "video");
    }
    QCOMPARE(told, QStringList({"images a 12", "images-2 c/*.png 12", "video b 12"}));
    const SRunOptions both = parse({"--camera", "fake", "--video", "b"});
    QCOMPARE(both.cameras.size() + both.files.size(), both.sources().size());
    QCOMPARE(nameOf(both.sources()[1]), QStringLiteral("video"));
    QCOMPARE(both.files[0].framesPerSecond, 0.0);
    QVERIFY(!both.files[0].isLooped);
}

void tst_CRunArguments::resend()
{
    QVERIFY(!parse({}).cameras[0].resend);
    QCOMPARE(parse({"--resend", "off"}).cameras[0].resend, std::optional<bool>(false));
    QCOMPARE(parse({"--resend", "on"}).cameras[0].resend, std::optional<bool>(true));
}

void tst_CRunArguments::reconnect()
{
    QCOMPARE(int(parse({}).cameras[0].reconnect.count()), 0);
    QCOMPARE(int(parse({"--reconnect"}).cameras[0].reconnect.count()), 60000);
    const SRunOptions options = parse({"--reconnect=5min", "chain.json", "--timeout", "3s"});
    QCOMPARE(int(options.cameras[0].reconnect.count()), 300000);
    QCOMPARE(int(options.cameras[0].silence.count()), 3000);
    QCOMPARE(options.chains, QStringList("chain.json"));
}

void tst_CRunArguments::severalChains()
{
    QVERIFY(parse({}).chains.isEmpty());
    QVERIFY(!parse({"a.json"}).readsStandardInput());
    const SRunOptions options = parse({"a.json", "--camera", "fake-1", "b.json", "-"});
    QCOMPARE(options.chains, QStringList({"a.json", "b.json", "-"}));
    QVERIFY(options.readsStandardInput());
}

void tst_CRunArguments::refused_data()
{
    addColumns<QStringList, QString>({"arguments", "reason"});
    const auto row = [](const QString& line, const QString& reason) {
        // Two quotes stand for an empty argument.
        addRow(qPrintable(line), line.split(' ').replaceInStrings("''", ""), reason);
    };
    row("''", "The chain's file has no name.");
    row("a.json --load b.json", "A chain or --load, not both.");
    row("--camera a --camera b --camera a", "--camera 'a' is given twice.");
    for (const char* camera : {"chain.json", "chain-2.json", "manifest.json", "Halvex.NoUniqueName", "../a"})
        row(QString("--camera ") + camera, QStringLiteral("--camera '%1' is no address.").arg(camera));
    row("--camera a --camera b --load c.json", "--load and --save take one camera.");
    row("--camera a --camera b --save c.json", "--load and --save take one camera.");
    row("--frames ''", "--frames takes a whole number from 0 to 1000000000, not ''.");
    row("--write-every 0", "--write-every takes a whole number from 1 to 1000000000, not '0'.");
    for (const char* value : {"-1", "many", "1000000001", "3.5"})
        row(QString("--frames ") + value,
            QStringLiteral("--frames takes a whole number from 0 to 1000000000, not '%1'.").arg(value));
    for (const char* value : {"0s", "-3s", "fast", "1d", "999999h"})
        row(QString("--duration ") + value,
            QStringLiteral("--duration takes a time like 500ms, 30s, 5min or 2h, or 30 for seconds, not '%1'.")
                .arg(value));
    for (const char* value : {"size=3", "blur", ".size=3"})
        row(QString("--set ") + value, QStringLiteral("--set takes NODE.key=value, not '%1'.").arg(value));
    row("- --frames 3 -", "Standard input is one chain: '-' is given twice.");
    row("--images s/a.png s/b.png", "The image 's/b.png' is no chain; put the pattern for --images in quotes.");
    row("--reconnect=soon", "--reconnect takes a time like 500ms, 30s, 5min or 2h, or 30 for seconds, not 'soon'.");
    row("--resend maybe", "--resend takes 'on' or 'off', not 'maybe'.");
    row("a.json --trace ./a.json", "'./a.json' would be replaced while the run uses it.");
    row("--save a --json a", "'a' would be replaced while the run uses it.");
    row("--images a --resend on", "--resend is for cameras, and this run has none.");
    row("--camera-set Gain", "--camera-set takes Feature=value, not 'Gain'.");
    row("--buffers 0", "--buffers takes a whole number from 1 to 10000, not '0'.");
    for (const char* value : {"0", "-1", "nan", "inf", "fast", "10001"})
        row(QString("--fps ") + value,
            QStringLiteral("--fps takes a number above 0, at most 10000, not '%1'.").arg(value));
    for (const char* option : {"--camera", "--output", "--pixel-format", "--load", "--save", "--plugins"})
        row(QStringLiteral("%1 ''").arg(option), QStringLiteral("%1 is empty.").arg(option));
}

void tst_CRunArguments::refused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);
    try {
        parse(arguments);
        QFAIL("not refused");
    } catch (const CLI::ParseError& error) {
        QCOMPARE(QString::fromUtf8(error.what()), reason);
    }
}

QTEST_GUILESS_MAIN(tst_CRunArguments)
#include "tst_CRunArguments.moc"
