// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cstddef>
#include <new>

/// A base for what tests destroy in the middle of its operations. Its memory is overwritten with \a byte before it is
/// freed: what the library uses of it afterwards is no longer what it was, and a test fails without a sanitizer, too.
template <unsigned char byte>
class COverwritten
{
public:
    // Neither is put in line: the compiler would take what only one of them does for a mistake.
    Q_NEVER_INLINE static void* operator new(std::size_t size) { return ::operator new(size); }
    Q_NEVER_INLINE static void operator delete(void* memory, std::size_t size)
    {
        std::fill_n(static_cast<volatile unsigned char*>(memory), size, byte); // volatile, so that it is not left out
        ::operator delete(memory);
    }

protected:
    COverwritten() = default;
    ~COverwritten() = default;
    Q_DISABLE_COPY(COverwritten)
};
