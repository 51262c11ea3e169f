// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/SAbsences.h"
#include "host/camera/SGrabStatistics.h"

#include <Halvex/platform/CGrabResultPtr.h>

#include <QString>

#include <chrono>
#include <memory>

namespace Host {

/**
 * Where the frames of a run come from: a camera, or files that stand in for one.
 *
 * \code
 * QString error;
 * const auto source = openSource(options, &error);
 * if (!source || !source->start(&error))
 *     return fail(error);
 * const IFrameSource::SGrab grab = source->grab(std::chrono::milliseconds(100));
 * if (grab.status == IFrameSource::EGrab::Frame)
 *     show(grab.frame);
 * \endcode
 *
 * Functions that may fail put the reason into \a error: a line, or one for each feature that the camera refuses.
 *
 * Threads: start() and the destructor while no grab() is under way; grab(), underruns() and stallText()
 * in one thread at a time; the others in any.
 */
class IFrameSource
{
public:
    enum class EGrab
    {
        Frame,      ///< A complete frame.
        Incomplete, ///< A frame of which a part was lost; it is not handed out.
        Timeout,    ///< No frame in time.
        Away,       ///< The same: the camera has gone, and is waited for.
        Ended,      ///< All frames have been given.
        Lost        ///< No frame will come any more, which is a fault.
    };

    /// Why no complete frame came for too long.
    enum class EStall
    {
        Silent,      ///< Nothing came at all.
        Incomplete,  ///< At most parts of frames.
        NoFreeBuffer ///< Frames came, and found no free buffer.
    };

    struct SGrab
    {
        EGrab status = EGrab::Timeout;
        Veltra::CGrabResultPtr frame; ///< Set exactly when status is Frame.

        /// To be kept as long as anything that was made of the frame: a source that can wait gives only so many frames
        /// until others are gone. Null from a source that cannot.
        std::shared_ptr<const void> claim;

        QString error; ///< Set exactly when status is Lost.

        QString
            origin{}; ///< The file of the frame: "a.png", or "a.avi#12" for an image of a video; empty for a camera.

        /// One without a frame.
        static SGrab none(EGrab status, const QString& error = {}) { return {status, {}, {}, error}; }
    };

    IFrameSource() = default;
    virtual ~IFrameSource() = default;
    Q_DISABLE_COPY(IFrameSource)

    /// What it is, with the size and the format of its frames: "Maker Model (fake), 512 x 512 Mono8".
    virtual QString description() const = 0;

    /// GenICam name of its frames' format, or of the first one's.
    virtual QString pixelFormat() const = 0;

    /// Begins; does nothing when it has begun. False leaves it as it was.
    virtual bool start(QString* error) = 0;

    /// Waits for the next frame. The source must be started.
    virtual SGrab grab(std::chrono::milliseconds timeout) = 0;

    /// Frames lost since start() because there was no room for them.
    virtual quint64 underruns() const = 0;

    /// What to say, and to try, when no complete frame has come for \a time ("5 s"). \a before is what came until
    /// then. May ask the camera: in the thread of grab().
    virtual QString stallText(const QString& time, EStall stall, const SGrabStatistics& before) const = 0;

    /// How often it had gone and came back.
    virtual SAbsences absences() const { return {}; }

    /// Why a run is over when this has ended: "at the end of the images".
    virtual QString endText() const { return {}; }
};

} // namespace Host
