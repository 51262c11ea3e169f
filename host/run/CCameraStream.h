// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/report/SRunReport.h"
#include "host/run/CStallWatch.h"
#include "host/sources/OpenSource.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <memory>

namespace Host {

class CGrabThread;
class CStreamGraph;
class IFrameSource;
class IHostModels;

/**
 * One camera of a run, or what stands in for it, and the graph that its frames go through.
 *
 * \code
 * CCameraStream stream(options, std::move(graph));
 * QString error = stream.open(models);
 * if (error.isEmpty())
 *     error = stream.start(300, std::chrono::seconds(5));
 * connect(&stream, &CCameraStream::ended, &loop, &QEventLoop::quit);
 * \endcode
 *
 * Every complete frame that was grabbed has gone through the whole graph when the stream has ended, however it ended,
 * or was dropped and counted by a decoupler on the way; the last one that a decoupler got has come out of it. The sinks
 * have written their files.
 *
 * Two ends are otherwise. When nothing gets done any more, the account tells what is left. A graph that somebody
 * changes or removes on the way ends the stream at once: what went through it is not known.
 *
 * The destructor ends the grabbing, if it goes on, and closes the camera.
 *
 * Functions that may fail return the reason, as IFrameSource does; empty on success. Threads: one, with an event loop;
 * frames are grabbed in a thread of the stream's own.
 */
class CCameraStream : public QObject
{
    Q_OBJECT

public:
    CCameraStream(SourceOptions options, std::unique_ptr<CStreamGraph> graph);
    ~CCameraStream() override;

    /// The name by which it is opened: a camera's address.
    QString camera() const { return nameOf(m_options); }

    const CStreamGraph& graph() const { return *m_graph; }
    CStreamGraph& graph() { return *m_graph; }

    /// Opens the camera; one whose frames \a models cannot make images of is refused.
    QString open(const IHostModels& models);

    /// Makes \a folder and one in it for each sink, which writes every \a writeEvery-th image there.
    QString prepareSinks(const QString& folder, int writeEvery);

    /// Starts to grab, until \a frames complete frames came (0: until requestEnd()), none at all for \a silence, or
    /// only incomplete ones for \a timeout (0: for however long). The camera is open.
    QString start(int frames, std::chrono::milliseconds silence,
                  std::chrono::milliseconds timeout = std::chrono::milliseconds(0));

    /// Grabs no more; ended() follows as always.
    void requestEnd();

    /// Between start() and ended().
    bool isStreaming() const { return m_thread && !m_hasEnded; }

    /// Whether it was started: there may be frames to account for.
    bool isStarted() const { return m_thread != nullptr; }

    /// Whether the sinks are done with their files: false of a stream that was started until it ends, and afterwards if
    /// nothing got done any more or the graph was changed.
    bool areFilesWritten() const { return !m_thread || m_areFilesWritten; }

    /// Why it is over if its source has no more frames; empty else.
    QString endText() const;

    /// The camera and its frames up to now.
    SRunReport report() const;

    /// The same with the graph, its decouplers and sinks, which must be intact.
    SRunReport account() const;

Q_SIGNALS:
    /// The camera has gone, a sink cannot write, or the graph was changed; the stream then ends. From the event loop,
    /// or whoever changes the graph.
    void failed(const QString& error);

    /// Once: all frames are through the graph and all files written, nothing got done any more for a while, so that
    /// the account shows what is left, or the graph was changed.
    void ended();

private:
    void onGrabbed(const QString& error);
    void onGraphChanged();
    void endWhenDrained();
    void end();

    const SourceOptions m_options;
    // In this order: the thread ends before the graph goes that it feeds, and both before the camera.
    std::unique_ptr<IFrameSource> m_source;
    const std::unique_ptr<CStreamGraph> m_graph;
    std::unique_ptr<CGrabThread> m_thread;
    CStallWatch m_stallWatch;
    bool m_areFilesWritten = false;
    bool m_hasEnded = false;
};

} // namespace Host
