// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/CommandWords.h"

#include <CLI/CLI.hpp>

#include <QTest>

using namespace Host;

class tst_CommandWords : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesInTheirOrder();
};

void tst_CommandWords::namesInTheirOrder()
{
    CLI::App program;
    CLI::App& run = *program.add_subcommand("run");
    program.add_subcommand("check");
    run.set_help_flag("-h,--help");
    run.add_flag("--strict");
    run.add_flag("-q"); // no long name
    std::string chain;
    run.add_option("CHAIN", chain);
    QCOMPARE(commandNames(program), QStringList({"run", "check"}));
    QCOMPARE(optionNames(run), QStringList({"--help", "--strict"}));
}

QTEST_GUILESS_MAIN(tst_CommandWords)
#include "tst_CommandWords.moc"
