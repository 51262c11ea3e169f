// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/FrameRate.h"

#include "host/camera/CGLibError.h"
#include "host/camera/SCameraOptions.h"

#include <arv.h>

#include <cmath>

namespace Host {

namespace {

// Cameras count the time of a frame in steps of their own, so that few rates are met exactly.
constexpr double rateTolerance = 0.01;

} // namespace

bool setFrameRate(ArvCamera* camera, const SCameraOptions& options, QString* error)
{
    CGLibError reason;
    if (!arv_camera_is_frame_rate_available(camera, reason.slot())) {
        *error = QStringLiteral("camera '%1' has no frame rate to set").arg(options.address);
        return false;
    }
    const double asked = options.framesPerSecond;
    double given = 0.0;
    arv_camera_set_frame_rate(camera, asked, reason.slot());
    if (!reason)
        given = arv_camera_get_frame_rate(camera, reason.slot());
    // A rate out of bounds is no error to the library: it sets the nearest one.
    if (!reason && std::abs(given - asked) <= rateTolerance * asked)
        return true;
    *error = reason ? QStringLiteral("camera '%1' refuses %2 frames per second: %3")
                          .arg(options.address, QString::number(asked), reason.text())
                    : QStringLiteral("camera '%1' cannot do %2 frames per second, the nearest is %3")
                          .arg(options.address, QString::number(asked), QString::number(given));
    return false;
}

} // namespace Host
