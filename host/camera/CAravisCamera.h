// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/CFeatures.h"
#include "host/camera/GObjectPtr.h"
#include "host/camera/SCameraOptions.h"
#include "host/sources/IFrameSource.h"

#include <QCoreApplication>
#include <QString>

#include <atomic>
#include <chrono>
#include <memory>
#include <vector>

// Aravis' own types, so that only who needs the library includes it.
struct _ArvBuffer;
struct _ArvCamera;
struct _ArvDevice;
struct _ArvStream;

namespace Host {

class CBufferReturn;
class CPacketUnderruns;

/**
 * A camera: the one built into the library, a GigE Vision camera at its address, or a USB3 Vision camera by its name.
 *
 * \code
 * QString error;
 * const auto camera = CAravisCamera::open({"192.168.0.5"}, &error);
 * if (!camera || !camera->start(&error))
 *     return fail(error);
 * const CAravisCamera::SGrab grab = camera->grab(std::chrono::milliseconds(100));
 * if (grab.status == CAravisCamera::EGrab::Frame)
 *     show(grab.frame);
 * \endcode
 *
 * Errors are in the user's language.
 *
 * A frame's pixels stay in the stream's buffer; the buffer goes back to the stream when the last handle to the
 * frame goes, in whatever thread that is. While all buffers are held the camera has nowhere to put a frame: these
 * frames are lost and counted as underruns. A handle may outlive stop() and the camera; its buffer is then freed
 * with it.
 *
 * Threads: open(), start(), stop() and the destructor in one thread, and no grab() under way in another one while
 * start(), stop() or the destructor runs. grab() from one thread at a time, underruns() and freeBuffers() from any
 * thread that may call grab().
 */
class CAravisCamera : public IFrameSource
{
    Q_DECLARE_TR_FUNCTIONS(Host::CAravisCamera)

public:
    /// Opens the camera and applies \a options. On failure null, and the reason in \a error: a line, or one for each
    /// feature that the camera does not take. After the first of these no other feature is set.
    static std::unique_ptr<CAravisCamera> open(const SCameraOptions& options, QString* error);

    /// Stops.
    ~CAravisCamera() override;

    /// "Maker Model (address)".
    QString name() const { return m_name; }
    QString address() const { return m_options.address; }
    int width() const { return m_width; }
    int height() const { return m_height; }
    QString pixelFormat() const override { return m_pixelFormat; }
    QString description() const override;

    /// Reads size and format anew, which were set through handle() while it was stopped. Threads: as start().
    bool refresh(QString* error) { return readGeometry(error); }

    /// As CFeatures::all(); those that were read until then if the camera goes meanwhile.
    std::vector<SFeature> features() const;

    /// Makes the buffers and begins to acquire; does nothing when it does so already. False with the reason in
    /// \a error leaves the camera stopped.
    bool start(QString* error) override;

    /// Waits for the next frame. The camera must be started.
    SGrab grab(std::chrono::milliseconds timeout) override;

    /// Ends the acquisition and drops the frames that nobody grabbed. May be started again.
    void stop();

    /// Frames lost since start() because no buffer was free; 0 while stopped. A network camera's are worked out of the
    /// packets that found none, see CPacketUnderruns; others are as the library counts them.
    quint64 underruns() const override;

    /// Buffers that wait for the camera to fill them; 0 while stopped.
    int freeBuffers() const;

    QString stallText(const QString& time, EStall stall, const SGrabStatistics& before) const override;

    /// Whether it no longer answers. Any thread.
    bool isLost() const { return m_controlLost.load(std::memory_order_acquire); }

    /// The camera library's own objects, for questions that this class does not answer. The stream is null while
    /// stopped.
    _ArvCamera* handle() const { return m_camera.get(); }
    _ArvStream* stream() const { return m_stream.get(); }

private:
    CAravisCamera(SCameraOptions options, GObjectPtr<_ArvCamera> camera);

    bool configure(QString* error);
    bool setFeatures(QString* error);
    bool setFeature(const QString& name, const QString& value, QString* error);
    bool readGeometry(QString* error);
    bool createStream(QString* error);
    void destroyStream();
    SGrab wrap(_ArvBuffer* buffer);
    quint64 countedUnderruns() const; // by the library
    static void onControlLost(_ArvDevice* device, void* self);

    const SCameraOptions m_options;
    const GObjectPtr<_ArvCamera> m_camera;
    QString m_name;
    QString m_pixelFormat;
    int m_width = 0;
    int m_height = 0;
    unsigned long m_controlLostHandler = 0;
    // Set by the thread that keeps the connection to the camera alive. Released by it and acquired here, so what it did
    // to the camera before is seen.
    std::atomic<bool> m_controlLost{false};
    GObjectPtr<_ArvStream> m_stream; // null while stopped
    // Of a network camera, for which the library counts packets instead of frames; null for others and while stopped.
    std::unique_ptr<CPacketUnderruns> m_packetUnderruns;
    std::shared_ptr<CBufferReturn> m_bufferReturn;
};

} // namespace Host
