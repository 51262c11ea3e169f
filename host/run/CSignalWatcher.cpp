// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CSignalWatcher.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace Host {

namespace {

constexpr std::array<int, 3> watched = {SIGINT, SIGTERM, SIGHUP};

// A handler may do next to nothing, but it may write to a pipe; the event loop reads the other end.
int pipeEnds[2] = {-1, -1};

void onSignal(int number)
{
    const int before = errno;
    const auto byte = static_cast<unsigned char>(number);
    // A full pipe holds signals enough, so nothing is lost if this one finds no room.
    const auto written = write(pipeEnds[1], &byte, 1);
    Q_UNUSED(written)
    errno = before;
}

int openPipe()
{
    Q_ASSERT(pipeEnds[0] < 0);
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        qFatal("no pipe for signals");
    return pipeEnds[0];
}

} // namespace

CSignalWatcher::CSignalWatcher()
    : m_notifier(openPipe(), QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &CSignalWatcher::read);
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = int(SA_RESTART | SA_RESETHAND);
    sigemptyset(&action.sa_mask);
    for (std::size_t i = 0; i < watched.size(); ++i) {
        sigaction(watched[i], nullptr, &m_previous[i]);
        // What the parent made this process ignore, it wants ignored: a shell does so for what runs in the background.
        if (m_previous[i].sa_handler != SIG_IGN)
            sigaction(watched[i], &action, nullptr);
    }
}

CSignalWatcher::~CSignalWatcher()
{
    for (std::size_t i = 0; i < watched.size(); ++i)
        sigaction(watched[i], &m_previous[i], nullptr);
    m_notifier.setEnabled(false);
    for (int& end : pipeEnds) {
        close(end);
        end = -1;
    }
}

void CSignalWatcher::read()
{
    unsigned char byte = 0;
    while (::read(pipeEnds[0], &byte, 1) == 1)
        Q_EMIT received(byte);
}

} // namespace Host
