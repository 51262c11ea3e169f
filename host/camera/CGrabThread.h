// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/CFrameNumbers.h"
#include "host/camera/SGrabStatistics.h"
#include "host/sources/IFrameSource.h"

#include <Halvex/platform/CGrabResultPtr.h>

#include <QString>
#include <QThread>

#include <atomic>
#include <chrono>
#include <functional>

namespace Host {

/**
 * Grabs frames from a started source, such as a camera, until enough complete ones came, it is asked to end, the source
 * has no more, or the camera has gone.
 *
 * \code
 * CGrabThread thread(source, 300, std::chrono::seconds(5), [entry](const CGrabThread::SFrame& frame) {
 *     entry.setData(wrap(frame));
 * });
 * connect(&thread, &CGrabThread::ended, this, &CRun::onEnded);
 * thread.start();
 * \endcode
 *
 * Incomplete frames are counted and skipped. The source must be started before the thread and outlive it.
 *
 * Threads: requestInterruption() and statistics() from any thread; the frame handler runs in the grab thread, one
 * frame after the other. The destructor ends the thread and waits for it, which takes a tenth of a second at most
 * and as long as the handler takes, and a source that opens its camera again.
 */
class CGrabThread : public QThread
{
    Q_OBJECT

public:
    struct SFrame
    {
        Veltra::CGrabResultPtr result;
        std::chrono::steady_clock::time_point grabbed; ///< When it came out of the source.
        std::shared_ptr<const void> claim{};           ///< As the source has it.
        QString origin{};                              ///< The same.
    };
    using FrameHandler = std::function<void(const SFrame&)>;

    /// \a frames complete frames end the thread, 0 never do; so does \a silence without any frame. What counts is the
    /// time that the thread waits for one, not that of the handler.
    CGrabThread(IFrameSource& source, quint64 frames, std::chrono::milliseconds silence, FrameHandler handler);
    ~CGrabThread() override;

    /// A source that gives only incomplete frames for \a timeout ends the thread too, counted in the same way; 0 for
    /// never. While it gives nothing at all, only the silence counts. Before it is started.
    void setTimeout(std::chrono::milliseconds timeout) { m_timeout = timeout; }

    /// What was grabbed up to now. A frame is counted before its handler is called.
    SGrabStatistics statistics() const;

    /// From the first to the last complete frame.
    std::chrono::nanoseconds span() const { return std::chrono::nanoseconds(m_spanNs.load()); }

    /// Whether the source has no more frames, which ends the thread without an error.
    bool hasRunOut() const { return m_hasRunOut; }

Q_SIGNALS:
    /// Emitted once, in the grab thread and after the last call of the handler, so that a queued receiver hears of
    /// it after everything that the handler queued. \a error is empty unless the source failed.
    void ended(const QString& error);

protected:
    void run() override;

private:
    QString grabAll();
    QString missingFrame(std::chrono::steady_clock::duration silent, std::chrono::steady_clock::duration frameless,
                         const SGrabStatistics& before) const;
    void handOn(IFrameSource::SGrab grab);

    IFrameSource& m_source;
    const quint64 m_frames;
    const std::chrono::milliseconds m_silence;
    const FrameHandler m_handler;
    std::chrono::milliseconds m_timeout{0};
    std::chrono::steady_clock::time_point m_first; // grab thread only
    CFrameNumbers m_numbers;                       // the same
    // Written by the grab thread alone, so no count is lost between reading and writing it. The default order is enough
    // without a lock: m_missed and m_spanNs are written before m_complete, which statistics() reads first, so who sees
    // a frame counted sees what was missed before it. Those counted meanwhile may be seen in part.
    std::atomic<quint64> m_complete{0};
    std::atomic<quint64> m_incomplete{0};
    std::atomic<quint64> m_underruns{0};
    std::atomic<quint64> m_missed{0};
    std::atomic<qint64> m_spanNs{0};
    std::atomic<bool> m_hasRunOut{false}; // set before ended(), which a receiver hears of later
};

} // namespace Host
