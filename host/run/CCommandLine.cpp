// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CCommandLine.h"

#include "host/run/Output.h"

#include <Halvex/Halvex.h>

#include <QCommandLineParser>

#include <algorithm>
#include <cmath>

namespace Host {

namespace {

constexpr double maxFramesPerSecond = 10000.0;

// A camera that is no device has no rate of its own worth keeping: far more than the preview shows.
constexpr double fakeFramesPerSecond = 200.0;

const char cameraOption[] = "camera";
const char pluginsOption[] = "plugins";
const char framesOption[] = "frames";
const char rateOption[] = "fps";
const char formatOption[] = "pixel-format";
const char outputOption[] = "output";
const char everyOption[] = "write-every";
const char loadOption[] = "load";
const char saveOption[] = "save";

// A whole number from 1 to \a most; 0 for everything else.
int readCount(const QString& text, int most)
{
    bool ok = false;
    const int count = text.toInt(&ok);
    return ok && count >= 1 && count <= most ? count : 0;
}

void declare(QCommandLineParser& parser)
{
    const auto add = [&](const char* name, const char* help, const char* value) {
        parser.addOption({QString::fromLatin1(name), QString::fromLatin1(help), QString::fromLatin1(value)});
    };
    parser.setApplicationDescription(QStringLiteral("Streams the frames of cameras through Halvex graphs."));
    parser.addPositionalArgument(QStringLiteral("run"), QStringLiteral("Stream, write PNG files, print a table."));
    parser.addPositionalArgument(QStringLiteral("CHAIN"),
                                 QStringLiteral("The chain to import for each camera (default: the demo's)."),
                                 QStringLiteral("[CHAIN]"));
    parser.addPositionalArgument(
        QStringLiteral("compare"),
        QStringLiteral("Or: tell whether two scene documents, A and B, are the same but for order; exit code 0 or 1."),
        QStringLiteral("| compare A B"));
    add(cameraOption,
        "'fake' (default), 'fake-1', 'fake-2'..., or the address of a GigE Vision camera. May be given several times.",
        "fake|ADDRESS");
    add(framesOption, "End after N complete frames of each camera (default: 300).", "N");
    add(rateOption, "Frames per second (default: 200 for fake cameras, else as the camera is set).", "N");
    add(formatOption, "GenICam name, e.g. RGB8 (default: as the camera is set).", "NAME");
    add(outputOption, "Folder for what is written (default: halvex-output).", "DIR");
    add(everyOption, "Write one of N frames (default: 30).", "N");
    add(loadOption, "Stream one camera through the scene of this document instead of a chain.", "FILE");
    add(saveOption, "Write the scene document of one camera, before the first frame is grabbed.", "FILE");
    add(pluginsOption, "Folder with the plugins (default: 'plugins' beside the program's folder).", "DIR");
    parser.addHelpOption();
    parser.addVersionOption();
}

} // namespace

CCommandLine::CCommandLine(const QStringList& arguments)
{
    QCommandLineParser parser;
    declare(parser);
    if (!parser.parse(arguments)) {
        refuse(parser.errorText());
    } else if (parser.isSet(QStringLiteral("help"))) {
        m_action = EAction::Print;
        m_text = parser.helpText();
    } else if (parser.isSet(QStringLiteral("version"))) {
        m_action = EAction::Print;
        m_text = QStringLiteral("halvex-host " HALVEX_VERSION_STR "\n");
    } else {
        readOptions(parser);
        readCommand(parser);
    }
}

void CCommandLine::readCommand(const QCommandLineParser& parser)
{
    const QStringList words = parser.positionalArguments();
    if (words.isEmpty())
        refuse(QStringLiteral("No command given."));
    else if (words.first() == QLatin1String("compare"))
        readCompare(parser);
    else if (words.first() != QLatin1String("run"))
        refuse(QStringLiteral("Unknown command '%1'.").arg(words.first()));
    else
        readRun(words.mid(1));
}

void CCommandLine::readCompare(const QCommandLineParser& parser)
{
    m_files = parser.positionalArguments().mid(1);
    if (m_files.size() != 2 || !parser.optionNames().isEmpty())
        return refuse(QStringLiteral("'compare' takes two files and no option."));
    if (m_action == EAction::Run)
        m_action = EAction::Compare;
}

void CCommandLine::readOptions(const QCommandLineParser& parser)
{
    // The first refusal stays, so the checks need no order.
    const auto count = [&](const QString& option, int most, int* value) {
        if (!parser.isSet(option))
            return;
        *value = readCount(parser.value(option), most);
        if (*value == 0)
            refuse(QStringLiteral("--%1 takes a whole number from 1 to %2, not '%3'.")
                       .arg(option, QString::number(most), parser.value(option)));
    };
    const auto text = [&](const QString& option, QString* value) {
        if (!parser.isSet(option))
            return;
        *value = parser.value(option);
        if (value->isEmpty())
            refuse(QStringLiteral("--%1 is empty.").arg(option));
    };
    count(QLatin1String(framesOption), SRunOptions::maxFrames, &m_options.frames);
    count(QLatin1String(everyOption), SRunOptions::maxFrames, &m_options.writeEvery);
    SCameraOptions camera;
    text(QLatin1String(formatOption), &camera.pixelFormat);
    text(QLatin1String(outputOption), &m_options.output);
    text(QLatin1String(pluginsOption), &m_options.plugins);
    text(QLatin1String(loadOption), &m_options.load);
    text(QLatin1String(saveOption), &m_options.save);
    if (parser.isSet(QLatin1String(rateOption)))
        camera.framesPerSecond = readRate(parser.value(QLatin1String(rateOption)));
    readCameras(parser.values(QLatin1String(cameraOption)), camera);
}

void CCommandLine::readRun(const QStringList& words)
{
    if (words.size() > 1)
        return refuse(QStringLiteral("Unexpected argument '%1'.").arg(words.at(1)));
    const bool isForOne = !m_options.load.isEmpty() || !m_options.save.isEmpty();
    if (isForOne && m_options.cameras.size() > 1)
        return refuse(QStringLiteral("--load and --save take one camera."));
    if (words.isEmpty())
        return;
    m_options.chain = words.first();
    if (m_options.chain.isEmpty())
        refuse(QStringLiteral("The chain's file has no name."));
    else if (!m_options.load.isEmpty())
        refuse(QStringLiteral("A chain or --load, not both."));
}

void CCommandLine::readCameras(const QStringList& addresses, const SCameraOptions& common)
{
    m_options.cameras.clear();
    for (const QString& address : addresses.isEmpty() ? QStringList(common.address) : addresses) {
        if (address.isEmpty())
            return refuse(QStringLiteral("--camera is empty."));
        // Its files go into a folder of that name, beside the chain's; and what is no unique name gets no scene.
        if (!makesAFolder(address) || address == QLatin1String("chain.json") ||
            address == Plugin::Halvex::ANodeDataModel::noUniqueName())
            return refuse(QStringLiteral("--camera '%1' is no address.").arg(address));
        if (addresses.count(address) > 1)
            return refuse(QStringLiteral("--camera '%1' is given twice.").arg(address));
        SCameraOptions camera = common;
        camera.address = address;
        if (SCameraOptions::isFake(address) && camera.framesPerSecond <= 0.0)
            camera.framesPerSecond = fakeFramesPerSecond;
        m_options.cameras.push_back(camera);
    }
}

double CCommandLine::readRate(const QString& text)
{
    const double rate = text.toDouble();
    if (!(rate > 0.0 && rate <= maxFramesPerSecond)) {
        refuse(QStringLiteral("--fps takes a number above 0, at most %1, not '%2'.")
                   .arg(QString::number(maxFramesPerSecond), text));
        return 0.0;
    }
    // A slow camera is silent between its frames.
    m_options.silence = std::max(m_options.silence, std::chrono::milliseconds(std::llround(3000.0 / rate)));
    return rate;
}

void CCommandLine::refuse(const QString& reason)
{
    if (m_action == EAction::Refuse)
        return;
    m_action = EAction::Refuse;
    m_text = QStringLiteral("%1 See 'halvex-host --help'.").arg(reason.simplified());
}

} // namespace Host
