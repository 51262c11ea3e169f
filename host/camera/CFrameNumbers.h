// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

#include <optional>

namespace Host {

/**
 * Finds out by the numbers of the frames that came how many did not, also where nobody else tells of them.
 *
 * \code
 * numbers.add(frame.frameNumber, incomplete + underruns);
 * missed = numbers.missed(incomplete + underruns);
 * \endcode
 *
 * A camera gives each frame the next number. One whose numbers never follow one another counts something else, and is
 * not believed. Where a number is not larger than the one before it the camera counts anew, as GigE Vision does after
 * 65535: of that gap nothing is known.
 *
 * Threads: one at a time.
 */
class CFrameNumbers
{
public:
    /// A complete frame of that number came. \a told: how many frames were told to be lost up to now, in any other way.
    void add(quint64 number, quint64 told);

    /// The next number has nothing to do with those before: the camera was away.
    void restart() { m_last.reset(); }

    /// How many of the numbers between those that came are missing beyond the frames that were \a told to be lost.
    quint64 missed(quint64 told) const;

private:
    std::optional<quint64> m_last;
    std::optional<quint64> m_toldBefore; // the first frame
    quint64 m_skipped = 0;
    bool m_isConsecutive = false; // at least once
};

} // namespace Host
