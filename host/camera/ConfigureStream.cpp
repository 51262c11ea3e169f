// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/ConfigureStream.h"

#include <arv.h>

#include <algorithm>

namespace Host {

void configureStream(_ArvStream* stream, std::size_t frameBytes, bool asksAgain)
{
    constexpr std::size_t leastBytes = 1 << 20;
    constexpr std::size_t mostBytes = 1 << 30;
    if (ARV_IS_GV_STREAM(stream))
        g_object_set(stream, "socket-buffer", ARV_GV_STREAM_SOCKET_BUFFER_FIXED, "socket-buffer-size",
                     gint(std::clamp(frameBytes, leastBytes, mostBytes)), "packet-resend",
                     asksAgain ? ARV_GV_STREAM_PACKET_RESEND_ALWAYS : ARV_GV_STREAM_PACKET_RESEND_NEVER, nullptr);
}

} // namespace Host
