// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "testing/SLeftovers_p.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QStringList>
#include <QThread>

#include <algorithm>

#ifdef HALVEX_HAS_MALLINFO2
#include <malloc.h>
#endif

namespace Plugin::Halvex::Testing {

namespace {

// What grows less is a cache, or an allocator's own.
constexpr qint64 leastBytesEach = 16;
constexpr qint64 leastBytes = 8192;

qint64 entriesOf(const QString& folder)
{
    const QDir dir(folder);
    return dir.exists() ? qint64(dir.entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System).size()) : -1;
}

qint64 heldBytes()
{
#ifdef HALVEX_HAS_MALLINFO2
    const auto info = mallinfo2();
    return qint64(info.uordblks) + qint64(info.hblkhd);
#else
    return -1;
#endif
}

// Threads that were told to end may still be on their way.
void waitForThreads(qint64 count)
{
    const QDeadlineTimer deadline(500);
    while (SLeftovers::now().threads > count && !deadline.hasExpired())
        QThread::msleep(1);
}

/// What there is more of behind \a work than before.
SLeftovers leftBy(const std::function<void()>& work)
{
    const SLeftovers before = SLeftovers::now();
    work();
    waitForThreads(before.threads);
    const SLeftovers now = SLeftovers::now();
    return {now.threads - before.threads, now.files - before.files, now.bytes - before.bytes};
}

} // namespace

SLeftovers SLeftovers::now()
{
    return {entriesOf(QStringLiteral("/proc/self/task")), entriesOf(QStringLiteral("/proc/self/fd")), heldBytes()};
}

QString leftBehindBy(int count, const std::function<void()>& work)
{
    work();
    const SLeftovers first = leftBy(work);
    const SLeftovers second = leftBy(work);
    // What only one of them left is a cache that has grown.
    const SLeftovers least{std::min(first.threads, second.threads), std::min(first.files, second.files),
                           std::min(first.bytes, second.bytes)};
    QStringList left;
    if (least.threads > 0)
        left << QStringLiteral("threads");
    if (least.files > 0)
        left << QStringLiteral("open files");
    // A thread brings memory with it.
    if (least.threads <= 0 && least.bytes >= std::max(leastBytes, count * leastBytesEach))
        left << QStringLiteral("memory");
    return left.join(QStringLiteral(" and "));
}

} // namespace Plugin::Halvex::Testing
