// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

/// Where something can go wrong.
enum class EFault
{
    Allocation, ///< operator new
    Converter,
    SetInData
};

/**
 * One fault of a kind, which happens at the Nth chance and not again. One at a time, in the thread that arms it.
 *
 * A program that links this has an operator new that fails by it and counts what is not deleted again. Qt's containers
 * and texts do not allocate through it, nor do the insides of Qt's own library count as chances: much of that is code
 * that Qt declares to throw nothing, where an exception ends the process whoever called it.
 */
class CFault
{
public:
    CFault(EFault kind, long chance);
    ~CFault();
    Q_DISABLE_COPY(CFault)

    bool hasHappened() const;

    /// It happens no more, if it has not happened.
    static void disarm();

    /// A chance for a fault of \a kind: throws if it is the one.
    static void chance(EFault kind);

    /// How many blocks of operator new there are in the process.
    static long blocks();

    /// While it lives, nothing is a chance: the test itself is at work.
    class CPause
    {
    public:
        CPause();
        ~CPause();
        Q_DISABLE_COPY(CPause)

    private:
        long m_chancesLeft;
    };
};

/// What every fault but a failed allocation throws.
struct SFaultThrown
{
};
