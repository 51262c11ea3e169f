// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <optional>

struct _ArvCamera;

namespace Host {

/// The name of the feature that sets how large the packets of a network camera are; empty for other cameras.
QString packetSizeFeature(_ArvCamera* camera);

/// In bytes, with the headers. Nothing for cameras that are not on the network.
std::optional<quint64> packetSize(_ArvCamera* camera);

/// How many packets a frame of \a payload bytes comes in, with the one before its pixels and the one behind them.
/// Nothing for cameras that are not on the network.
std::optional<quint64> packetsPerFrame(_ArvCamera* camera, quint64 payload);

/// The largest packet that gets through, up to what the camera can send. Tries sizes by test packets, which takes a
/// second or two, and leaves the camera as it was. Nothing for cameras that send no test packets. Not while the camera
/// streams.
std::optional<quint64> largestPacketSize(_ArvCamera* camera);

} // namespace Host
