// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/SCameraOptions.h"

inline Host::SCameraOptions camera(const QString& address)
{
    Host::SCameraOptions options;
    options.address = address;
    return options;
}
