// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QThreadPool>

namespace Host {

/**
 * A thread for each core that works only while nothing else of the machine wants that core.
 *
 * For what may come late, such as previews: a thread that wakes up to deliver a frame has a core at once, however much
 * is worked on here. On a machine whose cores are all busy with other programs, next to nothing is done here.
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
