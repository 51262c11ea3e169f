// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/SGrabStatistics.h"

#include <QString>

namespace Host {

/// What to say, and to try, when a camera gives no whole frame; see IFrameSource::stallText().
QString cameraStallText(const QString& camera, const QString& time, bool isSilent, const SGrabStatistics& before);

} // namespace Host
