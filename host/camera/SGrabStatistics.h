// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

namespace Host {

/// What became of the frames of one acquisition: grabbed == complete + incomplete, always.
struct SGrabStatistics
{
    quint64 grabbed = 0;    ///< Frames that came out of the stream.
    quint64 complete = 0;   ///< Of these, handed on.
    quint64 incomplete = 0; ///< Of these, skipped because a part of them was missing.
    quint64 underruns = 0;  ///< Frames the camera sent while no buffer was free; never grabbed.
    quint64 missed = 0;     ///< Frames that the camera counted and that came in none of these ways, see CFrameNumbers.
};

} // namespace Host
