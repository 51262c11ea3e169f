// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/SGrabStatistics.h"

#include <QString>

namespace Host {

/// What to say, and to try, when a camera gives no whole frame; see IFrameSource::stallText(). Over USB there
/// are no packets to make smaller, and no firewall.
QString cameraStallText(const QString& camera, const QString& time, bool isSilent, bool isUsb,
                        const SGrabStatistics& before);

} // namespace Host
