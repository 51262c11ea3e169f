// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/CPacketUnderruns.h"

#include <algorithm>

namespace Host {

CPacketUnderruns::CPacketUnderruns(quint64 packetsPerFrame)
    : m_packetsPerFrame(packetsPerFrame)
{
    Q_ASSERT(packetsPerFrame > 0);
}

void CPacketUnderruns::add(quint64 number, bool isComplete, quint64 packets)
{
    // A smaller number: the camera counts anew, and nothing is known of that gap.
    const quint64 skipped = m_last && number > *m_last ? number - *m_last - 1 : 0;
    m_skipped += skipped;
    // A complete one may have had its first half sent again.
    if (!isComplete || skipped > 0)
        ++m_maybeHalf;
    m_last = number;
    m_packets = packets;
    m_frames = framesByNumbers(packets);
}

quint64 CPacketUnderruns::frames(quint64 packets) const
{
    return m_frames + (packets - m_packets) / m_packetsPerFrame;
}

quint64 CPacketUnderruns::framesByNumbers(quint64 packets) const
{
    const quint64 most = packets / m_packetsPerFrame;
    const quint64 least = most - std::min(most, m_maybeHalf);
    return std::clamp(m_skipped, least, most);
}

} // namespace Host
