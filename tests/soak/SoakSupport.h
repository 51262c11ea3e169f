// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QElapsedTimer>

#include <malloc.h>

#include <cstdio>
#include <cstdlib>

// What long runs look at. The first that is not true ends the process.

inline void check(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "soak: %s\n", what);
    std::_Exit(1);
}

/// Does \a work, which is to bring the condition about, until it is met; half a minute at most.
template <typename Condition, typename Work>
void workUntil(const Condition& isMet, const char* otherwise, const Work& work)
{
    QElapsedTimer clock;
    clock.start();
    while (!isMet()) {
        check(clock.elapsed() < 30000, otherwise);
        work();
    }
}

inline std::size_t memoryInUse()
{
    return mallinfo2().uordblks;
}

/// Whether the allocator's figures are of this program: a sanitizer has an allocator of its own.
inline bool isMemoryMeasured()
{
    const std::size_t before = memoryInUse();
    void* const volatile some = std::malloc(10000); // volatile, or the compiler leaves it out
    const bool isMeasured = memoryInUse() >= before + 10000;
    std::free(some);
    return isMeasured;
}

/// Frames under way and Qt's own caches vary; a leak of one frame or node per change would be a hundred times as much.
inline void checkMemoryIsFlat(std::size_t settled)
{
    if (isMemoryMeasured())
        check(memoryInUse() < settled + std::size_t{256} * 1024, "the memory in use has grown");
}
