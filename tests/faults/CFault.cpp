// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "faults/CFault.h"

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

#include <link.h>

namespace {

thread_local EFault t_kind = EFault::Allocation;
thread_local long t_chancesLeft = 0; // none, if there is no fault to come
thread_local bool t_hasHappened = false;
std::atomic<long> s_blocks{0};

bool isDue(EFault kind)
{
    if (t_chancesLeft == 0 || kind != t_kind || --t_chancesLeft > 0)
        return false;
    t_hasHappened = true;
    return true;
}

/// Where the code of Qt's library lies.
struct SRange
{
    quintptr begin = 0;
    quintptr end = 0;
};

int readRange(dl_phdr_info* info, std::size_t, void* range)
{
    if (!std::strstr(info->dlpi_name, "libQt5Core"))
        return 0;
    for (int i = 0; i < info->dlpi_phnum; ++i) {
        const auto& segment = info->dlpi_phdr[i];
        if (segment.p_type != PT_LOAD || !(segment.p_flags & PF_X))
            continue;
        const quintptr begin = info->dlpi_addr + segment.p_vaddr;
        *static_cast<SRange*>(range) = {begin, begin + segment.p_memsz};
    }
    return 1;
}

SRange findQt()
{
    SRange range;
    dl_iterate_phdr(&readRange, &range);
    return range;
}

const SRange qt = findQt();

bool isInQt(const void* code)
{
    const auto address = reinterpret_cast<quintptr>(code);
    return address >= qt.begin && address < qt.end;
}

} // namespace

// NOLINTBEGIN(misc-new-delete-overloads): the other forms end in these
void* operator new(std::size_t size)
{
    if (!isInQt(__builtin_return_address(0)) && isDue(EFault::Allocation))
        throw std::bad_alloc();
    if (void* const block = std::malloc(size > 0 ? size : 1)) {
        ++s_blocks;
        return block;
    }
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept
{
    if (block)
        --s_blocks;
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    operator delete(block);
}
// NOLINTEND(misc-new-delete-overloads)

CFault::CFault(EFault kind, long chance)
{
    t_kind = kind;
    t_hasHappened = false;
    t_chancesLeft = chance;
}

CFault::~CFault()
{
    disarm();
}

bool CFault::hasHappened() const
{
    return t_hasHappened;
}

void CFault::disarm()
{
    t_chancesLeft = 0;
}

void CFault::chance(EFault kind)
{
    if (isDue(kind))
        throw SFaultThrown();
}

long CFault::blocks()
{
    return s_blocks;
}

CFault::CPause::CPause()
    : m_chancesLeft(std::exchange(t_chancesLeft, 0))
{
}

CFault::CPause::~CPause()
{
    t_chancesLeft = m_chancesLeft;
}
