// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/EExitCode.h"
#include "host/plugins/CHostServices.h"
#include "host/plugins/CPluginHost.h"
#include "host/run/Output.h"
#include "host/viewer/base/CLanguage.h"
#include "host/viewer/images/ViewModels.h"
#include "host/viewer/window/CPositionsFile.h"
#include "host/viewer/window/CViewerStart.h"
#include "host/viewer/window/CViewerWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTemporaryDir>

namespace {

using namespace Host;

// Empty, which stands for the person's own, unless nothing is to be remembered.
QString fileIn(const QTemporaryDir* folder, const char* name)
{
    return folder ? folder->filePath(QLatin1String(name)) : QString();
}

int show(const SViewerOptions& options)
{
    CHostServices services(options.plugins);
    const QString error = services.load();
    if (!error.isEmpty()) {
        printErrorLine(error);
        return Refused;
    }
    registerViewModels(services.nodes(), services.models());

    const std::unique_ptr<QTemporaryDir> folder(options.remembers ? nullptr : new QTemporaryDir);
    CViewerSettings settings(fileIn(folder.get(), "viewer.ini"));
    const CPositionsFile positions(fileIn(folder.get(), "positions.json"));
    CLanguage language;
    const auto install = [&](const QString& code) {
        language.install(code);
        services.plugins().setLanguage(code);
    };
    const QString remembered = settings.language().isEmpty() ? CLanguage::systemCode() : settings.language();
    install(options.language.isEmpty() ? remembered : options.language);
    CViewerWindow::applyColors(settings.colors());
    if (!options.colors.isEmpty())
        CViewerWindow::applyColors(options.colors == QLatin1String("dark") ? CViewerSettings::EColors::Dark
                                                                           : CViewerSettings::EColors::Light);

    CViewerWindow window({services.nodes(), services.models(), settings, positions});
    QObject::connect(&window, &CViewerWindow::languageChosen, &window, install);
    window.show();
    CViewerStart start(window, options);
    QObject::connect(&start, &CViewerStart::ended, qApp, [](int exitCode) { QCoreApplication::exit(exitCode); });
    return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("halvex-viewer"));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Show cameras live, and draw and edit the graphs that their frames go through."));
    parser.addHelpOption();
    SViewerOptions::declare(&parser);
    parser.process(application);
    QString error;
    const SViewerOptions options = SViewerOptions::read(parser, &error);
    if (!error.isEmpty()) {
        printErrorLine(error);
        return Refused;
    }
    return show(options);
}
