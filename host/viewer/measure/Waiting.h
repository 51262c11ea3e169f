// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QEventLoop>
#include <QTimer>

#include <chrono>

namespace Host {

/// Runs the event loop for that long.
inline void runFor(std::chrono::milliseconds time)
{
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Runs the event loop until \a condition is true, for \a longest at most. Returns whether it became true.
template <typename Condition>
bool waitFor(const Condition& condition, std::chrono::milliseconds longest)
{
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (condition())
            loop.quit();
    });
    look.start(5);
    QTimer::singleShot(longest, &loop, &QEventLoop::quit);
    loop.exec();
    return condition();
}

} // namespace Host
