// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/SViewerOptions.h"

#include "host/viewer/base/CLanguage.h"

#include <QCommandLineParser>

#include <cmath>

namespace Host {

namespace {

QString text(const char* words)
{
    return QString::fromLatin1(words);
}

QString oneOf(const QCommandLineParser& parser, const QString& option, const QStringList& choices, QString* error)
{
    const QString value = parser.value(option);
    if (!value.isEmpty() && !choices.contains(value) && error->isEmpty())
        *error =
            QStringLiteral("--%1 takes one of %2, not '%3'").arg(option, choices.join(QStringLiteral(", ")), value);
    return value;
}

} // namespace

void SViewerOptions::declare(QCommandLineParser* parser)
{
    parser->addOptions({
        {text("camera"),
         text("Connect this camera and start it: an address, an id, or fake, fake-1, ... for simulated "
              "ones. As often as you like."),
         text("ID")},
        {text("chain"), text("Import this chain into the graph of each camera. As often as you like."), text("FILE")},
        {text("load"), text("Open this scene with the first camera."), text("FILE")},
        {text("plugins"), text("Where the plugins are (default: those of the program)."), text("FOLDER")},
        {text("language"), text("en, ja, ko or zh (default: the one chosen last, else the desktop's)."), text("CODE")},
        {text("colors"), text("light or dark (default: those chosen last, else the desktop's)."), text("COLORS")},
        {text("screenshot"), text("Write a picture of the window when every camera is seen, and end."), text("FILE")},
        {text("for"), text("End after this time."), text("SECONDS")},
        {text("forget"), text("Neither read nor write what is remembered of other starts.")},
    });
}

SViewerOptions SViewerOptions::read(const QCommandLineParser& parser, QString* error)
{
    SViewerOptions options;
    options.cameras = parser.values(text("camera"));
    options.chains = parser.values(text("chain"));
    options.scene = parser.value(text("load"));
    options.plugins = parser.value(text("plugins"));
    options.screenshot = parser.value(text("screenshot"));
    options.remembers = !parser.isSet(text("forget"));
    options.language = oneOf(parser, text("language"), CLanguage::codes(), error);
    options.colors = oneOf(parser, text("colors"), {text("light"), text("dark")}, error);
    if (options.cameras.removeDuplicates() > 0 && error->isEmpty())
        *error = text("--camera names a camera twice");
    if (options.cameras.isEmpty() && !options.chains.isEmpty() && error->isEmpty())
        *error = text("--chain needs a camera: add --camera fake for a simulated one");
    const QStringList others = parser.positionalArguments();
    if (!others.isEmpty() && error->isEmpty())
        *error = QStringLiteral("'%1' is no option").arg(others.first());

    constexpr double most = 1e6;
    bool ok = true;
    const double seconds = parser.isSet(text("for")) ? parser.value(text("for")).toDouble(&ok) : 0.0;
    if ((!ok || !std::isfinite(seconds) || seconds < 0.0 || seconds > most) && error->isEmpty())
        *error = QStringLiteral("--for takes seconds, not '%1'").arg(parser.value(text("for")));
    else
        options.duration = std::chrono::milliseconds(qint64(seconds * 1000.0));
    return options;
}

} // namespace Host
