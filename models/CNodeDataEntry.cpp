// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/CNodeDataEntry.h>

#include <Halvex/models/CNodeDataFlowProxy.h>

#include <QMetaObject>
#include <QMutex>
#include <QMutexLocker>

#include <utility>

namespace Plugin::Halvex {

/// What the entries of one source share: the way to its proxy, as long as there is one.
class CNodeDataEntry::CTarget
{
public:
    explicit CTarget(CNodeDataFlowProxy& proxy)
        : m_proxy(&proxy)
    {
    }

    bool send(const CNodeDataPtr& data)
    {
        const QMutexLocker lock(&m_mutex);
        if (!m_proxy)
            return false;
        // The call holds a copy, so that the last pointer, and with it foreign code, never goes under the mutex.
        QMetaObject::invokeMethod(
            m_proxy, [proxy = m_proxy, copy = data]() mutable { proxy->setData(std::move(copy)); },
            Qt::QueuedConnection);
        return true;
    }

    void close()
    {
        const QMutexLocker lock(&m_mutex);
        m_proxy = nullptr;
    }

private:
    QMutex m_mutex; // held while Qt puts the call into the thread's queue, which the proxy must not leave meanwhile
    CNodeDataFlowProxy* m_proxy;
};

CNodeDataEntry::CNodeDataEntry(CNodeDataFlowProxy& proxy)
    : m_target(std::make_shared<CTarget>(proxy))
{
}

bool CNodeDataEntry::setData(const CNodeDataPtr& data) const
{
    return m_target && m_target->send(data);
}

void CNodeDataEntry::close()
{
    m_target->close();
}

} // namespace Plugin::Halvex
