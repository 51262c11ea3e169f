// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Sends frames through a graph, for a profiler that counts instructions. Prints how many deliveries these were.
//
//   halvex-hops engine|floor chain|converting|fan-out|fan-in|diamonds|random WALKS

#include "CFrame.h"
#include "CSceneGraph.h"
#include "CSignalGraph.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

using Plugin::Halvex::CNodeDataPtr;

namespace {

struct SSubject
{
    const char* name = nullptr;
    SShape shape;
    bool converts = false;
};

CNodeDataPtr pass(CNodeDataPtr data)
{
    return data;
}

template <typename Graph>
void walk(Graph graph, int walks)
{
    const CNodeDataPtr frames[] = {makeFrame(), makeFrame()};
    for (int i = 0; i < walks; ++i)
        graph.walk(frames[i % 2]);
}

template <typename Connection>
void walkFloor(const SSubject& subject, int walks)
{
    walk(CSignalGraph<Connection>(subject.shape, pass), walks);
}

void walkAs(const char* system, const SSubject& subject, int walks)
{
    if (std::strcmp(system, "engine") == 0)
        walk(CSceneGraph(subject.shape, subject.converts ? pass : Plugin::Halvex::NodeDataConverter()), walks);
    else if (subject.converts)
        walkFloor<SConvertingConnection>(subject, walks);
    else
        walkFloor<SPlainConnection>(subject, walks);
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 4)
        return 2;
    const SSubject subjects[] = {
        {"chain", SShape::chain(100), false},         {"converting", SShape::chain(100), true},
        {"fan-out", SShape::fanOut(100), false},      {"fan-in", SShape::fanIn(100), false},
        {"diamonds", SShape::diamonds(32, 8), false}, {"random", SShape::randomGraph(1000), false},
    };
    for (const SSubject& subject : subjects) {
        if (std::strcmp(argv[2], subject.name) == 0) {
            const int walks = std::atoi(argv[3]);
            walkAs(argv[1], subject, walks);
            std::printf("%d\n", walks * subject.shape.deliveries());
            return 0;
        }
    }
    return 2;
}
