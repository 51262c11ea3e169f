// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/plugins/CHostServices.h"
#include "host/report/SRunReport.h"
#include "host/run/CRunFolder.h"
#include "host/run/SRunOptions.h"

#include <QEventLoop>
#include <QJsonArray>
#include <QObject>

#include <functional>
#include <memory>
#include <vector>

namespace Host {

class CCameraStream;
class CTraceFile;

/**
 * One run of the program: loads the plugins, builds a graph for each camera, opens the cameras, saves the scene,
 * streams, and says what it did.
 *
 * The run ends when every camera has, as CCameraStream says; an error of one, or a signal, ends all of them.
 *
 * Threads: one, with the application object alive and no event loop needed; frames are grabbed in threads of the
 * streams. SIGINT, SIGTERM and SIGHUP are caught while frames stream, and the lines "set NODE.key=value" on standard
 * input are obeyed.
 */
class CStreamRun : public QObject
{
    Q_OBJECT

public:
    explicit CStreamRun(SRunOptions options);
    ~CStreamRun() override;

    /// Runs to the end and returns the exit code, see EExitCode. Prints progress, errors and the plugins that were left
    /// out, one line each, on standard error, and the report on standard output. Once per object.
    int exec();

private:
    using Step = std::function<QString(CCameraStream&)>; // what is wrong, empty on success

    bool loadPlugins();
    bool buildGraphs();
    bool forEachStream(const Step& step);
    bool applySettings();
    bool openCameras();
    bool openFolder();
    bool openFiles();
    bool prepareSinks();
    bool writeGraphFiles();
    bool stream();
    void printReport();
    void closeFiles();
    QString ending() const;
    QString folder(const CCameraStream& stream) const;
    void fail(const QString& error);
    void requestEnd();
    bool isStreaming() const;
    void onFailed(const QString& error);
    void onEnded();
    void onSignal(int number);
    void onTimeUp();

    const SRunOptions m_options;
    // In this order: cameras go before the scenes that they feed.
    CHostServices m_services;
    CRunFolder m_folder;
    std::shared_ptr<CTraceFile> m_trace; // null without one
    std::vector<std::unique_ptr<CCameraStream>> m_streams;
    std::vector<QByteArray> m_chains; // what was imported
    QEventLoop m_loop;
    std::vector<SRunReport> m_reports;
    QJsonArray m_liveSettings; // set while frames streamed
    QString m_error;           // the first
    bool m_hasStreamed = false;
    int m_signal = 0;
    bool m_isTimeUp = false;
};

} // namespace Host
