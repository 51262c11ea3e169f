// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <utility>

namespace Plugin::Halvex {

/**
 * What waits: actions that are done when the work under way has ended, first come, first served.
 *
 * \code
 * m_queue.run([this] { Q_EMIT nodeCreated(node); });  // a handler's defer() waits for the end of this
 * m_queue.defer([this] { deleteSomething(); });       // at once, if nothing is under way
 * \endcode
 *
 * Work may nest. Actions run when the outermost work has ended, one after the other; what they defer joins the end of
 * the queue, so that the stack stays flat however long the queue is.
 *
 * Exceptions pass through, from the outermost work when everything that waited is done: of several the first; the
 * others are reported to "halvex.graph".
 *
 * The owner may be destroyed by what it runs. run() and defer() then return false, and the caller must leave the owner
 * alone.
 *
 * Threads: the owner's.
 */
class CDeferredQueue
{
public:
    CDeferredQueue();

    /// Drops what waits.
    ~CDeferredQueue();
    Q_DISABLE_COPY(CDeferredQueue)

    /// Does \a work now and, if it is the outermost, what waits after it. False once the owner is gone.
    template <typename Work>
    bool run(const Work& work)
    {
        const std::shared_ptr<SState> state = m_state;
        std::exception_ptr exception;
        ++state->depth;
        attempt(work, exception);
        --state->depth;
        if (state->depth == 0 && !state->actions.empty())
            runWaiting(*state, exception);
        if (exception)
            std::rethrow_exception(exception);
        return !state->isLeft;
    }

    /// Does \a action as soon as no work is under way: now, or after what waits already. False once the owner is gone.
    template <typename Action>
    bool defer(Action action)
    {
        if (!isBusy())
            return run(action);
        m_state->actions.push_back(std::move(action));
        return run([] {});
    }

    /// For the owner's destructor. Work that is under way ends as if the owner was gone already; what waits is kept,
    /// and is done by the next run().
    void leaveWorkUnderWay();

    /// Whether an action that is deferred now would have to wait.
    bool isBusy() const { return m_state->depth > 0 || !m_state->actions.empty(); }

    /// How deep work is nested.
    unsigned int depth() const { return m_state->depth; }

    /// How many actions wait.
    std::size_t size() const { return m_state->actions.size(); }

private:
    struct SState
    {
        std::deque<std::function<void()>> actions;
        unsigned int depth = 0;
        bool isLeft = false;
    };

    template <typename Work>
    static void attempt(const Work& work, std::exception_ptr& first)
    {
        try {
            work();
        } catch (...) {
            keepFirst(first);
        }
    }
    static void keepFirst(std::exception_ptr& first);
    static void runWaiting(SState& state, std::exception_ptr& first);

    std::shared_ptr<SState> m_state; // shared with work under way, which may outlive the owner
};

} // namespace Plugin::Halvex
