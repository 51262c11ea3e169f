// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CHostProgram.h"

#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <unistd.h>

/// The program on terminals of several widths, and where nobody reads what it prints.
class tst_HalvexHostTerminal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesFit_data();
    void linesFit();
    void headingsAreBoldOnATerminal_data();
    void headingsAreBoldOnATerminal();
    void fullStandardOutput_data();
    void fullStandardOutput();
    void closedPipe();

private:
    QString shownBy(const QString& command, int columns, const QProcessEnvironment& environment);

    QTemporaryDir m_folder;
};

// What stands on a terminal of so many columns; util-linux brings one.
QString tst_HalvexHostTerminal::shownBy(const QString& command, int columns, const QProcessEnvironment& environment)
{
    QProcess terminal;
    terminal.setProcessEnvironment(environment);
    terminal.setWorkingDirectory(m_folder.path());
    terminal.start(
        QStringLiteral("script"),
        {"-qec", QStringLiteral("stty cols %1; exec %2 %3").arg(columns).arg(HOST_PROGRAM, command), "/dev/null"});
    terminal.closeWriteChannel();
    if (!terminal.waitForFinished(60000) || terminal.exitCode() != 0)
        return QStringLiteral("exit code %1").arg(terminal.exitCode());
    return QString::fromUtf8(terminal.readAllStandardOutput());
}

void tst_HalvexHostTerminal::linesFit_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("columns");
    for (const char* command :
         {"run --frames 3", "run --frames 3 --camera fake-1 --camera fake-2", "models", "models Blur",
          "models 'PNG Sink'", "cameras", "cameras fake", "cameras fake --test 300ms", "plugins", "--help",
          "run --help", "check --help", "draw --help", "compare --help", "convert --help", "models --help",
          "cameras --help", "plugins --help"}) {
        for (const int columns : {40, 80, 200})
            QTest::newRow(qPrintable(QStringLiteral("%1 at %2").arg(command).arg(columns)))
                << QString(command) << columns;
    }
}

void tst_HalvexHostTerminal::linesFit()
{
    QFETCH(QString, command);
    QFETCH(int, columns);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("NO_COLOR"), QStringLiteral("1"));
    const QString text = shownBy(command, columns, environment);
    QVERIFY(text.size() > 40);
    // A line that is drawn anew counts as many.
    const QStringList lines = QString(text).replace('\r', '\n').split('\n');
    for (const QString& line : lines) {
        QVERIFY2(!line.startsWith("exit code"), qPrintable(line));
        // Names of files and plugins are not broken, nor is where they lie.
        const bool isName = line.contains(".png") || line.contains(".so") || line.startsWith("Loaded from ") ||
                            line.endsWith("  HalvexHostModels");
        QVERIFY2(line.size() <= columns || isName, qPrintable(line));
        QVERIFY2(!line.endsWith(' ') || line.contains("frame"), qPrintable('\'' + line + '\''));
        QVERIFY2(!line.contains(" 1 frames") && !line.contains(" 1 bytes"), qPrintable(line));
    }
}

void tst_HalvexHostTerminal::headingsAreBoldOnATerminal_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("isBold");
    QTest::newRow("terminal") << "TERM"
                              << "xterm" << true;
    QTest::newRow("dumb terminal") << "TERM"
                                   << "dumb" << false;
    QTest::newRow("NO_COLOR") << "NO_COLOR"
                              << "1" << false;
    QTest::newRow("empty NO_COLOR") << "NO_COLOR"
                                    << "" << true;
}

void tst_HalvexHostTerminal::headingsAreBoldOnATerminal()
{
    QFETCH(QString, variable);
    QFETCH(QString, value);
    QFETCH(bool, isBold);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("NO_COLOR"));
    environment.insert(QStringLiteral("TERM"), QStringLiteral("xterm"));
    environment.insert(variable, value);
    for (const char* command : {"models", "cameras fake", "plugins", "run --frames 1"}) {
        const QString text = shownBy(command, 80, environment);
        QCOMPARE(text.contains("\x1b[1m"), isBold);
        QCOMPARE(text.count("\x1b[1m"), text.count("\x1b[0m"));
    }
    CHostProgram program;
    QCOMPARE(program.exec({"models"}), 0);
    QVERIFY(!program.output().contains('\x1b'));
}

void tst_HalvexHostTerminal::fullStandardOutput_data()
{
    QTest::addColumn<QStringList>("arguments");
    for (const char* line : {"--help", "--version", "models", "models Blur", "cameras", "cameras fake",
                             "cameras fake --json", "cameras fake --test 100ms", "plugins"})
        QTest::newRow(line) << QString(line).split(' ');
}

void tst_HalvexHostTerminal::fullStandardOutput()
{
    QFETCH(QStringList, arguments);
    CHostProgram program;
    program.process().setStandardOutputFile(QStringLiteral("/dev/full"));
    QCOMPARE(program.exec(arguments), 1);
    QCOMPARE(program.errorLines().constLast(),
             QStringLiteral("halvex-host: cannot write to standard output: No space left on device"));
}

void tst_HalvexHostTerminal::closedPipe()
{
    int ends[2] = {};
    QCOMPARE(pipe2(ends, O_CLOEXEC), 0);
    CHostProgram program;
    program.process().setStandardOutputFile(QStringLiteral("/proc/self/fd/%1").arg(ends[1]));
    program.start({"run", "--frames", "20"});
    QVERIFY(program.process().waitForStarted());
    // Nobody reads any more by the time that there is something to tell.
    for (const int end : ends)
        close(end);
    QVERIFY(program.waitForEnd());
    QCOMPARE(program.process().exitCode(), 1);
    QCOMPARE(program.errorLines().constLast(),
             QStringLiteral("halvex-host: cannot write to standard output: Broken pipe"));
}

QTEST_GUILESS_MAIN(tst_HalvexHostTerminal)
#include "tst_HalvexHostTerminal.moc"
