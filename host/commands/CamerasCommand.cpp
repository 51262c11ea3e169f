// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/EExitCode.h"
#include "host/camera/Device.h"
#include "host/commands/ArgumentValues.h"
#include "host/commands/Commands.h"
#include "host/commands/TestCamera.h"
#include "host/report/CTable.h"
#include "host/report/FeatureList.h"
#include "host/report/Terminal.h"
#include "host/run/Output.h"
#include "host/run/PrintResult.h"

#include <CLI/CLI.hpp>

#include <QJsonDocument>
#include <QJsonObject>

#include <memory>
#include <string>
#include <vector>

namespace Host {

namespace {

struct SCamerasArguments
{
    std::string id;
    std::string time;
    std::string rate;
    std::string pixelFormat;
    std::vector<std::string> features;
    std::string buffers;
    std::string resend;
    bool isJson = false;
};

// One of them.
int print(bool isJson, const QJsonArray& array, const QString& text)
{
    return printResult(isJson ? QString::fromUtf8(QJsonDocument(array).toJson()) : text);
}

int listCameras(bool isJson)
{
    QJsonArray array;
    CTable table({"Camera", "Maker", "Model", "Serial number", "Protocol"});
    for (const SCameraEntry& camera : findCameras()) {
        table.addRow({camera.id, camera.maker, camera.model, camera.serialNumber, camera.protocol});
        array.append(QJsonObject{{"id", camera.id},
                                 {"maker", camera.maker},
                                 {"model", camera.model},
                                 {"serial_number", camera.serialNumber},
                                 {"protocol", camera.protocol}});
    }
    return print(isJson, array, table.text(columnsOf(stdout), takesColors(stdout)));
}

int showFeatures(const QString& id, bool isJson)
{
    CGLibError error;
    const GObjectPtr<_ArvDevice> device = openDevice(id, &error);
    if (!device) {
        printErrorLine(cannotOpenText(id, error));
        return Refused;
    }
    const std::vector<SFeature> features = CFeatures(device.get()).all();
    return print(isJson, featureJson(features), featureText(features, columnsOf(stdout), takesColors(stdout)));
}

void declare(CLI::App& command, SCamerasArguments* arguments)
{
    const char* const group = "Measuring";
    command.add_option("ID", arguments->id, "A camera, as 'cameras' lists it: its features with values and ranges.")
        ->type_name("");
    command.add_flag("--json", arguments->isJson, "Print all of it as JSON.");
    command
        .add_option("--test", arguments->time,
                    "Grab its frames for that time, 500ms, 10s, 5min, and tell what became of their packets, and what "
                    "to change. Exit code 1 when a frame was lost.")
        ->type_name("TIME")
        ->group(group);
    command.add_option("--fps", arguments->rate, "Frames per second (default: as the camera is set).")
        ->type_name("N")
        ->group(group);
    addPixelFormatOption(command, &arguments->pixelFormat).group(group);
    command.add_option("--camera-set", arguments->features, "Set a feature before. May be given several times.")
        ->type_name("Feature=value")
        ->expected(1)
        ->allow_extra_args(false)
        ->take_all()
        ->group(group);
    addBuffersOption(command, &arguments->buffers).group(group);
    addResendOption(command, &arguments->resend).group(group);
}

Action actionFor(const SCamerasArguments& arguments)
{
    const QString id = QString::fromStdString(arguments.id);
    const bool isJson = arguments.isJson;
    const bool isForTest = !arguments.rate.empty() || !arguments.pixelFormat.empty() || !arguments.features.empty() ||
                           !arguments.buffers.empty() || !arguments.resend.empty();
    if (!arguments.time.empty() && id.isEmpty())
        refuse(QStringLiteral("--test takes a camera's ID."));
    if (isForTest && arguments.time.empty())
        refuse(QStringLiteral("--fps, --pixel-format, --camera-set, --buffers and --resend go with --test."));
    if (!arguments.time.empty()) {
        SCameraOptions camera;
        camera.address = id;
        if (!arguments.resend.empty())
            camera.resend = readSwitch("--resend", arguments.resend);
        if (!arguments.rate.empty())
            camera.framesPerSecond = readRate("--fps", arguments.rate, SCameraOptions::mostFramesPerSecond);
        camera.pixelFormat = QString::fromStdString(arguments.pixelFormat);
        camera.features = readFeatures(arguments.features);
        if (!arguments.buffers.empty())
            camera.buffers = readCount("--buffers", arguments.buffers, 1, SCameraOptions::mostBuffers);
        return [camera, isJson, time = readTime("--test", arguments.time)] { return testCamera(camera, time, isJson); };
    }
    return [id, isJson] { return id.isEmpty() ? listCameras(isJson) : showFeatures(id, isJson); };
}

} // namespace

void addCamerasCommand(CLI::App& program, Action* action)
{
    CLI::App& command = addCommand(program, "cameras", "List the cameras, the features of one, or test its link.",
                                   "  halvex-host cameras\n"
                                   "  halvex-host cameras 192.168.0.5\n"
                                   "  halvex-host cameras 192.168.0.5 --test 10s");
    const auto arguments = std::make_shared<SCamerasArguments>();
    declare(command, arguments.get());
    command.final_callback([arguments, action] { *action = actionFor(*arguments); });
}

} // namespace Host
