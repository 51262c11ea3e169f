// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/CRunArguments.h"
#include "host/commands/Commands.h"
#include "host/run/CStreamRun.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace Host {

void addRunCommand(CLI::App& program, Action* action)
{
    CLI::App& command =
        addCommand(program, "run", "Stream cameras or files; write images, raw frames or video; print a table.",
                   "  halvex-host run\n"
                   "  halvex-host run --pixel-format RGB8 --fps 100 --output out\n"
                   "  halvex-host run chain.json --camera 192.168.0.5 --frames 1000\n"
                   "  halvex-host run --images 'shots/*.png' --write-every 1\n"
                   "  halvex-host run --video film.avi --fps 25 --loop");
    const auto arguments = std::make_shared<CRunArguments>(command);
    command.final_callback(
        [arguments, action] { *action = [options = arguments->options()] { return CStreamRun(options).exec(); }; });
}

} // namespace Host
