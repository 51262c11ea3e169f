// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <vector>

/**
 * Which node feeds which. A walk starts at node 0.
 *
 * Each edge has an input port of its own. A node with several inputs passes on when the last of them has come, so that
 * a walk goes along each edge once. A node that feeds none is a sink: it stores what comes and does nothing else, so
 * that no shape hides the cost of a delivery behind work at its end.
 */
struct SShape
{
    struct SEdge
    {
        int from;
        int to;
    };

    int nodes = 1;
    std::vector<SEdge> edges;

    /// The edges, and the one along which data comes to node 0.
    int deliveries() const { return int(edges.size()) + 1; }

    struct SDegree
    {
        int inputs = 0;  ///< How many edges lead to the node; one for node 0.
        int outputs = 0; ///< How many edges lead away from it; none from a sink.
    };

    /// How each node is linked.
    std::vector<SDegree> degrees() const;

    static SShape chain(int nodes);
    static SShape fanOut(int consumers);

    /// One node that feeds \a producers, which feed one consumer.
    static SShape fanIn(int producers);

    /// \a count times the fan-in of \a width, one behind the other.
    static SShape diamonds(int count, int width);

    /// Each node has one to four inputs from nodes before it; always the same graph.
    static SShape randomGraph(int nodes);
};
