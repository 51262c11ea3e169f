// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "tests/support/Allocations.h"

#include <QtGlobal>

#include <cstddef>

#include <malloc.h>

// Operator new and Qt's containers end in these, and a program's own malloc comes before the C library's. That one is
// reached by its second name. What asks for memory of an unusual alignment is not counted; nothing measured here does.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): it is the C library that named them
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t nmemb, std::size_t size);
void* __libc_realloc(void* ptr, std::size_t size);
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

namespace {

thread_local long t_allocations = 0;

} // namespace

extern "C" {

Q_DECL_EXPORT void* malloc(std::size_t size)
{
    ++t_allocations;
    return __libc_malloc(size);
}

Q_DECL_EXPORT void* calloc(std::size_t nmemb, std::size_t size)
{
    ++t_allocations;
    return __libc_calloc(nmemb, size);
}

Q_DECL_EXPORT void* realloc(void* ptr, std::size_t size)
{
    ++t_allocations;
    return __libc_realloc(ptr, size);
}
}

long allocations()
{
    return t_allocations;
}

double bytesInUse()
{
    const struct mallinfo2 heap = mallinfo2();
    return double(heap.uordblks) + double(heap.hblkhd);
}
