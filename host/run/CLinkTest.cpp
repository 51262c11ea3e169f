// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CLinkTest.h"

#include "host/camera/CAravisCamera.h"
#include "host/camera/CGLibError.h"
#include "host/camera/CGrabThread.h"
#include "host/camera/CameraMode.h"
#include "host/camera/PacketSize.h"

#include <arv.h>

namespace Host {

namespace {

using Clock = std::chrono::steady_clock;

// A silent camera is a result, too.
constexpr std::chrono::hours silence(24 * 365);

} // namespace

CLinkTest::CLinkTest(SCameraOptions options)
    : m_options(std::move(options))
{
}

CLinkTest::~CLinkTest() = default;

QString CLinkTest::start()
{
    QString error;
    m_camera = CAravisCamera::open(m_options, &error);
    if (!m_camera)
        return error;
    measurePackets();
    if (!m_camera->start(&error))
        return error;

    m_report.packetBytes = packetSize(m_camera->handle());
    m_started = Clock::now();
    m_thread = std::make_unique<CGrabThread>(*m_camera, 0, silence, [](const CGrabThread::SFrame&) {});
    connect(m_thread.get(), &CGrabThread::ended, this, &CLinkTest::ended);
    m_thread->start();
    return {};
}

void CLinkTest::measurePackets()
{
    ArvCamera* const camera = m_camera->handle();
    CGLibError error;
    m_report.address = m_options.address;
    m_report.camera = QStringLiteral("%1, %2 x %3 %4")
                          .arg(m_camera->name())
                          .arg(m_camera->width())
                          .arg(m_camera->height())
                          .arg(m_camera->pixelFormat());
    m_report.frameBytes = arv_camera_get_payload(camera, error.slot());
    m_report.buffers = m_options.buffers;
    if (m_options.framesPerSecond > 0.0)
        m_report.askedForPerSecond = m_options.framesPerSecond;
    m_report.asksAgain = m_options.resend.value_or(true);
    m_report.waitsForTrigger = waitsForTrigger(camera);
    m_report.hasFrameRate = arv_camera_is_frame_rate_available(camera, error.slot());
    m_report.packetSizeFeature = packetSizeFeature(camera);
    m_report.setPacketBytes = packetSize(camera);
    m_report.largestPacketBytes = largestPacketSize(camera);
    m_report.link = networkLink(arv_camera_get_device(camera));
    m_report.usb = usbLink(camera);
}

void CLinkTest::requestEnd()
{
    if (m_thread)
        m_thread->requestInterruption();
}

std::chrono::milliseconds CLinkTest::time() const
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - m_started);
}

SGrabStatistics CLinkTest::frames() const
{
    return m_thread ? m_thread->statistics() : SGrabStatistics();
}

SLinkReport CLinkTest::report() const
{
    Q_ASSERT(m_thread);
    SLinkReport report = m_report;
    report.time = time();
    report.span = m_thread->span();
    report.frames = m_thread->statistics();
    ArvStream* const stream = m_camera->stream();
    report.packets = packetCounts(stream);
    if (ARV_IS_GV_STREAM(stream))
        report.socket = streamSocket(arv_gv_stream_get_port(ARV_GV_STREAM(stream)));
    return report;
}

} // namespace Host
