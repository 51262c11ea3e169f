// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/CAravisCamera.h"

#include "host/camera/CBufferReturn.h"
#include "host/camera/CFeatures.h"
#include "host/camera/CGLibError.h"
#include "host/camera/CPacketUnderruns.h"
#include "host/camera/CameraMode.h"
#include "host/camera/ConfigureStream.h"
#include "host/camera/Device.h"
#include "host/camera/FrameRate.h"
#include "host/camera/GrabResult.h"
#include "host/camera/PacketSize.h"
#include "host/camera/PixelFormat.h"
#include "host/camera/StallText.h"

#include <arv.h>

#include <QStringList>

namespace Host {

std::unique_ptr<CAravisCamera> CAravisCamera::open(const SCameraOptions& options, QString* error)
{
    CGLibError reason;
    const GObjectPtr<ArvDevice> device = openDevice(options.address, &reason);
    GObjectPtr<ArvCamera> handle;
    if (device)
        handle.reset(arv_camera_new_with_device(device.get(), reason.slot()));
    if (!handle) {
        *error = cannotOpenText(options.address, reason, options.canNameCommands);
        return nullptr;
    }
    if (!hasControl(device.get(), &reason)) {
        *error = tr("camera '%1': another program is using it (%2)").arg(options.address, reason.text());
        return nullptr;
    }
    std::unique_ptr<CAravisCamera> camera(new CAravisCamera(options, std::move(handle)));
    if (!camera->configure(error) || !camera->readGeometry(error))
        return nullptr;
    return camera;
}

CAravisCamera::CAravisCamera(SCameraOptions options, GObjectPtr<ArvCamera> camera)
    : m_options(std::move(options))
    , m_camera(std::move(camera))
{
    m_controlLostHandler = g_signal_connect(arv_camera_get_device(m_camera.get()), "control-lost",
                                            G_CALLBACK(&CAravisCamera::onControlLost), this);
}

CAravisCamera::~CAravisCamera()
{
    stop();
    g_signal_handler_disconnect(arv_camera_get_device(m_camera.get()), m_controlLostHandler);
}

void CAravisCamera::onControlLost(ArvDevice*, void* self)
{
    static_cast<CAravisCamera*>(self)->m_controlLost.store(true, std::memory_order_release);
}

bool CAravisCamera::configure(QString* error)
{
    if (m_options.resend && !arv_camera_is_gv_device(m_camera.get())) {
        *error = QStringLiteral("camera '%1' has no packets to send again: it is no GigE Vision camera (--resend)")
                     .arg(m_options.address);
        return false;
    }
    const bool hasFormat =
        m_options.pixelFormat.isEmpty() || setFeature(QStringLiteral("PixelFormat"), m_options.pixelFormat, error);
    return hasFormat && (m_options.framesPerSecond <= 0.0 || setFrameRate(m_camera.get(), m_options, error)) &&
           setFeatures(error);
}

bool CAravisCamera::setFeatures(QString* error)
{
    // After the frame rate, which the library sets together with the trigger: what was asked for by name stays.
    const CFeatures features(arv_camera_get_device(m_camera.get()));
    QStringList errors;
    for (const auto& [name, value] : m_options.features) {
        if (!errors.isEmpty() && isLost())
            break; // it would only wait for each of the others
        // Nothing is written any more once it is clear that the camera will not be used.
        const QString wrong = errors.isEmpty() ? features.set(name, value) : features.refusalOf(name, value);
        if (!wrong.isEmpty())
            errors << tr("camera '%1': %2").arg(m_options.address, wrong);
    }
    *error = errors.join(QLatin1Char('\n'));
    return errors.isEmpty();
}

std::vector<SFeature> CAravisCamera::features() const
{
    return CFeatures(arv_camera_get_device(m_camera.get()), [this] { return isLost(); }).all();
}

bool CAravisCamera::setFeature(const QString& name, const QString& value, QString* error)
{
    const QString wrong = CFeatures(arv_camera_get_device(m_camera.get())).set(name, value);
    if (!wrong.isEmpty())
        *error = tr("camera '%1': %2").arg(m_options.address, wrong);
    return wrong.isEmpty();
}

bool CAravisCamera::readGeometry(QString* error)
{
    CGLibError reason;
    gint x = 0;
    gint y = 0;
    QString maker;
    QString model;
    maker = QString::fromUtf8(arv_camera_get_vendor_name(m_camera.get(), reason.slot()));
    if (!reason)
        model = QString::fromUtf8(arv_camera_get_model_name(m_camera.get(), reason.slot()));
    if (!reason)
        arv_camera_get_region(m_camera.get(), &x, &y, &m_width, &m_height, reason.slot());
    if (!reason)
        m_pixelFormat = pixelFormatName(arv_camera_get_pixel_format(m_camera.get(), reason.slot()));
    if (reason)
        *error = tr("cannot read camera '%1': %2").arg(m_options.address, reason.text());
    m_name = QStringLiteral("%1 %2 (%3)").arg(maker, model, m_options.address);
    return !reason;
}

bool CAravisCamera::start(QString* error)
{
    if (m_stream)
        return true;
    if (!createStream(error))
        return false;

    CGLibError reason;
    arv_camera_set_acquisition_mode(m_camera.get(), ARV_ACQUISITION_MODE_CONTINUOUS, reason.slot());
    if (!reason)
        arv_camera_start_acquisition(m_camera.get(), reason.slot());
    if (!reason)
        return true;
    *error = tr("camera '%1' does not start: %2").arg(m_options.address, reason.text());
    destroyStream();
    return false;
}

bool CAravisCamera::createStream(QString* error)
{
    CGLibError reason;
    const std::size_t payload = arv_camera_get_payload(m_camera.get(), reason.slot());
    if (!reason)
        m_stream.reset(arv_camera_create_stream(m_camera.get(), nullptr, nullptr, reason.slot()));
    if (!m_stream) {
        *error = tr("camera '%1' gives no stream: %2").arg(m_options.address, reason.text());
        return false;
    }
    configureStream(m_stream.get(), payload, m_options.resend.value_or(true));
    if (const auto packets = packetsPerFrame(m_camera.get(), payload))
        m_packetUnderruns = std::make_unique<CPacketUnderruns>(*packets);
    m_bufferReturn = std::make_shared<CBufferReturn>(m_stream.get());
    for (int i = 0; i < m_options.buffers; ++i)
        arv_stream_push_buffer(m_stream.get(), arv_buffer_new_allocate(payload));
    return true;
}

void CAravisCamera::destroyStream()
{
    if (m_bufferReturn)
        m_bufferReturn->close();
    m_bufferReturn.reset();
    m_packetUnderruns.reset();
    m_stream.reset();
}

CAravisCamera::SGrab CAravisCamera::grab(std::chrono::milliseconds timeout)
{
    Q_ASSERT(m_stream);
    const auto timeoutUs = std::chrono::duration_cast<std::chrono::microseconds>(timeout).count();
    if (ArvBuffer* buffer = arv_stream_timeout_pop_buffer(m_stream.get(), guint64(timeoutUs)))
        return wrap(buffer);
    if (!isLost())
        return {};
    return SGrab::none(EGrab::Lost, tr("camera '%1' has gone: it no longer answers").arg(m_options.address));
}

CAravisCamera::SGrab CAravisCamera::wrap(ArvBuffer* buffer)
{
    Veltra::SGrabResult result = grabResult(buffer);
    if (m_packetUnderruns)
        m_packetUnderruns->add(result.frameNumber, result.complete, countedUnderruns());
    if (!result.complete) {
        arv_stream_push_buffer(m_stream.get(), buffer);
        return SGrab::none(EGrab::Incomplete);
    }
    result.owner = std::shared_ptr<ArvBuffer>(buffer, [way = m_bufferReturn](ArvBuffer* b) { way->giveBack(b); });
    return {EGrab::Frame, Veltra::CGrabResultPtr(std::move(result)), {}, {}};
}

QString CAravisCamera::description() const
{
    return QStringLiteral("%1, %2 x %3 %4").arg(m_name).arg(m_width).arg(m_height).arg(m_pixelFormat);
}

QString CAravisCamera::stallText(const QString& time, EStall stall, const SGrabStatistics& before) const
{
    SStalledCamera camera;
    camera.address = m_options.address;
    camera.isUsb = arv_camera_is_uv_device(m_camera.get());
    camera.buffers = m_options.buffers;
    // One that has gone answers nothing any more.
    if (stall != EStall::Silent || before.grabbed == 0) {
        camera.waitsForTrigger = waitsForTrigger(m_camera.get());
        camera.packetBytes = packetSize(m_camera.get());
    }
    return cameraStallText(camera, time, stall, before);
}

void CAravisCamera::stop()
{
    if (!m_stream)
        return;
    // A camera that has gone answers nothing any more; asking it would only wait.
    if (!isLost())
        arv_camera_stop_acquisition(m_camera.get(), CGLibError().slot());
    destroyStream();
}

quint64 CAravisCamera::underruns() const
{
    const quint64 counted = countedUnderruns();
    return m_packetUnderruns ? m_packetUnderruns->frames(counted) : counted;
}

quint64 CAravisCamera::countedUnderruns() const
{
    guint64 completed = 0;
    guint64 failures = 0;
    guint64 underruns = 0;
    if (m_stream)
        arv_stream_get_statistics(m_stream.get(), &completed, &failures, &underruns);
    return underruns;
}

int CAravisCamera::freeBuffers() const
{
    gint input = 0;
    gint output = 0;
    if (m_stream)
        arv_stream_get_n_buffers(m_stream.get(), &input, &output);
    return input;
}

} // namespace Host
