// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/CGrabThread.h"

#include <Halvex/models/CNodeDataEntry.h>

#include <QMutex>

#include <atomic>

namespace Host {

/**
 * Where a grab thread hands its frames to: they are counted, the newest one is kept for who wants to look at it, and
 * all go into the graph.
 *
 * Threads: take() in the grab thread, the others in any.
 */
class CFrameFeed
{
public:
    explicit CFrameFeed(const Plugin::Halvex::CNodeDataEntry& entry);

    void take(const CGrabThread::SFrame& frame);

    quint64 frames() const { return m_frames; }

    /// Null before the first. It keeps a buffer of the camera, one at a time.
    Veltra::CGrabResultPtr newest() const;

private:
    const Plugin::Halvex::CNodeDataEntry m_entry;
    std::atomic<quint64> m_frames{0}; // a number by itself, any order would do: the newest frame is under the mutex
    mutable QMutex m_mutex;
    Veltra::CGrabResultPtr m_newest; // guarded by m_mutex
};

} // namespace Host
