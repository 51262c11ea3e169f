// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "support/StableIds.h"

#include <QRandomGenerator>
#include <QUuid>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <map>

namespace {

constexpr std::ptrdiff_t wordsOfAnId = 4;

quint32 s_operation = 0;

std::map<quint32, quint32>& madeByOperation()
{
    static std::map<quint32, quint32> made;
    return made;
}

// Spreads consecutive numbers, and never maps two to one.
quint32 spread(quint32 number)
{
    return number * 2654435761u;
}

// What an identifier is made of: all bits but some of the second and the third word.
void fill(quint32* words, std::ptrdiff_t count)
{
    std::fill_n(words, count, 0u);
    if (count != wordsOfAnId)
        return;
    const quint32 made = ++madeByOperation()[s_operation];
    words[1] = s_operation;
    words[2] = made << 8;
    words[3] = spread(s_operation + (made << 16));
}

} // namespace

// Both functions take the place of Qt's own, in the library too: a program's come before those of its libraries.

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
using HashValue = uint;

void QRandomGenerator::_fillRange(void* buffer, void* bufferEnd)
{
    auto* const words = static_cast<quint32*>(buffer);
    fill(words, static_cast<quint32*>(bufferEnd) - words);
}
#else
using HashValue = size_t;

quint64 QRandomGenerator::_fillRange(void* buffer, qptrdiff count)
{
    if (buffer != nullptr) // else one number is asked for, which no identifier is made of
        fill(static_cast<quint32*>(buffer), count);
    return 0;
}
#endif

// The spread number: it alone says in which order the scenes' tables have their entries.
HashValue qHash(const QUuid& id, HashValue seed) noexcept
{
    quint32 hash = 0;
    std::memcpy(&hash, id.data4 + 4, sizeof(hash));
    return hash ^ seed;
}

namespace StableIds {

void startOperation(int operation)
{
    s_operation = quint32(operation);
}

void restart()
{
    s_operation = 0;
    madeByOperation().clear();
}

} // namespace StableIds
