// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sources/CFrameClaims.h"

#include <QtGlobal>

#include <condition_variable>
#include <mutex>

namespace Host {

struct CFrameClaims::SState
{
    std::mutex mutex;
    std::condition_variable givenBack;
    int left = 0;
};

CFrameClaims::CFrameClaims(int most)
    : m_state(std::make_shared<SState>())
{
    Q_ASSERT(most >= 1);
    m_state->left = most;
}

std::shared_ptr<const void> CFrameClaims::take(std::chrono::milliseconds timeout) const
{
    std::unique_lock<std::mutex> lock(m_state->mutex);
    if (!m_state->givenBack.wait_for(lock, timeout, [this] { return m_state->left > 0; }))
        return nullptr;
    --m_state->left;
    return {m_state.get(), [state = m_state](const void*) {
                const std::lock_guard<std::mutex> guard(state->mutex);
                ++state->left;
                state->givenBack.notify_one();
            }};
}

} // namespace Host
