// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CCommandLine.h"
#include "host/run/CStreamRun.h"
#include "host/run/Output.h"
#include "host/run/SceneFile.h"

#include <QCoreApplication>

#include <csignal>

int main(int argc, char* argv[])
{
    // Output that nobody reads any more is an error to report, like any other, and not the end of the process.
    std::signal(SIGPIPE, SIG_IGN);
    const QCoreApplication application(argc, argv);
    const Host::CCommandLine commandLine(QCoreApplication::arguments());
    switch (commandLine.action()) {
    case Host::CCommandLine::EAction::Compare:
        return Host::compareSceneFiles(commandLine.files().at(0), commandLine.files().at(1));
    case Host::CCommandLine::EAction::Print:
        return Host::printText(commandLine.text()) ? Host::CStreamRun::Success : Host::CStreamRun::Failure;
    case Host::CCommandLine::EAction::Refuse:
        Host::printErrorLine(commandLine.text());
        return Host::CStreamRun::Failure;
    case Host::CCommandLine::EAction::Run:
        break;
    }
    return Host::CStreamRun(commandLine.options()).exec();
}
