// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/CEndingArguments.h"

#include "host/commands/ArgumentValues.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace Host {

void CEndingArguments::declare(CLI::App& command)
{
    m_command = &command;
    const char* const group = "When it ends";
    command
        .add_option(
            "--frames", m_frames,
            "End after N complete frames of each camera; 0: with Ctrl-C, or at the end of the files (default: 300 with "
            "fake cameras, else 0).")
        ->type_name("N")
        ->group(group);
    command
        .add_option("--duration", m_duration,
                    "End after that time: 500ms, 30s, 5min, 2h, or 30 for seconds; 0: with Ctrl-C.")
        ->type_name("TIME")
        ->group(group);
    command
        .add_option("--timeout", m_timeout,
                    "Give up a camera that gives no whole frame for so long (default: 10s; 5s if nothing comes at "
                    "all).")
        ->type_name("TIME")
        ->group(group);
    command
        .add_flag("--strict", m_isStrict,
                  "Frames lost, or a rate missed by more than 5 %, end the run with exit code 1.")
        ->group(group);
}

bool CEndingArguments::isGiven(const char* option) const
{
    return m_command->count(option) > 0;
}

void CEndingArguments::read(SRunOptions* options) const
{
    Q_ASSERT(m_command); // declare() comes first
    const bool hasRealCamera = std::any_of(options->cameras.begin(), options->cameras.end(),
                                           [](const auto& camera) { return !SCameraOptions::isFake(camera.address); });
    options->isStrict = m_isStrict;
    if (isGiven("--duration") && m_duration != "0")
        options->duration = readTime("--duration", m_duration);
    if (isGiven("--timeout"))
        options->silence = options->timeout = readTime("--timeout", m_timeout);
    for (SCameraOptions& camera : options->cameras)
        camera.silence = options->silence;
    if (isGiven("--frames"))
        options->frames = readCount("--frames", m_frames, 0, SRunOptions::maxFrames);
    else if (hasRealCamera || !options->files.empty() || isGiven("--duration"))
        options->frames = 0;
}

} // namespace Host
