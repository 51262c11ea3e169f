// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QThreadPool>

namespace Host {

/**
 * A thread for each core but one, which stays free for whoever delivers frames.
 *
 * For what may come late, such as previews: a thread that wakes up to deliver a frame finds a core that no work of this
 * pool keeps. On a machine whose cores are all busy with other programs the work gets its fair share, so that it ends.
 * A machine with one core has none to keep free: there is one thread then.
 *
 * Threads: as QThreadPool. Ownership: that of instance() belongs to the models' plugin, and ends its threads when the
 * plugin is unloaded.
 */
class CBackgroundPool : public QThreadPool
{
    Q_OBJECT

public:
    CBackgroundPool();

    static CBackgroundPool& instance();
};

} // namespace Host
