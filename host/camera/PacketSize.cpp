// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/PacketSize.h"

#include "host/camera/CGLibError.h"
#include "host/camera/CameraMode.h"

#include <arv.h>

namespace Host {

namespace {

bool hasFeature(ArvCamera* camera, const char* name)
{
    return arv_device_get_feature(arv_camera_get_device(camera), name) != nullptr;
}

} // namespace

QString packetSizeFeature(ArvCamera* camera)
{
    if (!arv_camera_is_gv_device(camera))
        return {};
    // The library gives a camera without the usual one a feature of its own.
    return hasFeature(camera, "GevSCPSPacketSize") ? QStringLiteral("GevSCPSPacketSize")
                                                   : QStringLiteral("ArvGevSCPSPacketSize");
}

std::optional<quint64> packetSize(ArvCamera* camera)
{
    CGLibError error;
    const guint bytes = arv_camera_is_gv_device(camera) ? arv_camera_gv_get_packet_size(camera, error.slot()) : 0;
    return error || bytes == 0 ? std::nullopt : std::optional<quint64>(bytes);
}

std::optional<quint64> packetsPerFrame(ArvCamera* camera, quint64 payload)
{
    constexpr quint64 networkHeaders = 20 + 8; // IP and UDP
    constexpr quint64 leaderAndTrailer = 2;
    const std::optional<quint64> bytes = packetSize(camera);
    const quint64 headers = networkHeaders + (isOn(camera, "GevGVSPExtendedIDMode") ? 20 : 8);
    if (!bytes || *bytes <= headers)
        return {};
    const quint64 pixels = *bytes - headers;
    return (payload + pixels - 1) / pixels + leaderAndTrailer;
}

std::optional<quint64> largestPacketSize(ArvCamera* camera)
{
    const std::optional<quint64> present = packetSize(camera);
    // Without test packets the library gives back what is set.
    if (!present || !hasFeature(camera, "GevSCPSFireTestPacket"))
        return {};
    CGLibError error;
    const guint bytes = arv_camera_gv_auto_packet_size(camera, error.slot());
    const bool isFound = !error && bytes > 0;
    arv_camera_gv_set_packet_size(camera, gint(*present), error.slot());
    return isFound ? std::optional<quint64>(bytes) : std::nullopt;
}

} // namespace Host
