// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

namespace Plugin {
namespace Halvex {

template <typename T>
class CWeakLink;

/**
 * Internal: hosts use QPointer.
 *
 * The place in an object where the links that point at it are strung together, so that all of them become null at
 * once, at a cost that does not depend on how many other objects there are.
 *
 * Why not QPointer: it becomes null only when the QObject part is destroyed, after the foreign code in a model's
 * destructor has run, and it counts atomically, which a walk would pay for at every hop.
 *
 * Threads: an anchor and its links belong to one thread.
 */
template <typename T>
class CWeakAnchor
{
public:
    CWeakAnchor() = default;
    ~CWeakAnchor() { release(); }
    Q_DISABLE_COPY(CWeakAnchor)

    bool hasLinks() const { return m_first != nullptr; }

    /// Makes every link null.
    void release() noexcept
    {
        while (m_first)
            m_first->onTargetGone();
    }

private:
    friend class CWeakLink<T>;
    CWeakLink<T>* m_first = nullptr;
};

/**
 * Internal, as CWeakAnchor.
 *
 * A pointer that becomes null when its object releases its anchor.
 *
 * The pointer may also be overwritten from outside through object(), which does not move the link: as long as
 * object() and target() differ, nothing is known about the object written there.
 */
template <typename T>
class CWeakLink
{
public:
    CWeakLink() = default;
    CWeakLink(T* object, CWeakAnchor<T>& anchor) { link(object, anchor); }
    ~CWeakLink() { unlink(); }
    Q_DISABLE_COPY(CWeakLink)

    T* get() const { return m_object; }
    T*& object() { return m_object; }

    /// The object whose anchor holds the link; null if there is none.
    T* target() const { return m_target; }

    void link(T* object, CWeakAnchor<T>& anchor)
    {
        unlink();
        m_object = m_target = object;
        m_next = anchor.m_first;
        m_slot = &anchor.m_first;
        if (m_next)
            m_next->m_slot = &m_next;
        anchor.m_first = this;
    }

    void unlink() noexcept
    {
        if (m_target) {
            *m_slot = m_next;
            if (m_next)
                m_next->m_slot = m_slot;
        }
        m_object = m_target = nullptr;
    }

private:
    friend class CWeakAnchor<T>;

    void onTargetGone() noexcept
    {
        T* const written = m_object == m_target ? nullptr : m_object;
        unlink();
        m_object = written;
    }

    T* m_object = nullptr;
    T* m_target = nullptr;
    CWeakLink* m_next = nullptr;
    CWeakLink** m_slot = nullptr; // what points at this link: the anchor or the link before
};

} // namespace Halvex
} // namespace Plugin
