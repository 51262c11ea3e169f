// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A frame's way through graphs of several shapes, per delivery.

#include "Measuring.h"

#include "CCallChain.h"
#include "CSceneGraph.h"
#include "CSignalGraph.h"

using Plugin::Halvex::CNodeDataPtr;

namespace {

CNodeDataPtr pass(CNodeDataPtr data)
{
    return data;
}

/// A shape by both the engine and the floor F2.
void compareWalks(CRatioTable& table, const std::string& work, const SShape& shape, double target)
{
    const std::string engine = addWalk<CSceneGraph>(work + "/Halvex", shape);
    const std::string floor = addWalk<CSignalGraph<SPlainConnection>>(work + "/F2", shape);
    table.add({work, engine, {floor}, target});
}

} // namespace

void registerWalks(CRatioTable& table, int largest)
{
    const std::vector<int> sizes = sizesUpTo(1000, 1, largest);
    for (const int size : sizes) {
        const std::string work = "chain of " + std::to_string(size);
        compareWalks(table, work, SShape::chain(size), size >= 10 ? 1.10 : SRatioRow::none);
        table.add({work + ", allocations", work + "/Halvex", {}, 0, Counters::allocations});
        const std::string calls = addWalk<CCallChain>(work + "/F1", SShape::chain(size));
        table.add({work + ", against F1", work + "/Halvex", {calls}});
    }
    for (const int size : sizes) {
        const SShape shape = SShape::chain(size);
        const std::string work = "converting chain of " + std::to_string(size);
        const std::string engine = addWalk<CSceneGraph>(work + "/Halvex", shape, pass);
        const std::string floor = addWalk<CSignalGraph<SConvertingConnection>>(work + "/F2", shape, pass);
        table.add({work, engine, {floor}, size >= 10 ? 1.20 : SRatioRow::none});
    }
    for (const int size : sizes)
        compareWalks(table, "fan-out to " + std::to_string(size), SShape::fanOut(size), 1.50);
    for (const int size : sizesUpTo(1000, 10, largest))
        compareWalks(table, "fan-in of " + std::to_string(size), SShape::fanIn(size), 1.25);
    for (const int width : {2, 8, 32})
        compareWalks(table, "32 diamonds of " + std::to_string(width), SShape::diamonds(32, width), 1.25);
    compareWalks(table, "random graph of 1000", SShape::randomGraph(1000), 1.25);
}
