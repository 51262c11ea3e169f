// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/EExitCode.h"
#include "host/check/CDocumentCheck.h"
#include "host/commands/ArgumentValues.h"
#include "host/commands/Commands.h"
#include "host/documents/ChainWriter.h"
#include "host/documents/DocumentFile.h"
#include "host/plugins/CHostServices.h"
#include "host/run/Output.h"
#include "host/run/SceneConversion.h"

#include <Halvex/service/INodeService.h>

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <vector>

namespace Host {

namespace {

struct SConvertArguments
{
    std::string file;
    std::string output = "-";
    std::vector<std::string> cameras;
    std::string plugins;
};

const char* const cannotConvert = "cannot convert '%1'";

QByteArray chainOfScene(const SDocumentFile& scene, const CHostServices& services, QString* error)
{
    CModelCatalogue models(*services.nodes().registry());
    *error = faultsText(QLatin1String(cannotConvert), scene.name, chainFaults(scene.graph, models));
    return error->isEmpty() ? chainText(scene.graph) : QByteArray();
}

QByteArray converted(const QString& file, const QString& camera, const CHostServices& services, QString* error)
{
    SCheckOptions options;
    if (!camera.isEmpty())
        options.cameras << camera;
    CDocumentCheck check(services.nodes(), services.models(), options);
    const SDocumentFile document = readDocumentFile(file, check, error);
    if (error->isEmpty())
        *error = faultsText(QLatin1String(cannotConvert), document.name, document.faults);
    if (!error->isEmpty())
        return {};
    if (document.graph.kind == EDocumentKind::Chain)
        return sceneOfChain(document, camera, services.nodes(), services.models(), error);
    return chainOfScene(document, services, error);
}

int convertDocument(const SConvertArguments& arguments, const QString& camera)
{
    CHostServices services(QString::fromStdString(arguments.plugins));
    QString error = services.load();
    QByteArray document;
    if (error.isEmpty())
        document = converted(QString::fromStdString(arguments.file), camera, services, &error);
    if (!error.isEmpty()) {
        printErrorLine(error);
        return Refused;
    }
    error = writeOutput(QString::fromStdString(arguments.output), document);
    if (!error.isEmpty())
        printErrorLine(error);
    return error.isEmpty() ? Done : Failed;
}

} // namespace

void addConvertCommand(CLI::App& program, Action* action)
{
    const auto arguments = std::make_shared<SConvertArguments>();
    CLI::App& command = addCommand(program, "convert", "Make a scene document of a chain, or a chain of a scene.",
                                   "  halvex-host convert chain.json -o scene.json\n"
                                   "  halvex-host convert --camera 192.168.0.5 chain.json -o scene.json\n"
                                   "  halvex-host convert scene.json | less");
    addDocumentArgument(command, "FILE", &arguments->file).required();
    addOutputOption(command, &arguments->output, "");
    command
        .add_option("--camera", arguments->cameras,
                    "The camera of the scene (default: the one that the chain names, or any).")
        ->type_name("ID")
        ->expected(1)
        ->allow_extra_args(false)
        ->take_all();
    addPluginsOption(command, &arguments->plugins);
    command.final_callback([arguments, action] {
        const QString camera = readCameras(arguments->cameras).value(0);
        *action = [arguments, camera] { return convertDocument(*arguments, camera); };
    });
}

} // namespace Host
