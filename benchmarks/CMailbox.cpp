// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CMailbox.h"

#include <utility>

CMailbox::CMailbox()
    : m_worker([this] { run(); })
{
}

CMailbox::~CMailbox()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isEnding = true;
    }
    m_wakeUp.notify_one();
    m_worker.join();
}

void CMailbox::push(CNodeDataPtr data)
{
    bool isOpen = false;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_slot.swap(data);
        isOpen = m_isOpen;
    }
    if (isOpen)
        m_wakeUp.notify_one();
}

void CMailbox::open()
{
    bool isFull = false;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isOpen = true;
        isFull = !m_slot.isNull();
    }
    if (isFull)
        m_wakeUp.notify_one();
}

void CMailbox::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_wakeUp.wait(lock, [this] { return m_isEnding || (m_isOpen && m_slot); });
        if (m_isEnding)
            return;
        const CNodeDataPtr data = std::exchange(m_slot, CNodeDataPtr());
        m_isOpen = false;
        lock.unlock();
        Q_EMIT taken(data);
        lock.lock();
    }
}
