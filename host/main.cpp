// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/Commands.h"

#include <QCoreApplication>

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace {

// The next file that is opened gets the number of a standard stream that is closed: it would be read for commands, or
// have the report written into it. This way there is nothing to read, and writing fails.
void occupyStandardStreams()
{
    int file = 0;
    do
        file = open("/dev/null", O_RDONLY);
    while (file >= 0 && file <= STDERR_FILENO);
    close(file);
}

} // namespace

int main(int argc, char* argv[])
{
    // Output that nobody reads any more is an error to report, like any other, and not the end of the process.
    std::signal(SIGPIPE, SIG_IGN);
    occupyStandardStreams();
    const QCoreApplication application(argc, argv);
    return Host::execute(QCoreApplication::arguments().mid(1));
}
