// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/CGrabThread.h"

#include "host/camera/CAravisCamera.h"

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
    auto lastSign = Clock::now();
    while (m_complete < m_frames && !isInterruptionRequested()) {
        CAravisCamera::SGrab grab = m_camera.grab(patience);
        const quint64 underruns = m_camera.underruns();
        // A camera whose frames find no buffer is alive: it is the graph that is slow.
        if (grab.status != CAravisCamera::EGrab::Timeout || underruns != m_underruns)
            lastSign = Clock::now();
        m_underruns = underruns;

        if (grab.status == CAravisCamera::EGrab::Lost)
            return QStringLiteral("camera '%1' has gone: it no longer answers").arg(m_camera.address());
        if (Clock::now() - lastSign >= m_silence)
            return QStringLiteral("camera '%1' has gone: no frame for %2 s")
                .arg(m_camera.address(), QString::number(double(m_silence.count()) / 1000.0));
        if (grab.status == CAravisCamera::EGrab::Incomplete)
            ++m_incomplete;
        if (grab.status == CAravisCamera::EGrab::Frame)
            handOn(std::move(grab.frame));
    }
    return {};
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
