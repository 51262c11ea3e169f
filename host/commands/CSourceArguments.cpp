// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/CSourceArguments.h"

#include "host/commands/ArgumentValues.h"
#include "host/commands/Commands.h"
#include "host/sources/CImageFiles.h"

#include <CLI/CLI.hpp>

#include <QDir>
#include <QFileInfo>

namespace Host {

namespace {

void declareFiles(CLI::App& command, const char* option, const char* type, const char* description,
                  std::vector<std::string>* places)
{
    command.add_option(option, *places, description)->type_name(type)->expected(1)->allow_extra_args(false)->take_all();
}

} // namespace

void CSourceArguments::declare(CLI::App& command)
{
    m_command = &command;
    declareFiles(command, "--images", "DIR|GLOB",
                 "Images in place of a camera: of a folder, or of a pattern in quotes, such as 'shots/*.png', in the "
                 "order of their names. 16 bits stay 16 bits. Chains call it 'images'; given again, 'images-2'...",
                 &m_images);
    declareFiles(command, "--video", "FILE",
                 "A video in place of a camera. Chains call it 'video'; given again, 'video-2'... Without --fps, "
                 "images and videos come as fast as the graph takes them; the run ends by itself at their end.",
                 &m_videos);
    command.add_flag("--loop", m_isLooped, "Images and videos begin again at their end.");
    command.add_flag("--reconnect", m_reconnect,
                     "Wait for a camera that has gone, and go on when it comes back: for 60s each time, or as long as "
                     "--reconnect=TIME says.");
    addResendOption(command, &m_resend);
}

void CSourceArguments::readHandling(SCameraOptions* camera) const
{
    if (m_command->count("--reconnect") > 0)
        camera->reconnect = readTime("--reconnect", m_reconnect == "true" ? "60s" : m_reconnect);
    if (m_command->count("--resend") > 0)
        camera->resend = readSwitch("--resend", m_resend);
}

void CSourceArguments::readFiles(double framesPerSecond, int framesInFlight, SRunOptions* options) const
{
    if (!hasFiles()) {
        if (m_isLooped)
            refuse(QStringLiteral("--loop is for --images and --video."));
        return;
    }
    if (options->cameras.empty())
        refuseWhatNeedsACamera();
    SFileOptions common;
    common.framesPerSecond = framesPerSecond;
    common.framesInFlight = framesInFlight;
    common.isLooped = m_isLooped;
    addFiles(SFileOptions::EKind::Images, m_images, common, options);
    addFiles(SFileOptions::EKind::Video, m_videos, common, options);
}

void CSourceArguments::addFiles(SFileOptions::EKind kind, const std::vector<std::string>& places,
                                const SFileOptions& common, SRunOptions* options) const
{
    const QString name = kind == SFileOptions::EKind::Images ? QStringLiteral("images") : QStringLiteral("video");
    for (std::size_t i = 0; i < places.size(); ++i) {
        SFileOptions files = common;
        files.kind = kind;
        files.name = i == 0 ? name : QStringLiteral("%1-%2").arg(name).arg(i + 1);
        files.place = QString::fromStdString(places[i]);
        if (files.place.isEmpty())
            refuse(QStringLiteral("--%1 is empty.").arg(name));
        for (const SCameraOptions& camera : options->cameras) {
            if (camera.address == files.name)
                refuse(QStringLiteral("--camera '%1' is called as --%2 is.").arg(files.name, name));
        }
        options->files.push_back(files);
    }
}

void CSourceArguments::refuseWhatNeedsACamera() const
{
    for (const char* option : {"--pixel-format", "--camera-set", "--resend", "--reconnect"}) {
        if (m_command->count(option) > 0)
            refuse(QStringLiteral("%1 is for cameras, and this run has none.").arg(QLatin1String(option)));
    }
}

void CSourceArguments::refuseImages(const QStringList& chains) const
{
    for (const QString& chain : chains) {
        if (!m_images.empty() && QDir::match(CImageFiles::namePatterns(), QFileInfo(chain).fileName()))
            refuse(QStringLiteral("The image '%1' is no chain; put the pattern for --images in quotes.").arg(chain));
    }
}

} // namespace Host
