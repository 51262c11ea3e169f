// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

struct _ArvCamera;

namespace Host {

struct SCameraOptions;

/// Sets the rate of \a options. False, with the reason in \a error, if the camera cannot do it.
bool setFrameRate(_ArvCamera* camera, const SCameraOptions& options, QString* error);

} // namespace Host
