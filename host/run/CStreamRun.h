// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/run/SRunOptions.h"
#include "host/run/SRunReport.h"

#include <QEventLoop>
#include <QObject>

#include <memory>

namespace Host {

class CAravisCamera;
class CGrabThread;
class CProgressLine;
class CStreamGraph;

/**
 * One run of the program: builds the graph, opens the camera, saves the scene, streams, and says what it did.
 *
 * Every complete frame that was grabbed has gone through the whole graph when the run ends, however it ends, or was
 * dropped and counted by a decoupler on the way; the last one that a decoupler got has come out of it.
 *
 * Threads: one, with the application object alive and no event loop needed; frames are grabbed in a thread of the
 * run's own. SIGINT and SIGTERM are caught while frames stream.
 */
class CStreamRun : public QObject
{
    Q_OBJECT

public:
    /// What the program exits with. Frozen: scripts test it.
    enum EExitCode
    {
        Success = 0,
        Failure = 2,
        InterruptedBase = 128 ///< Plus the signal's number: 130 for SIGINT, 143 for SIGTERM.
    };

    explicit CStreamRun(SRunOptions options);
    ~CStreamRun() override;

    /// Runs to the end and returns the exit code. Prints progress and errors, one line each, on standard error, and
    /// the report on standard output. Once per object.
    int exec();

private:
    bool buildGraph();
    bool openCamera();
    bool prepareSinks();
    bool saveScene();
    bool writeGraphFiles();
    bool stream();
    bool startGrabbing();
    bool printReport();
    SRunReport report() const;
    QString ending() const;
    void fail(const QString& error);
    void onSignal(int number);
    void onEnded(const QString& error);
    void endWhenDrained();
    void showProgress(CProgressLine& line) const;

    const SRunOptions m_options;
    // In this order: the thread ends before the graph goes that it feeds, and both before the camera.
    std::unique_ptr<CAravisCamera> m_camera;
    std::unique_ptr<CStreamGraph> m_graph;
    std::unique_ptr<CGrabThread> m_thread;
    QEventLoop m_loop;
    QString m_error; // the first
    int m_signal = 0;
};

} // namespace Host
