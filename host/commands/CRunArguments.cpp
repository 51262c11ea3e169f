// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/CRunArguments.h"

#include "host/commands/ArgumentValues.h"
#include "host/commands/Commands.h"
#include "host/run/Output.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>

namespace Host {

namespace {

// A camera that is no device has no rate of its own worth keeping: far more than the preview shows.
constexpr double fakeFramesPerSecond = 200.0;

} // namespace

CRunArguments::CRunArguments(CLI::App& command)
    : m_command(command)
{
    // What is given twice counts as it was given last, so that scripts can have defaults.
    command.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    declareSources(command);
    m_ending.declare(command);
    declareFiles(command);
}

void CRunArguments::declareSources(CLI::App& command)
{
    command
        .add_option("CHAIN", m_chains,
                    "The chains to import, each for each camera, side by side; '-' is standard input, which then takes "
                    "no 'set' lines (default: the demo's).")
        ->type_name("")
        ->take_all();
    command
        .add_option("--camera", m_cameras,
                    "'fake' (default), 'fake-1'..., or a camera as 'cameras' lists it. May be given several times.")
        ->type_name("ID")
        ->expected(1)
        ->allow_extra_args(false)
        ->take_all();
    command
        .add_option("--fps", m_rate,
                    "Frames per second (default: 200 for fake cameras, else as the camera is set; files as fast as "
                    "they come).")
        ->type_name("N");
    addPixelFormatOption(command, &m_pixelFormat);
    m_sources.declare(command);
    command
        .add_option("--load", m_load,
                    "Stream one camera through the scene of this document instead of a chain; '-' is standard input.")
        ->type_name("FILE");
    command
        .add_option("--set", m_settings,
                    "Set a setting of a model, as 'models NAME' lists it. NODE is an element's name in the chain, or "
                    "a node's number or caption in the printed graph. May be given several times; 'set "
                    "NODE.key=value' on standard input does the same while it runs.")
        ->type_name("NODE.key=value")
        ->expected(1)
        ->allow_extra_args(false)
        ->take_all();
    command
        .add_option("--camera-set", m_features,
                    "Set a GenICam feature, as 'cameras ID' lists it: exposure, gain, trigger... May be given several "
                    "times.")
        ->type_name("Feature=value")
        ->expected(1)
        ->allow_extra_args(false)
        ->take_all();
    addBuffersOption(command, &m_buffers);
    addPluginsOption(command, &m_plugins);
}

void CRunArguments::declareFiles(CLI::App& command)
{
    const char* const group = "What it writes";
    command.add_option("--output", m_output, "Folder for what is written (default: halvex-output).")
        ->type_name("DIR")
        ->group(group);
    command
        .add_flag("--keep", m_isKept,
                  "Give each run a folder in DIR, named by the time; without it a run replaces the one before it.")
        ->group(group);
    command
        .add_option("--write-every", m_writeEvery,
                    "Write one of N frames, where a sink's own 'write_every' says nothing (default: 30).")
        ->type_name("N")
        ->group(group);
    command
        .add_option("--save", m_save,
                    "Write the scene document of one camera, before the first frame is grabbed; '-' is standard "
                    "output, without the table.")
        ->type_name("FILE")
        ->group(group);
    command.add_option("--json", m_json, "Write the report as JSON; '-' is standard output, without the table.")
        ->type_name("FILE")
        ->group(group);
    command
        .add_option("--trace", m_trace,
                    "Write each frame's way as a trace for Perfetto; '-' is standard output, without the table.")
        ->type_name("FILE")
        ->group(group);
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

SRunOptions CRunArguments::options() const
{
    SRunOptions options;
    SCameraOptions camera;
    camera.pixelFormat = text("--pixel-format", m_pixelFormat);
    options.plugins = text("--plugins", m_plugins);
    options.load = text("--load", m_load);
    options.save = outputName(text("--save", m_save));
    if (isGiven("--output"))
        options.output = text("--output", m_output);
    options.json = outputName(text("--json", m_json));
    options.trace = outputName(text("--trace", m_trace));
    options.isKept = m_isKept;
    if (isGiven("--buffers"))
        camera.buffers = readCount("--buffers", m_buffers, 1, SCameraOptions::mostBuffers);
    readSettings(&camera, &options);
    if (isGiven("--write-every"))
        options.writeEvery = readCount("--write-every", m_writeEvery, 1, SRunOptions::maxFrames);
    if (isGiven("--fps"))
        camera.framesPerSecond = framesPerSecond(&options);
    m_sources.readHandling(&camera);
    readCameras(camera, &options);
    m_sources.readFiles(camera.framesPerSecond, camera.buffers, &options);
    m_ending.read(&options);
    readGraph(&options);
    return options;
}

void CRunArguments::readSettings(SCameraOptions* camera, SRunOptions* options) const
{
    for (const std::string& each : m_settings) {
        const SNodeSetting setting = SNodeSetting::read(QString::fromStdString(each));
        if (setting.key.isEmpty())
            refuse(QStringLiteral("--set takes NODE.key=value, not '%1'.").arg(QString::fromStdString(each)));
        options->settings.push_back(setting);
    }
    camera->features = readFeatures(m_features);
}

void CRunArguments::readGraph(SRunOptions* options) const
{
    if (options->sources().size() > 1 && !(options->load.isEmpty() && options->save.isEmpty()))
        refuse(QStringLiteral("--load and --save take one camera."));
    if (options->documents().count(QStringLiteral("-")) > 1)
        refuse(QStringLiteral("One of --save, --json and --trace to standard output, not several."));
    for (const std::string& chain : m_chains)
        options->chains << QString::fromStdString(chain);
    if (options->chains.contains(QString()))
        refuse(QStringLiteral("The chain's file has no name."));
    if (options->chains.count(QStringLiteral("-")) > 1)
        refuse(QStringLiteral("Standard input is one chain: '-' is given twice."));
    m_sources.refuseImages(options->chains);
    refuseShared(options->sharedFile());
    if (!options->chains.isEmpty() && !options->load.isEmpty())
        refuse(QStringLiteral("A chain or --load, not both."));
}

void CRunArguments::readCameras(const SCameraOptions& common, SRunOptions* options) const
{
    options->cameras.clear();
    QStringList addresses = Host::readCameras(m_cameras);
    if (addresses.isEmpty() && !m_sources.hasFiles())
        addresses << common.address;
    for (const QString& address : qAsConst(addresses)) {
        SCameraOptions camera = common;
        camera.address = address;
        if (SCameraOptions::isFake(camera.address) && camera.framesPerSecond <= 0.0)
            camera.framesPerSecond = fakeFramesPerSecond;
        options->cameras.push_back(camera);
    }
}

double CRunArguments::framesPerSecond(SRunOptions* options) const
{
    const double rate = readRate("--fps", m_rate, SCameraOptions::mostFramesPerSecond);
    options->askedForPerSecond = rate;
    // A slow camera is silent between its frames.
    options->timeout = std::max(options->timeout, std::chrono::milliseconds(std::llround(3000.0 / rate)));
    options->silence = std::max(options->silence, std::chrono::milliseconds(std::llround(3000.0 / rate)));
    return rate;
}

} // namespace Host
