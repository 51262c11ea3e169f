// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// halvex-check as a program: what it prints, and how it ends. golden/halvex-check/ has whole outputs;
// HALVEX_WRITE_REPORTS=1 writes them anew, to be read before they are committed.

#include "GoldenFile.h"

#include <QProcess>
#include <QtTest>

namespace {

struct SRun
{
    int exitCode = -1;
    QString output;
    QString errors;

    int findings() const { return int(output.count("\n  page  ")); }
};

SRun run(const QStringList& arguments, const QString& mistake = {})
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HALVEX_TEST_MISTAKE", mistake);
    process.setProcessEnvironment(environment);
    process.start(HALVEX_CHECK, arguments);
    if (!process.waitForFinished(100000) || process.exitStatus() != QProcess::NormalExit)
        qFatal("%s does not end as it should", HALVEX_CHECK);
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

const QString few = QStringLiteral("--instances=20");

} // namespace

class tst_HalvexCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void soundPlugins_data();
    void soundPlugins();
    void modelsThatEndTheProcess();
    void modelsOfFrames();
    void modelsOfConvertedFrames();
    void modelThatHangs();
    void modelThatHangsAndPrints();
    void mistakesOfPlugins_data();
    void mistakesOfPlugins();
    void pluginThatComesUpForAWhile();
    void nothingIsChecked_data();
    void nothingIsChecked();
    void companions();
    void oneModel();
    void skippedRule();
    void times();
    void longestCall();
    void listOfRules();
    void wrongArguments_data();
    void wrongArguments();
};

void tst_HalvexCheck::soundPlugins_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("models");
    QTest::newRow("the library") << HALVEX_PLUGIN << 1;
    QTest::newRow("no models") << MISTAKEN_PLUGIN << 0;
#ifdef HOST_MODELS_PLUGIN
    QTest::newRow("the host's models") << HOST_MODELS_PLUGIN << 9;
#endif
}

void tst_HalvexCheck::soundPlugins()
{
    QFETCH(QString, file);
    QFETCH(int, models);
    const SRun done = run({file});
    QVERIFY2(done.exitCode == 0, qPrintable(done.output + done.errors));
    QVERIFY2(done.output.endsWith(QString("models checked: %1, rules broken: 0\n").arg(models)),
             qPrintable(done.output));
    // What they take is frames, or can be made of frames.
    QVERIFY2(!done.output.contains("SCheckOptions::makeData"), qPrintable(done.output));
    if (file == HALVEX_PLUGIN)
        QVERIFY2(!done.output.contains("SCheckOptions::checksum"), qPrintable(done.output));
}

void tst_HalvexCheck::modelsThatEndTheProcess()
{
    const SRun done = run({few, MISTAKEN_PLUGIN}, "models");
    QCOMPARE(done.exitCode, 1);
    compareWithGolden("halvex-check/models.txt", done.output);
    QVERIFY(done.errors.contains("What a plugin prints is no message.\n"));
}

// They are fed with frames that have pixels, which nobody but halvex-check makes.
void tst_HalvexCheck::modelsOfFrames()
{
    const SRun done = run({few, MISTAKEN_PLUGIN}, "frames");
    QCOMPARE(done.exitCode, 1);
    QVERIFY2(!done.output.contains("SCheckOptions"), qPrintable(done.output));
    compareWithGolden("halvex-check/frames.txt", done.output);
}

// Nobody but a converter of the plugin makes what they take.
void tst_HalvexCheck::modelsOfConvertedFrames()
{
    const SRun done = run({few, MISTAKEN_PLUGIN}, "converted");
    QCOMPARE(done.exitCode, 1);
    compareWithGolden("halvex-check/converted.txt", done.output);
}

void tst_HalvexCheck::modelThatHangs()
{
    const SRun done = run({few, "--timeout=3", "--model=Hangs", MISTAKEN_PLUGIN}, "hangs");
    QCOMPARE(done.exitCode, 1);
    compareWithGolden("halvex-check/hangs.txt", done.output);
}

// What it prints is no sign that it comes along with a rule.
void tst_HalvexCheck::modelThatHangsAndPrints()
{
    const SRun done = run({few, "--timeout=3", "--model=Hangs and prints", MISTAKEN_PLUGIN}, "hangs");
    QCOMPARE(done.exitCode, 1);
    QVERIFY2(done.output.contains("\nanswers-questions\n  seen  the process did not come back within 3 s\n"),
             qPrintable(done.output));
    QVERIFY2(done.errors.endsWith("The last word"), qPrintable(done.errors));
}

void tst_HalvexCheck::mistakesOfPlugins_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("mistake");
    QTest::addColumn<QString>("rule");
    QTest::newRow("no plugin") << QT_CORE << ""
                               << "has-metadata";
    QTest::newRow("ends in its constructor") << MISTAKEN_PLUGIN << "ends-in-constructor"
                                             << "loads";
    QTest::newRow("refuses") << MISTAKEN_PLUGIN << "refuses"
                             << "comes-up";
    QTest::newRow("needs a manager") << MISTAKEN_PLUGIN << "needs-manager"
                                     << "takes-a-missing-manager";
    QTest::newRow("keeps a service") << MISTAKEN_PLUGIN << "keeps-service"
                                     << "withdraws-its-services";
    QTest::newRow("works once") << MISTAKEN_PLUGIN << "once"
                                << "lives-twice";
    QTest::newRow("literal name") << MISTAKEN_PLUGIN << "literal"
                                  << "texts-outlive-the-plugin";
    QTest::newRow("stays in memory") << MISTAKEN_PLUGIN << "stays"
                                     << "unloads";
}

void tst_HalvexCheck::mistakesOfPlugins()
{
    QFETCH(QString, file);
    QFETCH(QString, mistake);
    QFETCH(QString, rule);
    const SRun done = run({few, file}, mistake);
    QVERIFY2(done.output.contains('\n' + rule + "\n  seen  "), qPrintable(done.output + done.errors));
    QCOMPARE(done.exitCode, 1);
    QVERIFY2(done.findings() == 1, qPrintable(done.output));
}

// Lists its models, and refuses when one of them is to be checked.
void tst_HalvexCheck::pluginThatComesUpForAWhile()
{
    const SRun done = run({few, MISTAKEN_PLUGIN}, "refuses-later");
    QVERIFY2(done.output.contains("\ncomes-up\n  seen  initialize() returned false\n"), qPrintable(done.output));
    QCOMPARE(done.exitCode, 1);
    QVERIFY2(done.findings() == 1, qPrintable(done.output));
}

void tst_HalvexCheck::nothingIsChecked_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("mistake");
    QTest::addColumn<QString>("error");
    QTest::newRow("skips the rule that is broken") << "--skip=comes-up"
                                                   << "refuses"
                                                   << "initialize() returned false";
    QTest::newRow("refuses") << "--model=Sound"
                             << "refuses"
                             << "initialize() returned false";
    QTest::newRow("ends in its constructor") << "--model=Sound"
                                             << "ends-in-constructor"
                                             << "ended by signal 6";
}

void tst_HalvexCheck::nothingIsChecked()
{
    QFETCH(QString, option);
    QFETCH(QString, mistake);
    QFETCH(QString, error);
    const SRun done = run({few, option, MISTAKEN_PLUGIN}, mistake);
    QVERIFY2(done.exitCode == 2, qPrintable(done.output + done.errors));
    QVERIFY2(done.errors.contains(error), qPrintable(done.errors));
}

void tst_HalvexCheck::companions()
{
    const SRun missing = run({few, "--with=/nowhere.so", MISTAKEN_PLUGIN});
    QCOMPARE(missing.exitCode, 1);
    QVERIFY2(missing.output.contains("\ncomes-up\n  seen  "), qPrintable(missing.output));
#ifdef HOST_MODELS_PLUGIN
    // Models of a companion are not checked.
    const SRun done = run({few, QString("--with=") + MISTAKEN_PLUGIN, HOST_MODELS_PLUGIN}, "models");
    QVERIFY2(done.exitCode == 0, qPrintable(done.output + done.errors));
    QVERIFY2(done.output.endsWith("models checked: 9, rules broken: 0\n"), qPrintable(done.output));
#endif
}

void tst_HalvexCheck::oneModel()
{
    const SRun done = run({few, "--model", "Sound", MISTAKEN_PLUGIN}, "models");
    QVERIFY2(done.exitCode == 0, qPrintable(done.output + done.errors));
    QVERIFY(done.output.startsWith("Sound keeps "));
    QVERIFY(done.output.endsWith("models checked: 1, rules broken: 0\n"));
}

void tst_HalvexCheck::skippedRule()
{
    const SRun done = run({few, "--model=Prints", "--skip=has-a-caption", MISTAKEN_PLUGIN}, "models");
    QVERIFY2(done.exitCode == 0, qPrintable(done.output + done.errors));
}

void tst_HalvexCheck::times()
{
    const QStringList arguments{few, "--model=Sound", MISTAKEN_PLUGIN};
    QVERIFY(!run(arguments, "models").output.contains("setInData  "));
    QVERIFY(run(QStringList{"--times"} + arguments, "models").output.contains("setInData  "));
}

void tst_HalvexCheck::longestCall()
{
    const QStringList arguments{few, "--model=Slow", MISTAKEN_PLUGIN};
    const SRun done = run(QStringList{"--longest-call=1000"} + arguments, "hangs");
    QCOMPARE(done.exitCode, 1);
    QVERIFY2(done.output.contains("\nanswers-in-time\n  seen  "), qPrintable(done.output));
    QCOMPARE(run(QStringList{"--longest-call=100000000"} + arguments, "hangs").exitCode, 0);
}

void tst_HalvexCheck::listOfRules()
{
    const SRun done = run({"--rules"});
    QCOMPARE(done.exitCode, 0);
    for (const char* rule : {"ports-stay-the-same", "type-is-complete", "converts-empty-data", "unloads"})
        QVERIFY2(done.output.contains(QString("\n  %1\n").arg(rule)), rule);
}

void tst_HalvexCheck::wrongArguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");
    QTest::newRow("none") << QStringList{} << "it takes the file of one plugin";
    QTest::newRow("two files") << QStringList{HALVEX_PLUGIN, HALVEX_PLUGIN} << "it takes the file of one plugin";
    QTest::newRow("no file") << QStringList{"/nowhere.so"} << "there is no file '/nowhere.so'";
    QTest::newRow("no option") << QStringList{"--modle=x", HALVEX_PLUGIN} << "modle";
    QTest::newRow("no number") << QStringList{"--timeout=soon", HALVEX_PLUGIN} << "--timeout takes a number from 1 on";
    QTest::newRow("no model") << QStringList{"--model=Blurr", HALVEX_PLUGIN} << "registers no model 'Blurr'";
    QTest::newRow("no rule") << QStringList{"--skip=has-a-captoin", HALVEX_PLUGIN} << "no rule 'has-a-captoin'";
}

void tst_HalvexCheck::wrongArguments()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, error);
    const SRun done = run(arguments);
    QCOMPARE(done.exitCode, 2);
    QVERIFY2(done.errors.contains(error), qPrintable(done.errors));
}

QTEST_GUILESS_MAIN(tst_HalvexCheck)
#include "tst_HalvexCheck.moc"
