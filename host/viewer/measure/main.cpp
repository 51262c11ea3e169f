// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What the window of the viewer costs, and how smooth it is, at full load: a Markdown table on standard output.
//
//   halvex-viewer-measure                       four cameras at 200 frames/s, a graph of 500 nodes, 10 s for each part
//   halvex-viewer-measure --seconds 30 --soak 1800
//
// Of the engine's rate: without the window, with it, and without it again, so that what drifts meanwhile is seen.

#include "host/base/EExitCode.h"
#include "host/plugins/CHostServices.h"
#include "host/run/Output.h"
#include "host/viewer/cameras/CCameraSession.h"
#include "host/viewer/cameras/CCameraSessions.h"
#include "host/viewer/graph/CGraphCanvas.h"
#include "host/viewer/graph/CGraphView.h"
#include "host/viewer/images/CImageDock.h"
#include "host/viewer/images/CImageView.h"
#include "host/viewer/images/ViewModels.h"
#include "host/viewer/measure/CInputHand.h"
#include "host/viewer/measure/CLoad.h"
#include "host/viewer/measure/CMeasuredApplication.h"
#include "host/viewer/measure/CRandomEdits.h"
#include "host/viewer/measure/Waiting.h"
#include "host/viewer/window/CImageDocks.h"
#include "host/viewer/window/CPositionsFile.h"
#include "host/viewer/window/CScenePage.h"
#include "host/viewer/window/CSceneTabs.h"
#include "host/viewer/window/CViewerWindow.h"

#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <random>

namespace {

using namespace Host;
using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr seconds settling{2};

struct SAsked
{
    seconds part{10};
    seconds soak{0};
    SLoadSize load;
};

// The value at that share of all, in their order; 0 without any.
double share(std::vector<double> values, double part)
{
    if (values.empty())
        return 0.0;
    std::sort(values.begin(), values.end());
    return values[std::min(values.size() - 1, std::size_t(double(values.size()) * part))];
}

/// By the names of their rows.
QStringList& missedTargets()
{
    static QStringList names;
    return names;
}

void printRow(const char* what, const QString& measured, const QString& target = {}, bool isMet = true)
{
    if (!isMet)
        missedTargets().append(QString::fromUtf8(what));
    std::printf("| %s | %s | %s | %s |\n", what, qPrintable(measured), qPrintable(target),
                target.isEmpty() ? "" : (isMet ? "yes" : "**no**"));
    std::fflush(stdout);
}

void printMissedTargets()
{
    const QStringList& missed = missedTargets();
    std::printf("\nTargets missed: %d%s%s.\n", int(missed.size()), missed.isEmpty() ? "" : ": ",
                qPrintable(missed.join(QStringLiteral("; "))));
}

QString number(double value, const char* unit, int decimals = 1)
{
    return QStringLiteral("%1 %2").arg(value, 0, 'f', decimals).arg(QLatin1String(unit));
}

struct SRates
{
    double sent = 0.0;
    double delivered = 0.0;
};

SRates ratesOf(const CLoad& load, milliseconds time)
{
    const quint64 sent = load.sent();
    const quint64 delivered = load.delivered();
    QElapsedTimer clock;
    clock.start();
    runFor(time);
    const double passed = double(clock.nsecsElapsed()) / 1e9;
    return {double(load.sent() - sent) / passed, double(load.delivered() - delivered) / passed};
}

/// A window as the program has it, that remembers nothing.
struct SMeasuredWindow
{
    explicit SMeasuredWindow(const CHostServices& services)
        : window({services.nodes(), services.models(), settings, positions})
    {
        window.resize(1600, 1000);
        window.show();
    }

    QTemporaryDir folder;
    CViewerSettings settings{folder.filePath("viewer.ini")};
    const CPositionsFile positions{folder.filePath("positions.json")};
    CViewerWindow window;
};

SRates measureWithoutWindow(const CHostServices& services, const SAsked& asked)
{
    CCameraSessions sessions(services.nodes(), services.models());
    CLoad load(sessions, services.nodes(), asked.load);
    if (!load.start())
        return {};
    runFor(settling);
    const SRates rates = ratesOf(load, asked.part);
    load.end();
    return rates;
}

void soak(CViewerWindow& window, seconds time)
{
    const unsigned int seed = std::random_device()();
    CRandomEdits edits(window.tabs(), seed);
    const CInputHand hand(*window.tabs().current()->view().viewport());
    runFor(time);
    printRow("longest input while the graph is edited", number(hand.longest(), "ms"), QStringLiteral("50 ms"),
             hand.longest() <= 50.0);
    const std::vector<qint64>& heap = edits.heap();
    constexpr std::size_t parts = 4;
    if (!CRandomEdits::knowsHeap()) {
        printRow("memory left behind", QStringLiteral("not told here"));
        return;
    }
    if (heap.size() < 2 * parts) {
        printRow("memory left behind", QStringLiteral("too short to tell: %1 rounds of edits").arg(heap.size()));
        return;
    }
    // The least of a part: frames on their way come and go. The first part is not counted, caches fill in it.
    const auto least = [&heap](std::size_t part) {
        const auto size = std::ptrdiff_t(heap.size() / parts);
        const auto first = heap.begin() + std::ptrdiff_t(part) * size;
        return *std::min_element(first, first + size);
    };
    const double grown = double(least(parts - 1) - least(1)) / 1024.0;
    constexpr double few = 256.0; // one frame of a camera more or less on its way
    printRow("memory left behind", number(grown, "KiB", 0), QStringLiteral("%1 KiB").arg(few), grown <= few);
    printRow("random edits meanwhile", QStringLiteral("%1, seed %2").arg(edits.edits()).arg(seed));
}

void measureWindow(CMeasuredApplication& application, const CHostServices& services, const SAsked& asked, SRates* rates)
{
    SMeasuredWindow shown(services);
    CLoad load(shown.window.sessions(), services.nodes(), asked.load);
    if (!load.start())
        return;
    // The first camera's, with the many nodes.
    shown.window.tabs().setCurrentIndex(0);
    CGraphView& view = shown.window.tabs().current()->view();
    QElapsedTimer clock;
    clock.start();
    view.canvas().arrange();
    const double laidOut = double(clock.nsecsElapsed()) / 1e6;
    printRow("laying the graph out", number(laidOut, "ms"), QStringLiteral("50 ms"), laidOut <= 50.0);
    view.fit();
    runFor(settling);
    application.startMeasuring();
    {
        CInputHand hand(*view.viewport());
        *rates = ratesOf(load, asked.part);
        const std::vector<double>& intervals = application.pictureIntervals();
        const double p99 = share(intervals, 0.99);
        printRow("pictures of the window",
                 number(double(intervals.size()) / double(std::max<qint64>(1, asked.part.count())), "/s", 0));
        printRow("from one to the next, p50", number(share(intervals, 0.5), "ms"));
        printRow("from one to the next, p99", number(p99, "ms"), QStringLiteral("16.7 ms"), p99 <= 1000.0 / 60.0);
        printRow("longest input, from sent to done", number(hand.longest(), "ms"), QStringLiteral("50 ms"),
                 hand.longest() <= 50.0);
        printRow("longest input at work", number(application.longestInput(), "ms"));
    }
    application.endMeasuring();
    if (asked.soak.count() > 0)
        soak(shown.window, asked.soak);
    load.end();
}

// In a process of its own, as a person starts it.
void measureStart()
{
    QProcess process;
    QElapsedTimer clock;
    clock.start();
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--first-frame")});
    constexpr int longest = 60000;
    const bool isShown = process.waitForReadyRead(longest);
    const double passed = double(clock.nsecsElapsed()) / 1e9;
    process.kill();
    process.waitForFinished();
    if (isShown)
        printRow("start to first frame", number(passed, "s", 2), QStringLiteral("1 s"), passed < 1.0);
    else
        printRow("start to first frame", QStringLiteral("never"), QStringLiteral("1 s"), false);
}

int showFirstFrame(CMeasuredApplication& application, const CHostServices& services)
{
    SMeasuredWindow shown(services);
    QObject::connect(&application, &CMeasuredApplication::painted, &shown.window, [&shown] {
        const auto& docks = shown.window.imageDocks().docks();
        const bool isSeen = std::any_of(docks.begin(), docks.end(), [](const CImageDock* dock) {
            const auto* const view = dock->findChild<CImageView*>();
            return view && view->shown() > 0;
        });
        if (isSeen)
            QCoreApplication::quit();
    });
    CCameraSession* const session = shown.window.sessions().connectCamera(SCameraOptions());
    QObject::connect(session, &CCameraSession::opened, session, &CCameraSession::start);
    QApplication::exec();
    std::puts("shown");
    std::fflush(stdout);
    return 0;
}

int measure(CMeasuredApplication& application, const CHostServices& services, const SAsked& asked)
{
    std::printf("%d cameras at %.0f frames/s, a graph of %d nodes, platform `%s`\n\n", asked.load.cameras,
                asked.load.framesPerSecond, asked.load.nodes, qPrintable(QGuiApplication::platformName()));
    std::printf("| what | measured | at most | met |\n| --- | --- | --- | --- |\n");
    measureStart();
    const SRates before = measureWithoutWindow(services, asked);
    SRates with;
    measureWindow(application, services, asked, &with);
    const SRates after = measureWithoutWindow(services, asked);
    const double without = (before.delivered + after.delivered) / 2.0;
    const double loss = without > 0.0 ? (1.0 - with.delivered / without) * 100.0 : 100.0;
    printRow("frames/s at the sinks without the window, before and after",
             QStringLiteral("%1, %2").arg(before.delivered, 0, 'f', 1).arg(after.delivered, 0, 'f', 1));
    printRow("frames/s at the sinks with the window", QString::number(with.delivered, 'f', 1));
    printRow("frames/s that the cameras sent with it", QString::number(with.sent, 'f', 1));
    printRow("frames/s at the sinks that the window costs", number(loss, "%"), QStringLiteral("3 %"), loss < 3.0);
    printMissedTargets();
    return before.delivered > 0 && with.delivered > 0 && after.delivered > 0 ? Done : Failed;
}

SAsked read(const QCommandLineParser& parser)
{
    SAsked asked;
    asked.part = seconds(parser.value("seconds").toInt());
    asked.soak = seconds(parser.value("soak").toInt());
    asked.load.nodes = parser.value("nodes").toInt();
    asked.load.cameras = parser.value("cameras").toInt();
    asked.load.framesPerSecond = parser.value("rate").toDouble();
    return asked;
}

} // namespace

int main(int argc, char* argv[])
{
    CMeasuredApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("halvex-viewer-measure"));
    QApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser parser;
    parser.addHelpOption();
    const SAsked usual;
    parser.addOptions({
        {"seconds", "How long each part is measured.", "SECONDS", QString::number(usual.part.count())},
        {"soak", "How long the window is edited by random at full load.", "SECONDS",
         QString::number(usual.soak.count())},
        {"nodes", "Of the first camera's graph.", "COUNT", QString::number(usual.load.nodes)},
        {"cameras", "How many there are.", "COUNT", QString::number(usual.load.cameras)},
        {"rate", "Of each camera, in frames per second.", "RATE", QString::number(usual.load.framesPerSecond)},
        {"first-frame", "Show one camera's first frame, say so, and end."},
    });
    parser.process(application);
    CHostServices services({});
    const QString error = services.load();
    if (!error.isEmpty()) {
        printErrorLine(error);
        return Refused;
    }
    registerViewModels(services.nodes(), services.models());
    return parser.isSet("first-frame") ? showFirstFrame(application, services)
                                       : measure(application, services, read(parser));
}
