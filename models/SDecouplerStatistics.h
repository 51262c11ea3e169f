// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

namespace Plugin::Halvex {

/**
 * What became of the data handed to a decoupler since it was made.
 *
 * At every moment `received == emitted + dropped + cancelled + pending`, exactly. Empty data is not counted, only
 * what it cancels.
 */
struct SDecouplerStatistics
{
    quint64 received = 0; ///< Handed in; also after the shutdown.
    quint64 emitted = 0;  ///< Taken out by the worker to be emitted.
    quint64 dropped = 0;  ///< Overwritten by newer data, discarded by the shutdown, handed in after it, or emitted to a
                          ///< slot that threw.
    quint64 cancelled = 0; ///< Overwritten by empty data.
    quint64 pending = 0;   ///< Waits in the slot: 0 or 1.
};

} // namespace Plugin::Halvex
