// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/CGrabThread.h"

#include <algorithm>

namespace Host {

namespace {

using Clock = std::chrono::steady_clock;

// How late the thread may notice that it is to end.
constexpr std::chrono::milliseconds patience(100);

} // namespace

CGrabThread::CGrabThread(IFrameSource& source, quint64 frames, std::chrono::milliseconds silence, FrameHandler handler)
    : m_source(source)
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
    statistics.missed = m_missed;
    return statistics;
}

void CGrabThread::run()
{
    Q_EMIT ended(grabAll());
}

QString CGrabThread::grabAll()
{
    using EGrab = IFrameSource::EGrab;
    // What was waited for a frame in vain. The time of a handler does not count, nor that of a stopped process.
    Clock::duration silent{0};
    Clock::duration frameless{0};
    SGrabStatistics before; // when the last complete frame came
    while ((m_frames == 0 || m_complete < m_frames) && !isInterruptionRequested()) {
        const auto begin = Clock::now();
        IFrameSource::SGrab grab = m_source.grab(patience);
        const auto waited = std::min<Clock::duration>(Clock::now() - begin, patience);
        silent = grab.status == EGrab::Timeout ? silent + waited : Clock::duration::zero();
        frameless += waited;
        const quint64 underruns = m_source.underruns();
        // A camera whose frames find no buffer has not gone, but gives no frame either.
        if (underruns != m_underruns)
            silent = Clock::duration::zero();
        m_underruns = underruns;

        if (grab.status == EGrab::Away) {
            frameless = Clock::duration::zero(); // its source knows how long to wait
            m_numbers.restart();
        }
        if (grab.status == EGrab::Lost)
            return grab.error;
        if (grab.status == EGrab::Ended) {
            m_hasRunOut = true;
            return {};
        }
        if (grab.status == EGrab::Incomplete)
            ++m_incomplete;
        if (grab.status == EGrab::Frame) {
            frameless = Clock::duration::zero();
            handOn(std::move(grab));
            before = statistics();
        }
        const QString missing = missingFrame(silent, frameless, before);
        if (!missing.isEmpty())
            return missing;
    }
    return {};
}

QString CGrabThread::missingFrame(Clock::duration silent, Clock::duration frameless,
                                  const SGrabStatistics& before) const
{
    using EStall = IFrameSource::EStall;
    const auto text = [](std::chrono::milliseconds time) {
        return QStringLiteral("%1 s").arg(double(time.count()) / 1000.0);
    };
    const SGrabStatistics now = statistics();
    if (silent >= m_silence)
        return m_source.stallText(text(m_silence), EStall::Silent, now);
    // While nothing comes at all, the camera may have gone; then its source may still wait for it.
    if (m_timeout.count() == 0 || frameless < m_timeout || silent > Clock::duration::zero())
        return {};
    const bool isStarved = now.underruns > before.underruns && now.incomplete == before.incomplete;
    return m_source.stallText(text(m_timeout), isStarved ? EStall::NoFreeBuffer : EStall::Incomplete, now);
}

void CGrabThread::handOn(IFrameSource::SGrab grab)
{
    const SFrame frame{std::move(grab.frame), Clock::now(), std::move(grab.claim), std::move(grab.origin)};
    if (m_complete == 0)
        m_first = frame.grabbed;
    m_spanNs = std::chrono::nanoseconds(frame.grabbed - m_first).count();
    m_numbers.add(frame.result->frameNumber, m_incomplete + m_underruns);
    m_missed = m_numbers.missed(m_incomplete + m_underruns);
    ++m_complete;
    m_handler(frame);
}

} // namespace Host
