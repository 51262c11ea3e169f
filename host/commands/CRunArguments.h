// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/commands/CEndingArguments.h"
#include "host/commands/CSourceArguments.h"
#include "host/run/SRunOptions.h"

#include <QString>

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace Host {

/// The arguments of `run`: declared in the constructor, read by the parser, checked by options().
class CRunArguments
{
public:
    /// \a command writes into this object when it is parsed.
    explicit CRunArguments(CLI::App& command);

    /// What was asked for. Throws CLI::ValidationError, with a whole sentence, at the first thing that makes no sense.
    SRunOptions options() const;

private:
    void declareSources(CLI::App& command);
    void declareFiles(CLI::App& command);
    bool isGiven(const char* option) const;
    QString text(const char* option, const std::string& value) const;
    double framesPerSecond(SRunOptions* options) const;
    void readSettings(SCameraOptions* camera, SRunOptions* options) const;
    void readCameras(const SCameraOptions& common, SRunOptions* options) const;
    void readGraph(SRunOptions* options) const;

    const CLI::App& m_command;
    CSourceArguments m_sources;
    CEndingArguments m_ending;
    std::vector<std::string> m_chains;
    std::vector<std::string> m_cameras;
    std::vector<std::string> m_features;
    std::vector<std::string> m_settings;
    std::string m_buffers;
    std::string m_json;
    std::string m_trace;
    bool m_isKept = false;
    std::string m_rate;
    std::string m_pixelFormat;
    std::string m_output;
    std::string m_writeEvery;
    std::string m_load;
    std::string m_save;
    std::string m_plugins;
};

} // namespace Host
