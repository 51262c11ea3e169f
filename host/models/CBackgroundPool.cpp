// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CBackgroundPool.h"

#include <QGlobalStatic>
#include <QThread>

#include <algorithm>

namespace Host {

// A low priority instead would free all cores, but also starve the work: next to two busy programs a thread that yields
// to everything gets some thousandths of a core, and only a privileged process can raise it again for the last frames.
CBackgroundPool::CBackgroundPool()
{
    setMaxThreadCount(std::max(1, QThread::idealThreadCount() - 1));
}

Q_GLOBAL_STATIC(CBackgroundPool, backgroundPool)

CBackgroundPool& CBackgroundPool::instance()
{
    return *backgroundPool();
}

} // namespace Host
