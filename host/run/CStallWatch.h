// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

namespace Host {

/**
 * Tells when work that goes on elsewhere gets no further.
 *
 * \code
 * CStallWatch watch([&graph] { return graph.workDone(); });
 * connect(&watch, &CStallWatch::stalled, this, &CRun::end);
 * watch.start(std::chrono::seconds(10));
 * \endcode
 *
 * As long as something gets done it waits, however long that takes in all.
 *
 * Threads: one, with an event loop.
 */
class CStallWatch : public QObject
{
    Q_OBJECT

public:
    /// \a workDone counts what has been done; it is asked between start() and stop().
    explicit CStallWatch(std::function<quint64()> workDone);

    /// Emits stalled() when nothing has been done for \a patience, from now on.
    void start(std::chrono::milliseconds patience);

    void stop() { m_timer.stop(); }

Q_SIGNALS:
    /// Once for each start().
    void stalled();

private:
    void check();

    const std::function<quint64()> m_workDone;
    std::chrono::milliseconds m_patience{0};
    quint64 m_seen = 0;
    QElapsedTimer m_sinceProgress;
    QTimer m_timer;
};

} // namespace Host
