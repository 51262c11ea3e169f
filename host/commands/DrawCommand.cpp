// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/Counted.h"
#include "host/base/EExitCode.h"
#include "host/base/InputFile.h"
#include "host/check/CDocumentCheck.h"
#include "host/commands/ArgumentValues.h"
#include "host/commands/Commands.h"
#include "host/documents/DocumentFile.h"
#include "host/documents/DocumentPicture.h"
#include "host/documents/Drawing.h"
#include "host/documents/PictureText.h"
#include "host/documents/RunPicture.h"
#include "host/plugins/CHostServices.h"
#include "host/run/Output.h"

#include <CLI/CLI.hpp>

#include <QFileInfo>

#include <map>
#include <memory>
#include <string>

namespace Host {

namespace {

struct SDrawArguments
{
    std::string file;
    std::string report;
    std::string output = "-";
    std::string format;
    std::string plugins;
};

// What it says are texts of plugins: it goes before they do.
SPicture pictureOfDocument(const QString& file, CHostServices& services, QString* error)
{
    *error = services.load();
    if (!error->isEmpty())
        return {};
    CDocumentCheck check(services.nodes(), services.models());
    const SDocumentFile document = readDocumentFile(file, check, error);
    if (error->isEmpty())
        *error = unreadableText(document);
    return error->isEmpty() ? documentPicture(document.graph) : SPicture();
}

SPicture pictureOfRun(const QString& file, QString* error)
{
    const QByteArray report = readDocument(file, error);
    if (!error->isEmpty())
        return {};
    QString reason;
    const SPicture picture = runPicture(report, &reason);
    if (!reason.isEmpty())
        *error = QStringLiteral("cannot read '%1': %2").arg(inputName(file), reason);
    return picture;
}

int drawPicture(const SDrawArguments& arguments, EDrawing kind)
{
    CHostServices services(QString::fromStdString(arguments.plugins));
    QString error;
    const SPicture picture = arguments.report.empty()
                                 ? pictureOfDocument(QString::fromStdString(arguments.file), services, &error)
                                 : pictureOfRun(QString::fromStdString(arguments.report), &error);
    if (error.isEmpty() && kind != EDrawing::Dot && picture.nodes.size() > mostDrawn)
        error = QStringLiteral("it has %1, and %2 can be drawn; --format dot writes it for other programs")
                    .arg(counted(picture.nodes.size(), "node"))
                    .arg(mostDrawn);
    if (!error.isEmpty()) {
        printErrorLine(error);
        return Refused;
    }
    const QByteArray bytes = draw(dotText(picture), kind, &error);
    if (error.isEmpty())
        error = writeOutput(QString::fromStdString(arguments.output), bytes);
    else
        error = QStringLiteral("cannot draw it: %1").arg(error);
    if (!error.isEmpty())
        printErrorLine(error);
    return error.isEmpty() ? Done : Failed;
}

EDrawing formatOf(const SDrawArguments& arguments)
{
    static const std::map<QString, EDrawing> formats{{QStringLiteral("svg"), EDrawing::Svg},
                                                     {QStringLiteral("png"), EDrawing::Png},
                                                     {QStringLiteral("dot"), EDrawing::Dot}};
    const QString output = QString::fromStdString(arguments.output);
    QString name = QString::fromStdString(arguments.format);
    if (name.isEmpty())
        name = isStandardStream(output) ? QStringLiteral("svg") : QFileInfo(output).suffix().toLower();
    const auto found = formats.find(name);
    if (found == formats.end() && arguments.format.empty())
        refuse(
            QStringLiteral("'%1' ends with none of .svg, .png and .dot; --format says what it is to be.").arg(output));
    if (found == formats.end())
        refuse(QStringLiteral("--format takes svg, png or dot, not '%1'.").arg(name));
    return found->second;
}

} // namespace

void addDrawCommand(CLI::App& program, Action* action)
{
    const auto arguments = std::make_shared<SDrawArguments>();
    CLI::App& command = addCommand(program, "draw", "Draw a chain, a scene, or what a run did, as SVG, PNG or DOT.",
                                   "  halvex-host draw chain.json -o chain.svg\n"
                                   "  halvex-host run --json - | halvex-host draw --from-run - -o run.png\n"
                                   "  halvex-host draw scene.json > scene.svg");
    addDocumentArgument(command, "FILE", &arguments->file);
    command
        .add_option("--from-run", arguments->report,
                    "Draw the graphs of a run with rates and drops: what 'run --json' wrote.")
        ->type_name("REPORT");
    addOutputOption(command, &arguments->output, ", with the ending .svg, .png or .dot");
    command
        .add_option("--format", arguments->format,
                    "svg, png or dot (default: as the file ends; svg on standard output).")
        ->type_name("FORMAT");
    addPluginsOption(command, &arguments->plugins);
    command.final_callback([arguments, action] {
        if (arguments->file.empty() == arguments->report.empty())
            refuse(QStringLiteral("Give a FILE or --from-run REPORT, one of them."));
        const EDrawing format = formatOf(*arguments);
        *action = [arguments, format] { return drawPicture(*arguments, format); };
    });
}

} // namespace Host
