// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/NetworkLink.h"

#include <QFile>

#include <arv.h>

#include <ifaddrs.h>
#include <netinet/in.h>

namespace Host {

namespace {

// The IPv4 address on this side, in network order; 0 when the camera is not on the network.
in_addr_t ownAddress(ArvDevice* device)
{
    sockaddr_in address{};
    if (!ARV_IS_GV_DEVICE(device))
        return 0;
    GSocketAddress* const known = arv_gv_device_get_interface_address(ARV_GV_DEVICE(device));
    const bool isKnown = known && g_socket_address_to_native(known, &address, sizeof address, nullptr);
    return isKnown && address.sin_family == AF_INET ? address.sin_addr.s_addr : 0;
}

QString interfaceOf(in_addr_t wanted)
{
    ifaddrs* all = nullptr;
    if (wanted == 0 || getifaddrs(&all) != 0)
        return {};
    QString name;
    for (const ifaddrs* each = all; each && name.isEmpty(); each = each->ifa_next) {
        const auto* const address = reinterpret_cast<const sockaddr_in*>(each->ifa_addr);
        if (address && address->sin_family == AF_INET && address->sin_addr.s_addr == wanted)
            name = QFile::decodeName(each->ifa_name);
    }
    freeifaddrs(all);
    return name;
}

std::optional<quint64> readNumber(const QString& interface, const char* property)
{
    QFile file(QStringLiteral("/sys/class/net/%1/%2").arg(interface, QLatin1String(property)));
    if (interface.isEmpty() || !file.open(QIODevice::ReadOnly))
        return {};
    bool ok = false;
    const qint64 number = QString::fromLatin1(file.readAll()).trimmed().toLongLong(&ok);
    return ok && number > 0 ? std::optional<quint64>(quint64(number)) : std::nullopt;
}

} // namespace

SNetworkLink networkLink(ArvDevice* device)
{
    constexpr quint64 mega = 1000000;
    SNetworkLink link;
    link.interface = interfaceOf(ownAddress(device));
    link.mtu = readNumber(link.interface, "mtu");
    if (const auto megabits = readNumber(link.interface, "speed"))
        link.bitsPerSecond = *megabits * mega;
    return link;
}

} // namespace Host
