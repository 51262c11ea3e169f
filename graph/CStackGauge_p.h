// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

namespace Plugin {
namespace Halvex {

/**
 * One delivery that is under way, on its thread's stack: tells whether the stack has room for it.
 *
 * A walk is as deep as its chain is long. The last eighth of the stack (at least 64 KiB, at most half) is kept free for
 * what models and message handlers need at the deepest point. Of a stack without a limit, 256 MiB are used. Where the
 * system does not tell how large a stack is, mostUnknown deliveries may be nested.
 */
class CStackGauge
{
public:
    static constexpr int mostUnknown = 500;

    CStackGauge()
        : m_stack(s_stack)
    {
        ++m_stack.deliveries;
    }
    ~CStackGauge() { --m_stack.deliveries; }
    Q_DISABLE_COPY(CStackGauge)

    bool hasRoom() const
    {
        const quintptr here = position();
        return Q_LIKELY(here >= m_stack.lowest && m_stack.deliveries <= m_stack.most) || hasRoomOnceMeasured(here);
    }

private:
    struct SStack // all zero at first
    {
        quintptr lowest; ///< Where a delivery may begin; a stack grows downwards.
        int most;        ///< So many deliveries may be nested; 0 before the stack was measured.
        int deliveries;
    };

    bool hasRoomOnceMeasured(quintptr here) const;
    static void measure(SStack& stack);

    quintptr position() const
    {
#ifdef __GNUC__
        return reinterpret_cast<quintptr>(__builtin_frame_address(0)); // a sanitizer may keep locals elsewhere
#else
        return reinterpret_cast<quintptr>(this);
#endif
    }

    static inline thread_local SStack s_stack{};

    SStack& m_stack;
};

} // namespace Halvex
} // namespace Plugin
