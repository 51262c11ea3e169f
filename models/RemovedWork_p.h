// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

class QThreadPool;

namespace Plugin::Halvex {

/// Counts the work in thread pools whose models are gone, so that somebody can wait for its end. For any thread.
namespace RemovedWork {

void begin(int count);
void end();

/// Whether there is none any more, within so many milliseconds. A thread that did the work may still be running code of
/// this library then: see waitForThreads().
bool wait(unsigned long milliseconds);

/// Notes that the threads of \a pool run code of this library. It may be destroyed at any time but during
/// waitForThreads().
void addPool(QThreadPool& pool);

/// Waits until the threads of all pools that were added are back in Qt's code, at most so many milliseconds: other work
/// in the pools is waited for as well.
void waitForThreads(unsigned long milliseconds);

} // namespace RemovedWork
} // namespace Plugin::Halvex
