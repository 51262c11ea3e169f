// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "sequences/CActual.h"

#include <random>

namespace Sequences {

/// Chooses operations that fit what is there.
class CRandomOperations
{
public:
    explicit CRandomOperations(unsigned int seed)
        : m_random(seed)
    {
    }

    /// Whether it is time for something that happens once in \a times.
    bool once(int times) { return upTo(times - 1) == 0; }

    SOperation next(const SPresent& present);

private:
    int upTo(int most) { return int(m_random() % unsigned(most + 1)); }
    template <typename List>
    typename List::value_type oneOf(const List& list)
    {
        return list.at(std::size_t(upTo(int(list.size()) - 1)));
    }
    int node() { return oneOf(m_present.nodes); }
    int scene() { return oneOf(m_present.scenes); }

    SOperation make(EOperation kind, std::array<int, 6> arguments = {}, Document document = {});
    SOperation onScene(int choice);
    SOperation onNode(int choice);
    SOperation onConnection(int choice);
    SOperation ofDocument(int choice);
    SOperation createConnection();
    Document document();
    int name();

    std::mt19937 m_random;
    SPresent m_present;
    int m_lastNumber = 0;
};

} // namespace Sequences
