// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <array>

#include <csignal>

namespace Host {

/**
 * Brings SIGINT, SIGTERM and SIGHUP into the event loop, from construction to destruction.
 *
 * Each is caught once: the second one of its kind does what it does by default, so that a program that does not
 * end can be ended.
 *
 * Threads: one watcher at a time in a process, in a thread with an event loop.
 */
class CSignalWatcher : public QObject
{
    Q_OBJECT

public:
    CSignalWatcher();
    ~CSignalWatcher() override;

Q_SIGNALS:
    /// \a number is SIGINT, SIGTERM or SIGHUP. Emitted from the event loop.
    void received(int number);

private:
    void read();

    QSocketNotifier m_notifier;
    std::array<struct sigaction, 3> m_previous{};
};

} // namespace Host
