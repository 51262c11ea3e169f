// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/CGrabThread.h"

#include "host/camera/CAravisCamera.h"

#include <algorithm>

namespace Host {

namespace {

using Clock = std::chrono::steady_clock;

// How late the thread may notice that it is to end.
constexpr std::chrono::milliseconds patience(100);

} // namespace

CGrabThread::CGrabThread(CAravisCamera& camera, quint64 frames, std::chrono::milliseconds silence, FrameHandler handler)
    : m_camera(camera)
    , m_frames(frames)
    , m_silence(silence)
    , m_handler(std::move(handler))
{
}

CGrabThread::~CGrabThread()
{
    requestInterruption();
    wait();
}

SGrabStatistics CGrabThread::statistics() const
{
    SGrabStatistics statistics;
    statistics.complete = m_complete;
    statistics.incomplete = m_incomplete;
    statistics.grabbed = statistics.complete + statistics.incomplete;
    statistics.underruns = m_underruns;
    return statistics;
}

void CGrabThread::run()
{
    Q_EMIT ended(grabAll());
}

QString CGrabThread::grabAll()
{
    // What was waited for a frame in vain. The time of a handler does not count, nor that of a stopped process.
    Clock::duration silent{0};
    Clock::duration frameless{0};
    while ((m_frames == 0 || m_complete < m_frames) && !isInterruptionRequested()) {
        const auto begin = Clock::now();
        CAravisCamera::SGrab grab = m_camera.grab(patience);
        const auto waited = std::min<Clock::duration>(Clock::now() - begin, patience);
        silent = grab.status == CAravisCamera::EGrab::Timeout ? silent + waited : Clock::duration::zero();
        frameless += waited;
        const quint64 underruns = m_camera.underruns();
        // A camera whose frames find no buffer is alive: it is the graph that is slow.
        if (underruns != m_underruns)
            silent = frameless = Clock::duration::zero();
        m_underruns = underruns;

        if (grab.status == CAravisCamera::EGrab::Lost)
            return QStringLiteral("camera '%1' has gone: it no longer answers").arg(m_camera.address());
        if (grab.status == CAravisCamera::EGrab::Incomplete)
            ++m_incomplete;
        if (grab.status == CAravisCamera::EGrab::Frame) {
            frameless = Clock::duration::zero();
            handOn(std::move(grab.frame));
        }
        const QString missing = missingFrame(silent, frameless);
        if (!missing.isEmpty())
            return missing;
    }
    return {};
}

QString CGrabThread::missingFrame(Clock::duration silent, Clock::duration frameless) const
{
    const auto seconds = [](std::chrono::milliseconds time) { return QString::number(double(time.count()) / 1000.0); };
    if (silent >= m_silence) {
        if (m_complete > 0 || m_incomplete > 0)
            return QStringLiteral("camera '%1' has gone: no frame for %2 s")
                .arg(m_camera.address(), seconds(m_silence));
        return QStringLiteral("camera '%1' sends nothing: no frame for %2 s; does it wait for a trigger "
                              "(--camera-set TriggerMode=Off), or is a firewall in the way?")
            .arg(m_camera.address(), seconds(m_silence));
    }
    if (m_timeout.count() == 0 || frameless < m_timeout)
        return {};
    return QStringLiteral("camera '%1' gave no whole frame for %2 s, %3 incomplete ones in all; try smaller packets "
                          "(--camera-set GevSCPSPacketSize=1400) or more buffers (--buffers 64)")
        .arg(m_camera.address(), seconds(m_timeout))
        .arg(m_incomplete.load());
}

void CGrabThread::handOn(Veltra::CGrabResultPtr result)
{
    const SFrame frame{std::move(result), Clock::now()};
    if (m_complete == 0)
        m_first = frame.grabbed;
    m_spanNs = std::chrono::nanoseconds(frame.grabbed - m_first).count();
    ++m_complete;
    m_handler(frame);
}

} // namespace Host
