// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <optional>

struct _ArvDevice;

namespace Host {

/// The network interface of this machine that a camera is reached through.
struct SNetworkLink
{
    QString interface;                      ///< "eth0"; empty when the camera is not on the network.
    std::optional<quint64> mtu;             ///< The largest packet that it takes, in bytes.
    std::optional<quint64> bitsPerSecond{}; ///< None for interfaces without a speed of their own.

    bool isLoopback() const { return interface == QLatin1String("lo"); }
};

SNetworkLink networkLink(_ArvDevice* device);

} // namespace Host
