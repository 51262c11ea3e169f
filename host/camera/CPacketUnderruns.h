// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

#include <optional>

namespace Host {

/**
 * Makes frames of the packets for which a network camera's stream had no buffer.
 *
 * \code
 * CPacketUnderruns underruns(packetsPerFrame);
 * underruns.add(buffer.frameNumber, buffer.isComplete, packetsWithoutBuffer); // for each that came
 * lost = underruns.frames(packetsWithoutBuffer);
 * \endcode
 *
 * A frame that got a buffer halfway came, but the packets of its first half are among those without one. So the packets
 * alone tell too many frames, by less than one for each that may have come so. The numbers that are missing between
 * frames tell how many it were; only behind the last frame the packets alone do.
 *
 * Threads: one at a time.
 */
class CPacketUnderruns
{
public:
    explicit CPacketUnderruns(quint64 packetsPerFrame);

    /// A frame of that number came, whole or not; \a packets have found no buffer up to now.
    void add(quint64 number, bool isComplete, quint64 packets);

    /// How many found no buffer with any of their packets, if \a packets found none up to now.
    quint64 frames(quint64 packets) const;

private:
    quint64 framesByNumbers(quint64 packets) const;

    const quint64 m_packetsPerFrame;
    std::optional<quint64> m_last;
    quint64 m_skipped = 0;
    quint64 m_maybeHalf = 0; // frames that may have got a buffer halfway
    // When the last frame came.
    quint64 m_packets = 0;
    quint64 m_frames = 0;
};

} // namespace Host
