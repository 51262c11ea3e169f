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
        const QMutexLocker lock(&m_mutex);
        m_isEnding = true;
    }
    m_wakeUp.wakeOne();
    m_worker.join();
}

void CMailbox::push(CNodeDataPtr data)
{
    bool isOpen = false;
    {
        const QMutexLocker lock(&m_mutex);
        m_slot.swap(data);
        isOpen = m_isOpen;
    }
    if (isOpen)
        m_wakeUp.wakeOne();
}

void CMailbox::open()
{
    bool isFull = false;
    {
        const QMutexLocker lock(&m_mutex);
        m_isOpen = true;
        isFull = !m_slot.isNull();
    }
    if (isFull)
        m_wakeUp.wakeOne();
}

void CMailbox::run()
{
    QMutexLocker lock(&m_mutex);
    for (;;) {
        while (!m_isEnding && !(m_isOpen && m_slot))
            m_wakeUp.wait(&m_mutex);
        if (m_isEnding)
            return;
        const CNodeDataPtr data = std::exchange(m_slot, CNodeDataPtr());
        m_isOpen = false;
        lock.unlock();
        Q_EMIT taken(data);
        lock.relock();
    }
}
