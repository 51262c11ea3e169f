// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Random operations on a node service and its scenes, some of them in hooks of others:
//
//   sequences [steps] [seed]   a new service every 200 steps, each with the next seed; a fresh seed if none is given
//   sequences --bytes 0a1b…    that sequence
//
// Ends at the first thing that is not true, crash or hang: the sequence is shrunk, and printed as bytes that can be
// given, and in words. Each runs in a process of its own.

#include "support/FreshSeed.h"
#include "world/CSequence.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int stepsOfService = 200;
constexpr int servicesOfProcess = 20;
constexpr unsigned int longestSeconds = 120;

/// Runs \a code, which returns an exit code, in a process of its own. Returns whether it came to a good end.
template <typename Code>
bool runInChild(bool isSilent, const Code& code)
{
    std::fflush(nullptr); // or the child would write it once more
    const pid_t child = fork();
    if (child == 0) {
        const rlimit noDump{};
        setrlimit(RLIMIT_CORE, &noDump);
        if (isSilent && !std::freopen("/dev/null", "w", stderr))
            std::_Exit(2);
        alarm(longestSeconds);
        std::exit(code()); // with what the sanitizers do at the end
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child)
        qFatal("There is no process of its own.");
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

bool runBytes(const QByteArray& bytes, bool isSilent)
{
    return runInChild(isSilent, [&] {
        const QString wrong = CSequence::run(bytes);
        std::fprintf(stderr, "%s\n", wrong.isEmpty() ? "All is true." : qPrintable(wrong));
        return wrong.isEmpty() ? 0 : 1;
    });
}

int report(const QByteArray& bytes)
{
    const QByteArray shrunk = shrink(bytes, [](const QByteArray& shorter) { return !runBytes(shorter, true); });
    std::fprintf(stderr, "NOT TRUE:\n%s\n\nThis runs it again: sequences --bytes %s\n",
                 qPrintable(CSequence::textOf(shrunk)), shrunk.toHex().constData());
    runBytes(shrunk, false);
    return 1;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv); // for the timers of decouplers, which never tick
    qSetGlobalQHashSeed(0);
    if (argc > 2 && QByteArray(argv[1]) == "--bytes")
        return runBytes(QByteArray::fromHex(argv[2]), false) ? 0 : 1;

    const int steps = argc > 1 ? std::atoi(argv[1]) : 100000;
    const unsigned int first = argc > 2 ? unsigned(std::strtoul(argv[2], nullptr, 10)) : freshSeed();
    const int services = std::max(1, steps / stepsOfService);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {}); // of what is refused
    for (int done = 0; done < services; done += servicesOfProcess) {
        const int last = std::min(services, done + servicesOfProcess);
        const bool isGood = runInChild(true, [&] {
            for (int i = done; i < last; ++i) {
                if (!CSequence::run(CSequence::random(first + unsigned(i), stepsOfService)).isEmpty())
                    return 1;
            }
            return 0;
        });
        if (isGood)
            continue;
        for (int i = done; i < last; ++i) {
            const QByteArray bytes = CSequence::random(first + unsigned(i), stepsOfService);
            if (!runBytes(bytes, true))
                return std::fprintf(stderr, "seed %u: ", first + unsigned(i)), report(bytes);
        }
        std::fprintf(stderr, "seeds %u to %u together, but none alone\n", first + unsigned(done),
                     first + unsigned(last) - 1);
        return 1;
    }
    std::printf("%d steps, seeds %u to %u\n", services * stepsOfService, first, first + unsigned(services) - 1);
    return 0;
}
