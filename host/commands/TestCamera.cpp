// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/commands/TestCamera.h"

#include "host/base/Counted.h"
#include "host/base/EExitCode.h"
#include "host/report/CProgressLine.h"
#include "host/report/SLinkReport.h"
#include "host/report/Terminal.h"
#include "host/run/CLinkTest.h"
#include "host/run/CSignalWatcher.h"
#include "host/run/Output.h"
#include "host/run/PrintResult.h"

#include <QEventLoop>
#include <QJsonDocument>
#include <QTimer>

namespace Host {

namespace {

constexpr std::chrono::milliseconds progressInterval(100);

QString progress(const CLinkTest& test, std::chrono::milliseconds time)
{
    const SGrabStatistics frames = test.frames();
    return QStringLiteral("%1 of %2 s, %3, %4 incomplete")
        .arg(double(std::min(test.time(), time).count()) / 1000.0, 0, 'f', 1)
        .arg(double(time.count()) / 1000.0, 0, 'f', 1)
        .arg(counted(frames.complete, "frame"))
        .arg(frames.incomplete);
}

QString text(const SLinkReport& report, bool isJson)
{
    return isJson ? QString::fromUtf8(QJsonDocument(report.json()).toJson())
                  : report.text(columnsOf(stdout), takesColors(stdout));
}

} // namespace

int testCamera(const SCameraOptions& camera, std::chrono::milliseconds time, bool isJson)
{
    CLinkTest test(camera);
    QEventLoop loop;
    QString failure;
    int signal = 0;
    QObject::connect(&test, &CLinkTest::ended, &loop, [&](const QString& error) {
        failure = error;
        loop.quit();
    });
    const QString refusal = test.start();
    if (!refusal.isEmpty()) {
        printErrorLine(refusal);
        return Refused;
    }

    CSignalWatcher signalWatcher;
    QObject::connect(&signalWatcher, &CSignalWatcher::received, &loop, [&](int number) {
        signal = number;
        test.requestEnd();
    });
    QTimer::singleShot(time, Qt::PreciseTimer, &test, &CLinkTest::requestEnd);
    {
        CProgressLine line(stderr);
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &loop, [&] { line.show(progress(test, time)); });
        timer.start(progressInterval);
        loop.exec();
        line.showLast(progress(test, time));
    }
    const SLinkReport report = test.report();
    const int exitCode = printResult(text(report, isJson), report.isSound() && failure.isEmpty() ? Done : Failed);
    if (!failure.isEmpty())
        printErrorLine(failure);
    return signal == 0 ? exitCode : InterruptedBase + signal;
}

} // namespace Host
