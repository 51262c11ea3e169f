// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CHostProgram.h"
#include "CPluginTestFolder.h"
#include "TestTable.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

/// The command line as a user meets it: help, and what is no command.
class tst_HalvexHostCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void help_data();
    void help();
    void version();
    void refused_data();
    void refused();
    void completions_data();
    void completions();
    void completionOfBash_data();
    void completionOfBash();
    void models();
    void settingsOfAModel();
    void modelsAsJson();
    void plugins();
    void cameras();
    void featuresOfACamera();
};

void tst_HalvexHostCommands::help_data()
{
    addColumns<QStringList, QStringList>({"arguments", "told"});
    addRow("program", QStringList{"--help"}, QStringList{"run", "compare", "Exit codes"});
    addRow("run", QStringList{"run", "--help"},
           QStringList{"[CHAIN...]",
                       "--camera ID",
                       "--images DIR|GLOB",
                       "--video FILE",
                       "--loop",
                       "--reconnect",
                       "--resend on|off",
                       "--frames N",
                       "--fps N",
                       "--output DIR",
                       "--pixel-format NAME",
                       "--write-every N",
                       "--load FILE",
                       "--save FILE",
                       "--plugins DIR",
                       "--set NODE.key=value",
                       "--camera-set Feature=value",
                       "--duration TIME",
                       "--timeout TIME",
                       "--strict",
                       "--json FILE",
                       "--buffers N"});
    addRow("check", QStringList{"check", "-h"},
           QStringList{"FILE", "--camera ID", "--json", "--sarif", "--strict", "--plugins DIR"});
    addRow("draw", QStringList{"draw", "-h"},
           QStringList{"FILE", "--from-run REPORT", "-o, --output FILE", "--format FORMAT", "--plugins DIR"});
    addRow("compare", QStringList{"compare", "-h"}, QStringList{"A", "B", "--json", "--plugins DIR"});
    addRow("convert", QStringList{"convert", "-h"},
           QStringList{"FILE", "-o, --output FILE", "--camera ID", "--plugins DIR"});
    addRow("models", QStringList{"models", "-h"}, QStringList{"NAME", "--json", "--plugins DIR"});
    addRow("cameras", QStringList{"cameras", "-h"},
           QStringList{"ID", "--test TIME", "--camera-set Feature=value", "--buffers N", "--resend on|off", "--json"});
    addRow("plugins", QStringList{"plugins", "-h"}, QStringList{"--json", "--plugins DIR"});
}

void tst_HalvexHostCommands::help()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, told);
    CHostProgram program;
    QCOMPARE(program.exec(arguments), 0);
    told << "Usage: halvex-host"
         << "Examples:\n  halvex-host ";
    for (const QString& text : qAsConst(told))
        QVERIFY2(program.output().contains(text), qPrintable(text));
    const QStringList lines = program.output().split('\n');
    for (const QString& line : lines)
        QVERIFY2(line.size() <= 80, qPrintable(line));
}

void tst_HalvexHostCommands::version()
{
    CHostProgram program;
    QCOMPARE(program.exec({"--version"}), 0);
    QVERIFY(program.output().startsWith("halvex-host "));
    QVERIFY(program.output().contains('.'));
}

void tst_HalvexHostCommands::refused_data()
{
    addColumns<QString, QString>({"line", "reason"});
    const auto row = [](const char* line, const char* reason) { addRow(line, QString(line), QString(reason)); };
    row("", "No command given. See 'halvex-host --help'.");
    row("walk", "Unknown command 'walk'. See 'halvex-host --help'.");
    row("rum", "Unknown command 'rum'; did you mean 'run'? See 'halvex-host --help'.");
    row("--speed", "Unknown option '--speed'. See 'halvex-host --help'.");
    row("run fast compare", "cannot read 'fast': No such file or directory"); // both are chains
    row("run --frame 3", "Unknown option '--frame'; did you mean '--frames'? See 'halvex-host run --help'.");
    row("run -x", "Unknown option '-x'. See 'halvex-host run --help'.");
    row("run --output o --frames", "Missing value after '--frames'. See 'halvex-host run --help'.");
    row("run --frames x", "--frames takes a whole number from 0 to 1000000000, not 'x'. See 'halvex-host run --help'.");
    row("check", "FILE is required. See 'halvex-host check --help'.");
    row("check a --json --sarif", "--json or --sarif, not both. See 'halvex-host check --help'.");
    row("check a --camera b --camera b", "--camera 'b' is given twice. See 'halvex-host check --help'.");
    row("compare a", "B is required. See 'halvex-host compare --help'.");
    row("compare - -", "A or B from standard input, not both. See 'halvex-host compare --help'.");
    row("draw", "Give a FILE or --from-run REPORT, one of them. See 'halvex-host draw --help'.");
    row("draw a --from-run b", "Give a FILE or --from-run REPORT, one of them. See 'halvex-host draw --help'.");
    row("draw a -o b.gif", "'b.gif' ends with none of .svg, .png and .dot; --format says what it is to be. "
                           "See 'halvex-host draw --help'.");
    row("draw a --format gif", "--format takes svg, png or dot, not 'gif'. See 'halvex-host draw --help'.");
    row("convert", "FILE is required. See 'halvex-host convert --help'.");
    row("compare a b c", "Unexpected argument 'c'. See 'halvex-host compare --help'.");
}

void tst_HalvexHostCommands::refused()
{
    QFETCH(QString, line);
    QFETCH(QString, reason);
    CHostProgram program;
    QCOMPARE(program.exec(line.isEmpty() ? QStringList() : line.split(' ')), 2);
    QCOMPARE(program.errorLines(), QStringList("halvex-host: " + reason));
    QCOMPARE(program.output(), QString());
}

void tst_HalvexHostCommands::completions_data()
{
    addColumns<QStringList, QString, bool>({"words", "told", "areFiles"});
    addRow("command", QStringList{"ch"}, "check\n", false);
    addRow("chain", QStringList{"run", ""}, "", true);
    addRow("file of an option", QStringList{"run", "--save", ""}, "", true);
    addRow("file behind a sign", QStringList{"run", "--save="}, "", true);
    addRow("part of a file behind a sign", QStringList{"run", "--json=rep"}, "", true);
    addRow("no value behind a sign", QStringList{"run", "--keep="}, "", false);
    addRow("number", QStringList{"run", "--frames", ""}, "", false);
    addRow("switch", QStringList{"run", "--resend", ""}, "off\non\n", false);
    addRow("switch behind a sign", QStringList{"run", "--resend="}, "--resend=off\n--resend=on\n", false);
    addRow("format", QStringList{"draw", "--format", ""}, "dot\npng\nsvg\n", false);
    addRow("pixel format", QStringList{"run", "--pixel-format", "M"}, "Mono16\nMono8\n", false);
    addRow("pixel format of a camera that is not asked",
           QStringList{"run", "--camera", "127.0.0.3", "--camera-set", "PixelFormat=Mono14"}, "PixelFormat=Mono14\n",
           false);
    addRow("pixel format of such a camera, with signs",
           QStringList{"run", "--camera=127.0.0.3", "--camera-set=PixelFormat=Mono14"},
           "--camera-set=PixelFormat=Mono14\n", false);
    addRow("feature", QStringList{"run", "--camera-set", "TriggerM"}, "TriggerMode=\n", false);
    addRow("value of a feature", QStringList{"run", "--camera-set", "TriggerMode="},
           "TriggerMode=Off\nTriggerMode=On\n", false);
    addRow("setting", QStringList{"run", "--set", "blur.m"}, "blur.method=\nblur.mostWaiting=\n", false);
    addRow("value of a setting", QStringList{"run", "--set", "blur.method="},
           "blur.method=Box\nblur.method=Gaussian\nblur.method=Median\n", false);
    addRow("number of a setting", QStringList{"run", "--set", "blur.size="}, "", false);
    addRow("model", QStringList{"models", "\"To"}, "To Image\n", false);
    addRow("nothing", QStringList{"plugins", ""}, "", false);
}

void tst_HalvexHostCommands::completions()
{
    QFETCH(QStringList, words);
    QFETCH(bool, areFiles);
    CHostProgram program;
    QCOMPARE(program.exec(QStringList("--complete") + words), areFiles ? 1 : 0);
    QTEST(program.output(), "told");
}

void tst_HalvexHostCommands::completionOfBash_data()
{
    addColumns<QString, QString>({"words", "replies"});
    // As bash splits the line. Behind them stands what bash is asked for besides: names of files, or no blank.
    addRow("chain", "run ''", "; -o default");
    addRow("file of an option", "run --save ''", "; -o default");
    addRow("folder of an option", "run --output ''", "; -o default");
    addRow("words where no file belongs", "run --resend ''", "off on");
    addRow("nothing where no file belongs", "run --frames ''", "");
    addRow("value", "run --set blur.method =", "Box Gaussian Median");
    addRow("part of a value", "run --set blur.method = G", "Gaussian");
    addRow("value behind two signs", "run --set = blur.method = G", "Gaussian");
    addRow("setting behind a sign", "run --set = blur.meth", "blur.method=; -o nospace");
    addRow("switch behind a sign", "run --resend =", "off on");
    addRow("feature", "run --camera-set TriggerM", "TriggerMode=; -o nospace");
    addRow("blank", "models To", "To\\ Image");
    addRow("blank in quotes", "models '\"To'", "To Image");
    addRow("behind a quote", "run --set '\"threshold files\".wri'", "threshold\\ files.writeEvery=; -o nospace");
}

void tst_HalvexHostCommands::completionOfBash()
{
    QFETCH(QString, words);
    // Bash has compopt only while it completes.
    const QString script =
        QStringLiteral(
            "source '%1'; compopt() { asked+=\"; $*\"; }; COMP_WORDS=('%2' %3); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); "
            "_halvex_host; printf %s \"${COMPREPLY[*]}$asked\"")
            .arg(BASH_COMPLETION, HOST_PROGRAM, words);
    QProcess bash;
    bash.start("bash", {"-c", script});
    QVERIFY(bash.waitForFinished());
    QTEST(QString::fromUtf8(bash.readAllStandardOutput()), "replies");
}

void tst_HalvexHostCommands::models()
{
    CHostProgram program;
    QCOMPARE(program.exec({"models"}), 0);
    QCOMPARE(program.output(), QString(R"(Category  Model          Takes  Gives  Settings  Plugin
Filters   Blur           IMG    IMG           6  HalvexHostModels
          Edges          IMG    IMG           7  HalvexHostModels
          Histogram      IMG    IMG           4  HalvexHostModels
          Threshold      IMG    IMG           6  HalvexHostModels
          To Image       VGR    IMG           -  HalvexHostModels
Sinks     PNG Sink       IMG    -             2  HalvexHostModels
          Raw Sink       VGR    -             2  HalvexHostModels
          Video Sink     IMG    -             3  HalvexHostModels
Sources   Camera Source  -      VGR           -  HalvexHostModels
Tools     DecouplerVGR   VGR    VGR           1  Halvex

Converters
  VGR (Veltra Grab Result) to IMG (Host Image)
)"));
}

void tst_HalvexHostCommands::settingsOfAModel()
{
    CHostProgram program;
    QCOMPARE(program.exec({"models", "Blur"}), 0);
    for (const char* line : {"in 0   IMG   Host Image  -\n", "size         int     7           1 to 99, odd\n",
                             "method       one of  Gaussian    Gaussian, Box, Median\n"})
        QVERIFY2(program.output().contains(line), line);
    QCOMPARE(program.exec({"models", "Blr"}), 2);
    QCOMPARE(program.errorLines(), QStringList("halvex-host: no model 'Blr' is registered; did you mean 'Blur'?"));
    QCOMPARE(program.exec({"models", "--plugins", "/nowhere"}), 2);
    QCOMPARE(program.errorLines(), QStringList("halvex-host: cannot read the plugin folder '/nowhere'"));
}

void tst_HalvexHostCommands::modelsAsJson()
{
    CHostProgram program;
    QCOMPARE(program.exec({"models", "--json"}), 0);
    const QJsonObject all = QJsonDocument::fromJson(program.output().toUtf8()).object();
    QCOMPARE(all["converters"].toArray().size(), 1);
    QCOMPARE(program.exec({"models", "Blur", "--json"}), 0);
    const QJsonObject blur = QJsonDocument::fromJson(program.output().toUtf8()).object();
    QVERIFY(all["models"].toArray().contains(blur));
    QCOMPARE(blur["name"], QJsonValue("Blur"));
    QCOMPARE(blur["plugin"], QJsonValue("HalvexHostModels"));
    QCOMPARE(blur["inputs"].toArray().size(), 1);
    QCOMPARE(blur["settings"][0]["range"], QJsonValue("1 to 99, odd"));
}

void tst_HalvexHostCommands::plugins()
{
    CHostProgram program;
    QCOMPARE(program.exec({"plugins"}), 0);
    QVERIFY2(program.output().contains("HalvexHostModels  "), qPrintable(program.output()));
    QVERIFY(!program.output().contains("Not loaded"));
    QCOMPARE(program.exec({"plugins", "--plugins", "/nowhere"}), 2);

    CPluginTestFolder folder;
    QVERIFY(folder.addFile("notes.txt", "no library\n") && folder.addTestPlugins({"base", "lacking"}));
    QCOMPARE(program.exec({"plugins", "--plugins", folder.path()}), 0);
    QVERIFY(program.output().contains("base    1.4.0    test_base.so\n"));
    QVERIFY(program.output().contains("  notes.txt\n    no plugin\n"));
    QVERIFY(program.output().contains("  test_lacking.so\n    it needs 'nobody' 1.0.0, which is not there\n"));
}

void tst_HalvexHostCommands::cameras()
{
    CHostProgram program;
    QCOMPARE(program.exec({"cameras"}), 0);
    QVERIFY(program.output().startsWith("Camera"));
    QVERIFY(program.output().contains("\nfake "));
}

void tst_HalvexHostCommands::featuresOfACamera()
{
    CHostProgram program;
    QCOMPARE(program.exec({"cameras", "fake"}), 0);
    const QString text = program.output().simplified();
    for (const char* line : {"Width 512 integer, 1 to 2048", "SensorWidth 2048 read only", "TriggerMode Off Off, On",
                             "ExposureTimeAbs 10000 float, 10 to 10000000", "TriggerSoftware - command"})
        QVERIFY2(text.contains(line), line);
    const QStringList lines = program.output().split('\n');
    for (const QString& line : lines)
        QVERIFY2(line.size() <= 80, qPrintable(line));
    QCOMPARE(program.exec({"cameras", "127.0.0.3"}), 2);
    QVERIFY(program.errorLines().constLast().startsWith("halvex-host: cannot open camera '127.0.0.3': "));
}

QTEST_GUILESS_MAIN(tst_HalvexHostCommands)
#include "tst_HalvexHostCommands.moc"
