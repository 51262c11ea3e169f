// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

#include <optional>

namespace Host {

/// What the kernel tells of the socket that a stream receives on. Nothing stands where it tells nothing.
struct SStreamSocket
{
    bool isPacketSocket = false;            ///< Root reads past the UDP socket, and needs no buffer of a size.
    std::optional<quint64> bufferBytes;     ///< Of a UDP socket.
    std::optional<quint64> mostBufferBytes; ///< What a program may ask for: net.core.rmem_max.
    std::optional<quint64> drops;           ///< Packets that found no room, since the socket was opened.
};

/// Looks among the sockets of this process for the one that receives on the UDP port \a port, or for a packet socket,
/// which the camera library prefers where it may have one. To be asked once for a stream: the kernel counts the drops
/// of a packet socket from the last question on.
SStreamSocket streamSocket(quint16 port);

} // namespace Host
