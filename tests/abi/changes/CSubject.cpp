// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CSubject.h"

#include <QRunnable>

#include <vector>

namespace Plugin::Halvex {

// No program sees it.
struct CSubject::SHidden
{
#ifdef CHANGED_HIDDEN
    double newest = 0.0;
#endif
    int value = 0;
};

// Nor these, though they refer to the public class again.
class CSubject::CQueue : public std::enable_shared_from_this<CQueue>
{
public:
    class CJob;

    void add(const CSubject& subject);

    std::vector<std::unique_ptr<CJob>> jobs;
};

class CSubject::CQueue::CJob : public QRunnable
{
public:
    void run() override { queue->jobs.clear(); }

    std::shared_ptr<CQueue> queue;
    Work work;
#ifdef CHANGED_JOB
    double newest = 0.0;
#endif
};

void CSubject::CQueue::add(const CSubject& subject)
{
    jobs.push_back(std::make_unique<CJob>());
    jobs.back()->queue = shared_from_this();
    jobs.back()->work = subject.makeWork();
}

CSubject::CSubject()
    : m_hidden(new SHidden)
    , m_queue(std::make_shared<CQueue>())
{
    m_queue->add(*this);
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

CSubject::Work CSubject::makeWork() const
{
    return {};
}

#ifdef CHANGED_CLASS_ADDED
int CNewest::count = 0;

CNewest::~CNewest() = default;
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

#ifdef CHANGED_RESULT
long CSubject::limit() const
#else
int CSubject::limit() const
#endif
{
    return m_rate + 1; // abidw does not read one of two functions that are the same code
}

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

// Here, and not in a source of its own: see halvex_whole in ../CMakeLists.txt.
#ifndef __clang_analyzer__ // what moc writes is not checked
#include "moc_CSubject.cpp"
#endif
