// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "sequences/CChildRunner.h"

#include "sequences/Shrink.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <system_error>

namespace Sequences {
namespace {

int objects()
{
    return CIdentity::alive() + CTestData::alive();
}

/// What the end of a process says; empty if it came to its end.
QString differenceOfEnd(int status)
{
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM)
        return "hung\n";
    if (WIFSIGNALED(status))
        return QString("crashed\nby signal %1\n").arg(WTERMSIG(status));
    if (WEXITSTATUS(status) != 0) // of a sanitizer
        return QString("crashed\nwith exit code %1\n").arg(WEXITSTATUS(status));
    return QString();
}

} // namespace

CChildRunner::CChildRunner(ELeaks leaks, CSideBySide::Fault fault, unsigned int seconds)
    : m_leaks(leaks)
    , m_fault(std::move(fault))
    , m_seconds(seconds)
{
}

SRandomRun CChildRunner::runRandomly(unsigned int seed, int steps)
{
    const QString difference =
        run([&] { return Sequences::runRandomly(seed, steps, m_fault, &m_record).difference; }, EErrors::Shown);
    const Sequence sequence = m_record.sequence();
    return {sequence, difference, sizeOf(sequence)};
}

QString CChildRunner::differenceOf(const Sequence& sequence, EErrors errors)
{
    return run([&] { return Sequences::differenceOf(sequence, m_fault); }, errors);
}

Sequence CChildRunner::shrunk(const Sequence& sequence, const QString& difference)
{
    const QString kind = difference.section('\n', 0, 0);
    return shrink(sequence, [&](const Sequence& shorter) {
        return differenceOf(shorter, EErrors::Silent).section('\n', 0, 0) == kind;
    });
}

QString CChildRunner::run(const std::function<QString()>& code, EErrors errors)
{
    m_record.clear();
    std::fflush(nullptr); // or the child would write it once more
    const pid_t child = fork();
    if (child == 0) {
        const rlimit noDump{};
        setrlimit(RLIMIT_CORE, &noDump);
        if (errors == EErrors::Silent)
            dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
        alarm(m_seconds);
        const int before = objects();
        const QString difference = code();
        const int left = objects() - before;
        m_record.setDifference(difference.isEmpty() && left != 0 ? QString("%1 objects left\n").arg(left) : difference);
        if (m_leaks == ELeaks::Sought)
            std::exit(0); // where the sanitizer asks
        std::_Exit(0);
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child)
        throw std::system_error(errno, std::generic_category(), "a process of its own");
    const QString end = differenceOfEnd(status);
    return end.isEmpty() ? m_record.difference() : end;
}

} // namespace Sequences
