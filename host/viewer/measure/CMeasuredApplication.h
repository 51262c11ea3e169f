// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QApplication>

#include <chrono>
#include <vector>

namespace Host {

/**
 * An application that notes when its windows are painted, and how long the longest input took.
 *
 * \code
 * application.startMeasuring();
 * … // the event loop runs
 * const std::vector<double> intervals = application.pictureIntervals();
 * \endcode
 *
 * Threads: the main thread.
 */
class CMeasuredApplication : public QApplication
{
    Q_OBJECT

public:
    using Clock = std::chrono::steady_clock;

    using QApplication::QApplication;

    /// Forgets what was noted.
    void startMeasuring();

    /// Notes no more, so that a long run has no memory of its own.
    void endMeasuring();

    /// Between one picture of a window and the next, in milliseconds.
    const std::vector<double>& pictureIntervals() const { return m_intervals; }

    /// The longest time that a mouse, wheel or key event was at work, in milliseconds.
    double longestInput() const { return m_longestInput; }

    bool notify(QObject* receiver, QEvent* event) override;

Q_SIGNALS:
    /// A window has been painted.
    void painted();

private:
    void notePicture();

    std::vector<double> m_intervals;
    Clock::time_point m_lastPicture;
    double m_longestInput = 0.0;
    bool m_hasPicture = false;
    bool m_isMeasuring = false;
    bool m_isInput = false; // one is at work; what it sends on is a part of it
};

} // namespace Host
