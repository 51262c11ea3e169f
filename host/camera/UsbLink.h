// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

#include <optional>

struct _ArvCamera;

namespace Host {

/// How a USB3 Vision camera is reached. It has no packets to lose, and no socket.
struct SUsbLink
{
    bool isUsed = false;                ///< Whether the camera is one.
    std::optional<quint64> memoryBytes; ///< What the kernel lends to all USB transfers; 0 without a limit.
};

SUsbLink usbLink(_ArvCamera* camera);

} // namespace Host
