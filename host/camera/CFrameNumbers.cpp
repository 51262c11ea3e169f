// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/CFrameNumbers.h"

#include <algorithm>

namespace Host {

void CFrameNumbers::add(quint64 number, quint64 told)
{
    if (!m_toldBefore)
        m_toldBefore = told;
    if (m_last && number > *m_last) {
        const quint64 skipped = number - *m_last - 1;
        m_skipped += skipped;
        m_isConsecutive = m_isConsecutive || skipped == 0;
    }
    m_last = number;
}

quint64 CFrameNumbers::missed(quint64 told) const
{
    const quint64 known = told - m_toldBefore.value_or(told);
    return m_isConsecutive ? m_skipped - std::min(m_skipped, known) : 0;
}

} // namespace Host
