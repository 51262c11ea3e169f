// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/CGrabResultPtr.h>

struct _ArvBuffer;

namespace Host {

/// The frame in \a buffer, its owner not yet set. Incomplete when the pixels do not fill the promised geometry.
Veltra::SGrabResult grabResult(_ArvBuffer* buffer);

} // namespace Host
