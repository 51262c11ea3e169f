// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "sequences/StableIds.h"

#include <QUuid>

#include <map>

namespace {

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

} // namespace

// Takes the place of Qt's own, in the library too. A program's functions come before those of its libraries.
QUuid QUuid::createUuid()
{
    const quint32 count = ++madeByOperation()[s_operation];
    const quint32 first = spread(s_operation + (count << 16));
    return QUuid(first, ushort(s_operation), 0x4000, 0x80, uchar(s_operation >> 16), uchar(s_operation >> 24),
                 uchar(count >> 24), uchar(count >> 16), uchar(count >> 8), uchar(count), 0);
}

namespace Sequences {

void startIdsOf(int operation)
{
    s_operation = quint32(operation);
}

void forgetIds()
{
    madeByOperation().clear();
}

} // namespace Sequences
