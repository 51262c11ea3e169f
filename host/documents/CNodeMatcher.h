// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/documents/SComparedGraph.h"

#include <deque>
#include <map>
#include <utility>
#include <vector>

namespace Host {

/**
 * Finds out which node of one graph is which of another one.
 *
 * \code
 * CNodeMatcher matcher(left, right);
 * matcher.pairByName(); // or not, for graphs whose names say nothing
 * matcher.pairByLooks();
 * const int same = matcher.partnerOf(0);
 * \endcode
 *
 * Nodes are alike if their models are and, step by step, what they are connected with. Of those that are alike, the
 * neighbours of pairs are paired first, and then whichever come first. So two graphs that are the same are found to be,
 * whatever their nodes are called; only where many nodes look the same, and are connected crosswise, a pair may be
 * taken that is not the right one.
 */
class CNodeMatcher
{
public:
    /// Both outlive this object.
    CNodeMatcher(const SComparedGraph& left, const SComparedGraph& right);

    /// Pairs the nodes whose names are the same, in documents of one kind.
    void pairByName();

    /// Pairs what is left: first nodes that are alike in all, then those with the same settings, then those of the
    /// same model.
    void pairByLooks();

    /// The number in the right graph, or -1.
    int partnerOf(int left) const { return m_sides[0].partners[std::size_t(left)]; }

    /// The number in the left graph, or -1.
    int partnerOfRight(int right) const { return m_sides[1].partners[std::size_t(right)]; }

private:
    using Looks = std::vector<int>; // by node: the same number for what looks the same, in either graph

    struct SNeighbour
    {
        int node = 0;
        int way = 0; // the same number for ends of connections that are alike
    };

    struct SSide
    {
        const SComparedGraph* graph = nullptr;
        std::vector<std::vector<SNeighbour>> neighbours;
        std::vector<int> partners;
        Looks looks;
    };

    void connect(SSide& side);
    void lookAtModels();
    void lookAtNames();
    void lookAround();
    template <typename Key>
    void look(const Key& keyOf);
    void pairAlike();
    void pair(int left, int right);
    void pairNeighbours();

    SSide m_sides[2];
    std::map<std::vector<QString>, int> m_ways;
    std::deque<int> m_open; // left numbers of pairs whose neighbours are to be looked at
};

} // namespace Host
