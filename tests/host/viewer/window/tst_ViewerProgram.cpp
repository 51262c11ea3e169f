// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

struct SResult
{
    int exitCode;
    QString output;
    QString error;
};

SResult run(const QStringList& arguments)
{
    QProcess program;
    program.start(VIEWER_PROGRAM, arguments);
    if (!program.waitForFinished(60000))
        return {-1, {}, program.errorString()};
    const bool isCrash = program.exitStatus() != QProcess::NormalExit;
    return {isCrash ? -1 : program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError())};
}

} // namespace

/// The program halvex-viewer as people start it.
class tst_ViewerProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void screenshotOfTwoCamerasAndAChain();
    void emptyWindow();
    void help();
    void refusals();
};

void tst_ViewerProgram::screenshotOfTwoCamerasAndAChain()
{
    const QTemporaryDir folder;
    const QString picture = folder.filePath("window.png");
    const SResult result = run({"--forget", "--camera", "fake-1", "--camera", "fake-2", "--chain", DEMO_CHAIN,
                                "--language", "ja", "--screenshot", picture});
    QVERIFY2(result.exitCode == 0, qPrintable(result.error));
    QVERIFY(!QImage(picture).isNull());
}

void tst_ViewerProgram::emptyWindow()
{
    const SResult result = run({"--forget", "--for", "0.5"});
    QVERIFY2(result.exitCode == 0, qPrintable(result.error));
}

void tst_ViewerProgram::help()
{
    const SResult result = run({"--help"});
    QCOMPARE(result.exitCode, 0);
    for (const char* option : {"--camera", "--chain", "--load", "--language", "--screenshot", "--for"})
        QVERIFY(result.output.contains(option));
}

void tst_ViewerProgram::refusals()
{
    const SResult option = run({"--language", "xx"});
    QCOMPARE(option.exitCode, 2);
    QVERIFY(option.error.contains("halvex-viewer: --language takes one of"));
    const SResult folder = run({"--forget", "--plugins", "/nowhere/at/all"});
    QCOMPARE(folder.exitCode, 2);
    QVERIFY(folder.error.contains("/nowhere/at/all"));
}

QTEST_GUILESS_MAIN(tst_ViewerProgram)
#include "tst_ViewerProgram.moc"
