// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "sequences/CSharedRecord.h"

#include <sys/mman.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <new>

namespace Sequences {
namespace {

constexpr int step = -1; // where that of a handler has its signal

using Numbers = std::vector<int>;

void write(Numbers& numbers, int number)
{
    numbers.push_back(number);
}

void write(Numbers& numbers, const SElement& element);

template <typename T>
void write(Numbers& numbers, const std::vector<T>& list)
{
    write(numbers, int(list.size()));
    for (const T& element : list)
        write(numbers, element);
}

void write(Numbers& numbers, const SElement& element)
{
    write(numbers, element.label);
    write(numbers, element.kind);
    write(numbers, element.sources);
    write(numbers, element.feeds);
}

void write(Numbers& numbers, const SOperation& operation)
{
    write(numbers, int(operation.kind));
    write(numbers, operation.number);
    numbers.insert(numbers.end(), operation.arguments.begin(), operation.arguments.end());
    write(numbers, operation.document);
}

template <typename Value>
void read(const int*& next, Value& value)
{
    value = Value(*next++);
}

void read(const int*& next, SElement& element);

template <typename T>
void read(const int*& next, std::vector<T>& list)
{
    list.resize(std::size_t(*next++));
    for (T& element : list)
        read(next, element);
}

void read(const int*& next, SElement& element)
{
    read(next, element.label);
    read(next, element.kind);
    read(next, element.sources);
    read(next, element.feeds);
}

void read(const int*& next, SOperation& operation)
{
    read(next, operation.kind);
    read(next, operation.number);
    for (int& argument : operation.arguments)
        read(next, argument);
    read(next, operation.document);
}

} // namespace

struct CSharedRecord::SMemory
{
    // Set when the numbers are there: a process may end anywhere.
    std::atomic<std::size_t> size{0};
    std::array<char, 65536> difference{};
    std::array<int, 1 << 20> numbers{}; // an operation takes ten to a hundred
};

CSharedRecord::CSharedRecord()
{
    void* memory = mmap(nullptr, sizeof(SMemory), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        throw std::bad_alloc();
    m_memory = new (memory) SMemory;
}

CSharedRecord::~CSharedRecord()
{
    munmap(m_memory, sizeof(SMemory));
}

void CSharedRecord::clear()
{
    m_memory->size = 0;
    m_memory->difference.front() = '\0';
}

void CSharedRecord::append(const SOperation& operation)
{
    Numbers numbers{step};
    write(numbers, operation);
    append(numbers);
}

void CSharedRecord::append(const SNested& nested)
{
    Numbers numbers{int(nested.call.signal), nested.call.isLate ? 1 : 0, nested.call.count};
    write(numbers, nested.operation);
    append(numbers);
}

void CSharedRecord::append(const Numbers& numbers)
{
    const std::size_t size = m_memory->size;
    if (numbers.size() > m_memory->numbers.size() - size)
        throw std::bad_alloc();
    std::copy(numbers.begin(), numbers.end(), m_memory->numbers.begin() + size);
    m_memory->size = size + numbers.size();
}

Sequence CSharedRecord::sequence() const
{
    Sequence sequence;
    const int* next = m_memory->numbers.data();
    const int* const end = next + m_memory->size;
    while (next != end) {
        if (*next == step) {
            sequence.emplace_back();
            read(++next, sequence.back().operation);
            continue;
        }
        std::vector<SNested>& nested = sequence.back().nested;
        nested.emplace_back();
        read(next, nested.back().call.signal);
        read(next, nested.back().call.isLate);
        read(next, nested.back().call.count);
        read(next, nested.back().operation);
    }
    return sequence;
}

void CSharedRecord::setDifference(const QString& difference)
{
    qstrncpy(m_memory->difference.data(), difference.toUtf8().constData(), uint(m_memory->difference.size()));
}

QString CSharedRecord::difference() const
{
    return QString::fromUtf8(m_memory->difference.data());
}

} // namespace Sequences
