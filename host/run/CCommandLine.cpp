// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CCommandLine.h"

#include <Halvex/Halvex.h>

#include <QCommandLineParser>

#include <algorithm>
#include <cmath>

namespace Host {

namespace {

constexpr double maxFramesPerSecond = 10000.0;

// The camera that is no device has no rate of its own worth keeping: far more than the preview shows.
constexpr double fakeFramesPerSecond = 200.0;

const char cameraOption[] = "camera";
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
    parser.setApplicationDescription(QStringLiteral("Streams the frames of a camera through a Halvex graph."));
    parser.addPositionalArgument(QStringLiteral("run"), QStringLiteral("Stream, write PNG files, print a table."));
    parser.addPositionalArgument(
        QStringLiteral("compare"),
        QStringLiteral("Or: tell whether two scene documents, A and B, are the same but for order; exit code 0 or 1."),
        QStringLiteral("| compare A B"));
    add(cameraOption, "'fake' (default), or the address of a GigE Vision camera.", "fake|ADDRESS");
    add(framesOption, "End after N complete frames (default: 300).", "N");
    add(rateOption, "Frames per second (default: 200 for 'fake', else as the camera is set).", "N");
    add(formatOption, "GenICam name, e.g. RGB8 (default: as the camera is set).", "NAME");
    add(outputOption, "Folder for what is written (default: halvex-output).", "DIR");
    add(everyOption, "Write one of N frames (default: 30).", "N");
    add(loadOption, "Stream through the scene of this document instead of the demo graph.", "FILE");
    add(saveOption, "Write the scene document, before the first frame is grabbed.", "FILE");
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
    else if (words.size() > 1)
        refuse(QStringLiteral("Unexpected argument '%1'.").arg(words.at(1)));
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
    text(QLatin1String(cameraOption), &m_options.camera.address);
    text(QLatin1String(formatOption), &m_options.camera.pixelFormat);
    text(QLatin1String(outputOption), &m_options.output);
    text(QLatin1String(loadOption), &m_options.load);
    text(QLatin1String(saveOption), &m_options.save);
    if (m_options.camera.address == SCameraOptions().address)
        m_options.camera.framesPerSecond = fakeFramesPerSecond;
    if (parser.isSet(QLatin1String(rateOption)))
        readRate(parser.value(QLatin1String(rateOption)));
}

void CCommandLine::readRate(const QString& text)
{
    const double rate = text.toDouble();
    if (!(rate > 0.0 && rate <= maxFramesPerSecond))
        return refuse(QStringLiteral("--fps takes a number above 0, at most %1, not '%2'.")
                          .arg(QString::number(maxFramesPerSecond), text));
    m_options.camera.framesPerSecond = rate;
    // A slow camera is silent between its frames.
    m_options.silence = std::max(m_options.silence, std::chrono::milliseconds(std::llround(3000.0 / rate)));
}

void CCommandLine::refuse(const QString& reason)
{
    if (m_action == EAction::Refuse)
        return;
    m_action = EAction::Refuse;
    m_text = QStringLiteral("%1 See 'halvex-host --help'.").arg(reason.simplified());
}

} // namespace Host
