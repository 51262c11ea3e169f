// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "sequences/AGraph.h"
#include "sequences/CEventLog.h"

namespace Sequences {

/// A graph that operations are run on: gives numbers to what they make, and notes what they return.
class AWorld : public AGraph
{
public:
    explicit AWorld(CEventLog& log)
        : m_log(log)
    {
    }

    int run(const SOperation& operation) final;

protected:
    /// Does \a operation and returns its result.
    virtual int perform(const SOperation& operation) = 0;

    /// An operation begins, or one goes on after another, which a handler ran: the number of what it makes is \a first.
    virtual void onNumbersChanged(int first) { Q_UNUSED(first) }

    CEventLog& log() { return m_log; }
    int firstNumber() const { return m_first; }
    int takeNodeNumber() { return m_nextNode++; }
    int takeConnectionNumber() { return m_nextConnection++; }

private:
    CEventLog& m_log;
    int m_first = 0;
    int m_nextNode = 0;
    int m_nextConnection = 0;
};

} // namespace Sequences
