// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

#include <optional>

struct _ArvStream;

namespace Host {

/// What a stream has counted since it was made. Nothing stands where that kind of stream counts nothing.
struct SPacketCounts
{
    std::optional<quint64> received;
    std::optional<quint64> missing;      ///< Of each frame, from its first gap on, unless they were sent again.
    std::optional<quint64> askedAgain;   ///< Asked for again.
    std::optional<quint64> sentAgain;    ///< Of these, came.
    std::optional<quint64> missedFrames; ///< Frames of which no packet came.
    std::optional<quint64> bytes;
};

SPacketCounts packetCounts(_ArvStream* stream);

} // namespace Host
