// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/support/CDeferredQueue_p.h"

#include "graph/support/Reports_p.h"

namespace Plugin::Halvex {

CDeferredQueue::CDeferredQueue()
    : m_state(std::make_shared<SState>())
{
}

CDeferredQueue::~CDeferredQueue()
{
    leaveWorkUnderWay();
}

void CDeferredQueue::leaveWorkUnderWay()
{
    const auto left = std::exchange(m_state, std::make_shared<SState>());
    left->isLeft = true;
    m_state->actions.swap(left->actions);
}

void CDeferredQueue::keepFirst(std::exception_ptr& first)
{
    if (!first)
        first = std::current_exception();
    else
        swallowExceptions(lcGraph, "What is done after an exception", [] { throw; });
}

void CDeferredQueue::runWaiting(SState& state, std::exception_ptr& first)
{
    ++state.depth; // what an action does leaves the queue to this loop
    while (!state.actions.empty()) {
        const std::function<void()> action = std::move(state.actions.front());
        state.actions.pop_front();
        attempt(action, first);
    }
    --state.depth;
}

} // namespace Plugin::Halvex
