// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/run/SRunOptions.h"

#include <QStringList>

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace Host {

/// The arguments of `run` that say where frames come from besides a plain camera: files, and what becomes of a camera
/// that loses packets or goes away. Declared first, read by the parser, then checked.
class CSourceArguments
{
public:
    /// \a command writes into this object when it is parsed. Once, before anything else.
    void declare(CLI::App& command);

    bool hasFiles() const { return !m_images.empty() || !m_videos.empty(); }

    /// Puts into \a camera how each camera is to be handled.
    void readHandling(SCameraOptions* camera) const;

    /// Puts the files into \a options, which has its cameras by now, if any are given; \a framesPerSecond is 0 if none
    /// were asked for. Throws CLI::ValidationError, with a whole sentence, at the first thing that makes no sense.
    void readFiles(double framesPerSecond, int framesInFlight, SRunOptions* options) const;

    /// Refuses images among \a chains: what a shell makes of a pattern that is not in quotes.
    void refuseImages(const QStringList& chains) const;

private:
    void addFiles(SFileOptions::EKind kind, const std::vector<std::string>& places, const SFileOptions& common,
                  SRunOptions* options) const;
    void refuseWhatNeedsACamera() const;

    const CLI::App* m_command = nullptr;
    std::vector<std::string> m_images;
    std::vector<std::string> m_videos;
    std::string m_resend;
    std::string m_reconnect;
    bool m_isLooped = false;
};

} // namespace Host
