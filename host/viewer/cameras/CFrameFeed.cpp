// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CFrameFeed.h"

#include "host/models/CGrabResultData.h"

#include <QMutexLocker>

#include <utility>

namespace Host {

CFrameFeed::CFrameFeed(const Plugin::Halvex::CNodeDataEntry& entry)
    : m_entry(entry)
{
}

void CFrameFeed::take(const CGrabThread::SFrame& frame)
{
    ++m_frames;
    {
        Veltra::CGrabResultPtr newest = frame.result;
        const QMutexLocker lock(&m_mutex);
        std::swap(m_newest, newest);
    }
    const SFrameInfo info{frame.result->frameNumber, frame.grabbed, frame.result->timestampNs, frame.claim,
                          frame.origin};
    m_entry.setData(QSharedPointer<CGrabResultData>::create(frame.result, info));
}

Veltra::CGrabResultPtr CFrameFeed::newest() const
{
    const QMutexLocker lock(&m_mutex);
    return m_newest;
}

} // namespace Host
