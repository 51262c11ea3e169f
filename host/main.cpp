// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/Commands.h"

#include <QCoreApplication>

#include <csignal>

int main(int argc, char* argv[])
{
    // Output that nobody reads any more is an error to report, like any other, and not the end of the process.
    std::signal(SIGPIPE, SIG_IGN);
    const QCoreApplication application(argc, argv);
    return Host::execute(QCoreApplication::arguments().mid(1));
}
