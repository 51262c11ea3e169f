// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "sequences/CSharedRecord.h"
#include "sequences/RandomSequence.h"

#include <functional>

namespace Sequences {

/**
 * Runs each sequence in a process of its own, so that a crash or a hang ends only that: these are differences like
 * others, whose first line is "crashed" or "hung". What a sanitizer reports is a crash.
 */
class CChildRunner
{
public:
    enum class EErrors
    {
        Shown, ///< What the process writes to its standard error.
        Silent
    };

    /// Whether the leak sanitizer is asked at the end. Only a process with a single thread may: what another thread
    /// holds, which the new process lacks, would count as leaked.
    enum class ELeaks
    {
        Sought,
        Ignored
    };

    /// Who takes longer than \a seconds hangs.
    explicit CChildRunner(ELeaks leaks, CSideBySide::Fault fault = {}, unsigned int seconds = 10);

    SRandomRun runRandomly(unsigned int seed, int steps);
    QString differenceOf(const Sequence& sequence, EErrors errors);

    /// What of \a sequence is enough for a difference of the same kind as \a difference.
    Sequence shrunk(const Sequence& sequence, const QString& difference);

private:
    QString run(const std::function<QString()>& code, EErrors errors);

    ELeaks m_leaks;
    CSideBySide::Fault m_fault;
    unsigned int m_seconds;
    CSharedRecord m_record;
};

} // namespace Sequences
