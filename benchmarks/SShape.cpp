// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "SShape.h"

#include <random>

std::vector<SShape::SDegree> SShape::degrees() const
{
    std::vector<SDegree> degrees(std::size_t(nodes), SDegree{});
    for (const SEdge& edge : edges) {
        ++degrees[std::size_t(edge.to)].inputs;
        ++degrees[std::size_t(edge.from)].outputs;
    }
    degrees[0].inputs = 1;
    return degrees;
}

SShape SShape::chain(int nodes)
{
    SShape shape{nodes, {}};
    for (int node = 1; node < nodes; ++node)
        shape.edges.push_back({node - 1, node});
    return shape;
}

SShape SShape::fanOut(int consumers)
{
    SShape shape{consumers + 1, {}};
    for (int consumer = 1; consumer <= consumers; ++consumer)
        shape.edges.push_back({0, consumer});
    return shape;
}

SShape SShape::fanIn(int producers)
{
    return diamonds(1, producers);
}

SShape SShape::diamonds(int count, int width)
{
    SShape shape;
    for (int diamond = 0; diamond < count; ++diamond) {
        const int first = shape.nodes - 1;
        const int last = first + width + 1;
        for (int middle = first + 1; middle < last; ++middle) {
            shape.edges.push_back({first, middle});
            shape.edges.push_back({middle, last});
        }
        shape.nodes = last + 1;
    }
    return shape;
}

SShape SShape::randomGraph(int nodes)
{
    SShape shape{nodes, {}};
    std::mt19937 random(1); // its numbers are the same everywhere, those of a distribution are not
    for (int node = 1; node < nodes; ++node) {
        const int inputs = 1 + int(random() % 4);
        for (int input = 0; input < inputs; ++input)
            shape.edges.push_back({int(random() % unsigned(node)), node});
    }
    return shape;
}
