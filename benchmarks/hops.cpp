// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Sends frames through a chain of 100 nodes, for a profiler that counts instructions: halvex-hops engine|floor WALKS

#include "CFrame.h"
#include "CSceneGraph.h"
#include "CSignalGraph.h"

#include <cstdlib>
#include <cstring>

namespace {

template <typename Graph>
void walk(int walks)
{
    Graph graph(SShape::chain(100));
    const Plugin::Halvex::CNodeDataPtr frames[] = {makeFrame(), makeFrame()};
    for (int i = 0; i < walks; ++i)
        graph.walk(frames[i % 2]);
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 3)
        return 2;
    const int walks = std::atoi(argv[2]);
    if (std::strcmp(argv[1], "engine") == 0)
        walk<CSceneGraph>(walks);
    else
        walk<CSignalGraph<SPlainConnection>>(walks);
    return 0;
}
