// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/Commands.h"
#include "host/run/SceneFile.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace Host {

void addCompareCommand(CLI::App& program, Action* action)
{
    struct SFiles
    {
        std::string left;
        std::string right;
    };
    const auto files = std::make_shared<SFiles>();
    CLI::App& command =
        addCommand(program, "compare", "Tell whether two scene documents are the same but for order; exit code 0 or 1.",
                   "  halvex-host compare before.json after.json");
    command.add_option("A", files->left, "A scene document.")->required()->type_name("");
    command.add_option("B", files->right, "Another one.")->required()->type_name("");
    command.final_callback([files, action] {
        *action = [files] {
            return compareSceneFiles(QString::fromStdString(files->left), QString::fromStdString(files->right));
        };
    });
}

} // namespace Host
