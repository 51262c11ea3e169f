// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/CReconnectingCamera.h"

#include <QMutexLocker>

#include <thread>
#include <utility>

namespace Host {

namespace {

QString seconds(std::chrono::milliseconds time)
{
    return QString::number(double(time.count()) / 1000.0);
}

} // namespace

std::unique_ptr<CReconnectingCamera> CReconnectingCamera::open(Opener opener, std::chrono::milliseconds silence,
                                                               std::chrono::milliseconds patience, QString* error)
{
    std::unique_ptr<CReconnectingCamera> camera(new CReconnectingCamera(std::move(opener), silence, patience));
    camera->m_camera = camera->m_open(error);
    if (!camera->m_camera)
        return nullptr;
    camera->m_description = camera->m_camera->description();
    camera->m_pixelFormat = camera->m_camera->pixelFormat();
    return camera;
}

CReconnectingCamera::CReconnectingCamera(Opener opener, std::chrono::milliseconds silence,
                                         std::chrono::milliseconds patience)
    : m_open(std::move(opener))
    , m_silence(silence)
    , m_patience(patience)
{
}

bool CReconnectingCamera::start(QString* error)
{
    m_lastSign = m_quietSince = Clock::now();
    return !m_camera || m_camera->start(error);
}

IFrameSource::SGrab CReconnectingCamera::grab(std::chrono::milliseconds timeout)
{
    if (!m_camera)
        return tryToOpen(timeout);
    SGrab grab = m_camera->grab(timeout);
    const quint64 underrunsBefore = std::exchange(m_underruns, m_camera->underruns());
    const bool hasUnderrun = m_underruns != underrunsBefore;
    if (hasUnderrun || grab.status == EGrab::Frame || grab.status == EGrab::Incomplete)
        noteSign();
    // What never gave anything has not gone: it may wait for a trigger, which opening it anew does not change.
    const bool isSilent = m_hasGiven && Clock::now() - m_quietSince >= m_silence;
    if (grab.status != EGrab::Lost && !isSilent) {
        if (grab.status == EGrab::Timeout && m_goneSince)
            grab.status = EGrab::Away;
        return grab;
    }
    close(isSilent ? silenceText() : grab.error);
    return SGrab::none(EGrab::Away);
}

void CReconnectingCamera::noteSign()
{
    const auto now = Clock::now();
    if (m_goneSince) {
        const QMutexLocker lock(&m_mutex);
        ++m_absences.count;
        m_absences.total += std::chrono::duration_cast<std::chrono::milliseconds>(now - m_lastSign);
        m_absences.isAway = false;
    }
    m_goneSince.reset();
    m_hasGiven = true;
    m_lastSign = m_quietSince = now;
}

void CReconnectingCamera::close(const QString& reason)
{
    {
        const QMutexLocker lock(&m_mutex);
        m_absences.isAway = true;
    }
    if (!m_goneSince) {
        m_goneSince = Clock::now();
        m_reason = reason;
    }
    m_underrunsBefore += std::exchange(m_underruns, 0);
    m_camera.reset();
}

IFrameSource::SGrab CReconnectingCamera::tryToOpen(std::chrono::milliseconds timeout)
{
    const auto begin = Clock::now();
    if (begin - *m_goneSince >= m_patience)
        return SGrab::none(EGrab::Lost, tr("%1; it did not come back for %2 s").arg(m_reason, seconds(m_patience)));
    QString error; // the next attempt may succeed
    auto camera = m_open(&error);
    // One that has forgotten its pixel format is of no use to the graph.
    if (camera && camera->pixelFormat() == m_pixelFormat && camera->start(&error)) {
        m_camera = std::move(camera);
        m_quietSince = Clock::now();
    } else {
        std::this_thread::sleep_until(begin + timeout);
    }
    return SGrab::none(EGrab::Away);
}

QString CReconnectingCamera::silenceText() const
{
    SGrabStatistics before;
    before.grabbed = before.complete = 1;
    return m_camera->stallText(QStringLiteral("%1 s").arg(seconds(m_silence)), EStall::Silent, before);
}

QString CReconnectingCamera::stallText(const QString& time, EStall stall, const SGrabStatistics& before) const
{
    return m_camera ? m_camera->stallText(time, stall, before) : m_reason;
}

SAbsences CReconnectingCamera::absences() const
{
    const QMutexLocker lock(&m_mutex);
    return m_absences;
}

} // namespace Host
