// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/CRunArguments.h"

#include "host/commands/Commands.h"
#include "host/run/Output.h"

#include <Halvex/models/ANodeDataModel.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>

namespace Host {

namespace {

constexpr double maxFramesPerSecond = 10000.0;

// A camera that is no device has no rate of its own worth keeping: far more than the preview shows.
constexpr double fakeFramesPerSecond = 200.0;

[[noreturn]] void refuse(const QString& sentence)
{
    throw CLI::ValidationError(sentence.toStdString());
}

} // namespace

CRunArguments::CRunArguments(CLI::App& command)
    : m_command(command)
{
    declareSources(command);
    declareEnding(command);
    declareFiles(command);
}

void CRunArguments::declareSources(CLI::App& command)
{
    command.add_option("CHAIN", m_chain, "The chain to import for each camera (default: the demo's).")->type_name("");
    command
        .add_option("--camera", m_cameras,
                    "'fake' (default), 'fake-1', 'fake-2'..., or the address of a GigE Vision camera. May be given "
                    "several times.")
        ->type_name("ID")
        ->expected(1)
        ->take_all();
    command
        .add_option("--fps", m_rate, "Frames per second (default: 200 for fake cameras, else as the camera is set).")
        ->type_name("N");
    command.add_option("--pixel-format", m_pixelFormat, "GenICam name, e.g. RGB8 (default: as the camera is set).")
        ->type_name("NAME");
    command.add_option("--load", m_load, "Stream one camera through the scene of this document instead of a chain.")
        ->type_name("FILE");
    addPluginsOption(command, &m_plugins);
}

void CRunArguments::declareEnding(CLI::App& command)
{
    command.add_option("--frames", m_frames, "End after N complete frames of each camera (default: 300).")
        ->type_name("N");
}

void CRunArguments::declareFiles(CLI::App& command)
{
    command.add_option("--output", m_output, "Folder for what is written (default: halvex-output).")->type_name("DIR");
    command.add_option("--write-every", m_writeEvery, "Write one of N frames (default: 30).")->type_name("N");
    command.add_option("--save", m_save, "Write the scene document of one camera, before the first frame is grabbed.")
        ->type_name("FILE");
}

bool CRunArguments::isGiven(const char* option) const
{
    return m_command.count(option) > 0;
}

QString CRunArguments::text(const char* option, const std::string& value) const
{
    if (isGiven(option) && value.empty())
        refuse(QStringLiteral("%1 is empty.").arg(QLatin1String(option)));
    return QString::fromStdString(value);
}

int CRunArguments::count(const char* option, const std::string& value, int least, int most) const
{
    const QString text = QString::fromStdString(value);
    bool ok = false;
    const int number = text.toInt(&ok);
    if (!ok || number < least || number > most)
        refuse(QStringLiteral("%1 takes a whole number from %2 to %3, not '%4'.")
                   .arg(QLatin1String(option), QString::number(least), QString::number(most), text));
    return number;
}

SRunOptions CRunArguments::options() const
{
    SRunOptions options;
    SCameraOptions camera;
    camera.pixelFormat = text("--pixel-format", m_pixelFormat);
    options.plugins = text("--plugins", m_plugins);
    options.load = text("--load", m_load);
    options.save = text("--save", m_save);
    if (isGiven("--output"))
        options.output = text("--output", m_output);
    if (isGiven("--frames"))
        options.frames = count("--frames", m_frames, 1, SRunOptions::maxFrames);
    if (isGiven("--write-every"))
        options.writeEvery = count("--write-every", m_writeEvery, 1, SRunOptions::maxFrames);
    if (isGiven("--fps"))
        camera.framesPerSecond = framesPerSecond(&options);
    readCameras(camera, &options);
    readGraph(&options);
    return options;
}

void CRunArguments::readGraph(SRunOptions* options) const
{
    const bool isForOne = !options->load.isEmpty() || !options->save.isEmpty();
    if (isForOne && options->cameras.size() > 1)
        refuse(QStringLiteral("--load and --save take one camera."));
    if (!isGiven("CHAIN"))
        return;
    options->chain = QString::fromStdString(m_chain);
    if (options->chain.isEmpty())
        refuse(QStringLiteral("The chain's file has no name."));
    if (!options->load.isEmpty())
        refuse(QStringLiteral("A chain or --load, not both."));
}

void CRunArguments::readCameras(const SCameraOptions& common, SRunOptions* options) const
{
    options->cameras.clear();
    std::vector<std::string> addresses = m_cameras;
    if (addresses.empty())
        addresses.push_back(common.address.toStdString());
    for (const std::string& each : addresses) {
        SCameraOptions camera = common;
        camera.address = QString::fromStdString(each);
        if (camera.address.isEmpty())
            refuse(QStringLiteral("--camera is empty."));
        // Its files go into a folder of that name, beside the chain's; and what is no unique name gets no scene.
        if (!makesAFolder(camera.address) || camera.address == QLatin1String("chain.json") ||
            camera.address == Plugin::Halvex::ANodeDataModel::noUniqueName())
            refuse(QStringLiteral("--camera '%1' is no address.").arg(camera.address));
        if (std::count(addresses.begin(), addresses.end(), each) > 1)
            refuse(QStringLiteral("--camera '%1' is given twice.").arg(camera.address));
        if (SCameraOptions::isFake(camera.address) && camera.framesPerSecond <= 0.0)
            camera.framesPerSecond = fakeFramesPerSecond;
        options->cameras.push_back(camera);
    }
}

double CRunArguments::framesPerSecond(SRunOptions* options) const
{
    const QString text = QString::fromStdString(m_rate);
    const double rate = text.toDouble();
    if (!(rate > 0.0 && rate <= maxFramesPerSecond))
        refuse(QStringLiteral("--fps takes a number above 0, at most %1, not '%2'.")
                   .arg(QString::number(maxFramesPerSecond), text));
    // A slow camera is silent between its frames.
    options->silence = std::max(options->silence, std::chrono::milliseconds(std::llround(3000.0 / rate)));
    return rate;
}

} // namespace Host
