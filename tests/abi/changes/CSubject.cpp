// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CSubject.h"

namespace Plugin::Halvex {

// No program sees it.
struct CSubject::SHidden
{
#ifdef CHANGED_HIDDEN
    double newest = 0.0;
#endif
    int value = 0;
};

CSubject::CSubject()
    : m_hidden(new SHidden)
{
}

CSubject::~CSubject()
{
    delete m_hidden;
}

#if defined(CHANGED_VTABLE) || defined(CHANGED_VIRTUAL_ADDED)
int CSubject::newest()
{
    return 0;
}
#endif

#ifdef CHANGED_PRIVATE
int CSubject::newestStep() const
#else
int CSubject::step() const
#endif
{
    return m_step + m_hidden->value;
}

int CSubject::first()
{
    return m_rate;
}

int CSubject::second()
{
    return m_rate;
}

#ifndef CHANGED_REMOVED
int CSubject::rate() const
{
    return m_rate;
}
#endif

#ifdef CHANGED_ADDED
int CSubject::newestRate() const
{
    return m_rate;
}
#endif

#ifdef CHANGED_ARGUMENT
void CSubject::setRate(long rate)
#else
void CSubject::setRate(int rate)
#endif
{
    m_rate = int(rate);
    Q_EMIT rateChanged(m_rate);
}

} // namespace Plugin::Halvex
