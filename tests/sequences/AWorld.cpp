// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "sequences/AWorld.h"

#include <utility>

namespace Sequences {

int AWorld::run(const SOperation& operation)
{
    const int first = std::exchange(m_first, operation.number);
    const int node = std::exchange(m_nextNode, operation.number);
    const int connection = std::exchange(m_nextConnection, operation.number);
    onNumbersChanged(m_first);
    const int result = perform(operation);
    m_log.note({EEvent::Returned, false, 0, result, 0, 0, {}});
    m_first = first;
    m_nextNode = node;
    m_nextConnection = connection;
    onNumbersChanged(m_first);
    return result;
}

} // namespace Sequences
