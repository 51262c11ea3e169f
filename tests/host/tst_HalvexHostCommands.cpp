// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CHostProgram.h"
#include "TestTable.h"

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
};

void tst_HalvexHostCommands::help_data()
{
    addColumns<QStringList, QStringList>({"arguments", "told"});
    addRow("program", QStringList{"--help"}, QStringList{"run", "compare", "Exit codes"});
    addRow("run", QStringList{"run", "--help"},
           QStringList{"[CHAIN]", "--camera ID", "--frames N", "--fps N", "--output DIR", "--pixel-format NAME",
                       "--write-every N", "--load FILE", "--save FILE", "--plugins DIR"});
    addRow("compare", QStringList{"compare", "-h"}, QStringList{"A", "B"});
}

void tst_HalvexHostCommands::help()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, told);
    CHostProgram program;
    QCOMPARE(program.exec(arguments), 0);
    for (const QString& text : told << "Usage: halvex-host"
                                    << "Examples:\n  halvex-host ")
        QVERIFY2(program.output().contains(text), qPrintable(text));
    for (const QString& line : program.output().split('\n'))
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
    row("run a.json fast", "Unexpected argument 'fast'. See 'halvex-host run --help'.");
    row("run a.json compare", "Unexpected argument 'compare'. See 'halvex-host run --help'.");
    row("run --frame 3", "Unknown option '--frame'; did you mean '--frames'? See 'halvex-host run --help'.");
    row("run -x", "Unknown option '-x'. See 'halvex-host run --help'.");
    row("run --output o --frames", "Missing value after '--frames'. See 'halvex-host run --help'.");
    row("run --frames x", "--frames takes a whole number from 1 to 1000000, not 'x'. See 'halvex-host run --help'.");
    row("compare a", "B is required. See 'halvex-host compare --help'.");
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

QTEST_GUILESS_MAIN(tst_HalvexHostCommands)
#include "tst_HalvexHostCommands.moc"
