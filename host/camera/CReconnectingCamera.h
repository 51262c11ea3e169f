// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/sources/IFrameSource.h"

#include <QCoreApplication>
#include <QMutex>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace Host {

/**
 * A camera that is opened again when it has gone, as often as it goes.
 *
 * \code
 * const auto open = [options](QString* error) { return CAravisCamera::open(options, error); };
 * const auto camera = CReconnectingCamera::open(open, std::chrono::seconds(5), std::chrono::seconds(60), &error);
 * \endcode
 *
 * It has gone when it says so, or has been silent for too long after it had given something. While it is waited for,
 * grab() returns Away, and an attempt to reach it may take seconds. Frames that were handed out stay what they are. The
 * device may count its frames anew.
 *
 * Threads: as every source; the camera is opened again in the thread of grab(). absences() in any.
 */
class CReconnectingCamera : public IFrameSource
{
    Q_DECLARE_TR_FUNCTIONS(Host::CReconnectingCamera)

public:
    using Opener = std::function<std::unique_ptr<IFrameSource>(QString* error)>;

    /// Opens it for the first time, at once; null, with the reason in \a error, if that fails. Then it has gone
    /// after \a silence, and is waited for at most for \a patience.
    static std::unique_ptr<CReconnectingCamera> open(Opener opener, std::chrono::milliseconds silence,
                                                     std::chrono::milliseconds patience, QString* error);

    QString description() const override { return m_description; }
    QString pixelFormat() const override { return m_pixelFormat; }
    bool start(QString* error) override;
    SGrab grab(std::chrono::milliseconds timeout) override;
    quint64 underruns() const override { return m_underrunsBefore + m_underruns; }
    QString stallText(const QString& time, EStall stall, const SGrabStatistics& before) const override;
    SAbsences absences() const override;

private:
    using Clock = std::chrono::steady_clock;

    CReconnectingCamera(Opener opener, std::chrono::milliseconds silence, std::chrono::milliseconds patience);

    void noteSign();
    void close(const QString& reason);
    QString silenceText() const;
    SGrab tryToOpen(std::chrono::milliseconds timeout);

    const Opener m_open;
    const std::chrono::milliseconds m_silence;
    const std::chrono::milliseconds m_patience;
    QString m_description;
    QString m_pixelFormat;
    // Of the thread that grabs, while it does.
    std::unique_ptr<IFrameSource> m_camera; // null while it has gone
    Clock::time_point m_lastSign;
    Clock::time_point m_quietSince; // the same, or when it was opened again
    std::optional<Clock::time_point> m_goneSince;
    QString m_reason; // why it has gone
    quint64 m_underruns = 0;
    quint64 m_underrunsBefore = 0;
    bool m_hasGiven = false;

    mutable QMutex m_mutex;
    SAbsences m_absences; // guarded by m_mutex
};

} // namespace Host
