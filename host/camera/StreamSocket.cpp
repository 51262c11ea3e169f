// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/StreamSocket.h"

#include <QDir>
#include <QFile>

#include <array>

#include <arpa/inet.h>
#include <linux/if_packet.h>
#include <linux/sock_diag.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace Host {

namespace {

std::optional<quint64> mostBufferBytes()
{
    QFile file(QStringLiteral("/proc/sys/net/core/rmem_max"));
    bool ok = false;
    const quint64 bytes =
        file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()).trimmed().toULongLong(&ok) : 0;
    return ok ? std::optional<quint64>(bytes) : std::nullopt;
}

bool readPacketSocket(int descriptor, SStreamSocket* socket)
{
    tpacket_stats counts{};
    socklen_t size = sizeof counts;
    if (getsockopt(descriptor, SOL_PACKET, PACKET_STATISTICS, &counts, &size) != 0)
        return false;
    socket->drops = counts.tp_drops;
    socket->bufferBytes.reset();
    socket->isPacketSocket = true;
    return true;
}

void readUdpSocket(int descriptor, SStreamSocket* socket)
{
    std::array<quint32, SK_MEMINFO_VARS> memory{};
    socklen_t size = sizeof memory;
    if (getsockopt(descriptor, SOL_SOCKET, SO_MEMINFO, memory.data(), &size) != 0 || size != sizeof memory)
        return;
    // The kernel doubles what is asked for, for its own book-keeping.
    socket->bufferBytes = memory[SK_MEMINFO_RCVBUF] / 2;
    socket->drops = memory[SK_MEMINFO_DROPS];
}

} // namespace

SStreamSocket streamSocket(quint16 port)
{
    SStreamSocket socket;
    socket.mostBufferBytes = mostBufferBytes();
    const QStringList descriptors = QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::Files | QDir::System);
    for (const QString& name : descriptors) {
        const int descriptor = name.toInt();
        sockaddr_storage address{};
        socklen_t size = sizeof address;
        if (getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &size) != 0)
            continue;
        // Beside a packet socket the UDP socket is there, too, and overflows since nobody reads from it.
        if (address.ss_family == AF_PACKET && readPacketSocket(descriptor, &socket))
            return socket;
        if (address.ss_family == AF_INET && ntohs(reinterpret_cast<const sockaddr_in&>(address).sin_port) == port)
            readUdpSocket(descriptor, &socket);
    }
    return socket;
}

} // namespace Host
