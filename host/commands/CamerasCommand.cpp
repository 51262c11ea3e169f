// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/EExitCode.h"
#include "host/camera/CFeatures.h"
#include "host/camera/Device.h"
#include "host/commands/Commands.h"
#include "host/report/CTable.h"
#include "host/report/Terminal.h"
#include "host/run/Output.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace Host {

namespace {

int listCameras()
{
    CTable table({"Camera", "Maker", "Model", "Serial number", "Protocol"});
    for (const SCameraEntry& camera : findCameras())
        table.addRow({camera.id, camera.maker, camera.model, camera.serialNumber, camera.protocol});
    return printText(table.text(columnsOf(stdout), takesColors(stdout))) ? Done : Failed;
}

// A line for each feature; what it takes goes below it when it finds no room beside it.
QString featureText(const std::vector<SFeature>& features, int width, bool isBold)
{
    constexpr int nameColumns = 32;
    constexpr int valueColumns = 20;
    const QString bold = isBold ? QStringLiteral("\x1b[1m%1\x1b[0m\n") : QStringLiteral("%1\n");
    QString text;
    QString category;
    for (const SFeature& feature : features) {
        if (feature.category != category)
            text += (category.isEmpty() ? QString() : QStringLiteral("\n")) + bold.arg(feature.category);
        category = feature.category;
        const QString value = feature.value.isEmpty() ? QStringLiteral("-") : feature.value;
        QString line = QStringLiteral("  %1 %2").arg(feature.name.leftJustified(nameColumns), value);
        QString takes = feature.type == QLatin1String("one of") || feature.range.isEmpty()
                            ? feature.range
                            : QStringLiteral("%1, %2").arg(feature.type, feature.range);
        if (takes.isEmpty())
            takes = feature.type;
        if (!feature.isWritable)
            takes = QStringLiteral("read only");
        line = line.leftJustified(2 + nameColumns + 1 + valueColumns);
        if (line.size() + 1 + takes.size() <= width)
            text += QStringLiteral("%1 %2\n").arg(line, takes);
        else
            text += line.trimmed().prepend(QStringLiteral("  ")) + QLatin1Char('\n') +
                    wrapped(takes, width, 2 + nameColumns + 1);
    }
    return text;
}

int showFeatures(const QString& id)
{
    CGLibError error;
    const GObjectPtr<_ArvDevice> device = openDevice(id, &error);
    if (!device) {
        printErrorLine(QStringLiteral("cannot open camera '%1': %2").arg(id, error.text()));
        return Refused;
    }
    const QString text = featureText(CFeatures(device.get()).all(), columnsOf(stdout), takesColors(stdout));
    return printText(text) ? Done : Failed;
}

} // namespace

void addCamerasCommand(CLI::App& program, Action* action)
{
    CLI::App& command = addCommand(program, "cameras", "List the cameras, or the features of one.",
                                   "  halvex-host cameras\n"
                                   "  halvex-host cameras 192.168.0.5");
    const auto id = std::make_shared<std::string>();
    command.add_option("ID", *id, "A camera, as 'cameras' lists it: its features with values and ranges.")
        ->type_name("");
    command.final_callback([id, action] {
        *action = [id] { return id->empty() ? listCameras() : showFeatures(QString::fromStdString(*id)); };
    });
}

} // namespace Host
