// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/PacketCounts.h"

#include <arv.h>

#include <cstring>

namespace Host {

namespace {

std::optional<quint64> count(ArvStream* stream, const char* name)
{
    for (guint i = 0; i < arv_stream_get_n_infos(stream); ++i) {
        if (std::strcmp(arv_stream_get_info_name(stream, i), name) == 0)
            return arv_stream_get_info_uint64(stream, i);
    }
    return {};
}

} // namespace

SPacketCounts packetCounts(ArvStream* stream)
{
    SPacketCounts counts;
    counts.received = count(stream, "n_received_packets");
    counts.missing = count(stream, "n_missing_packets");
    counts.askedAgain = count(stream, "n_resend_requests");
    counts.sentAgain = count(stream, "n_resent_packets");
    counts.missedFrames = count(stream, "n_missing_frames");
    counts.bytes = count(stream, "n_transferred_bytes");
    return counts;
}

} // namespace Host
