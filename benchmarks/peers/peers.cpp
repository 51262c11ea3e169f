// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What a hop costs in other systems, against the same floor as ours; and ours against how they filter images.

#include "Measuring.h"
#include "peers/CGStreamerFilters.h"
#include "peers/CGStreamerGraph.h"
#include "peers/CSignals2Graph.h"
#include "peers/CTbbFilters.h"
#include "peers/CTbbGraph.h"

namespace {

template <typename Graph>
void addPeer(CRatioTable& table, const std::string& peer)
{
    for (const auto& [work, shape] :
         {std::pair("chain of 100", SShape::chain(100)), std::pair("fan-out to 100", SShape::fanOut(100))}) {
        const std::string name = std::string(work) + "/" + peer;
        table.add({std::string(work) + " by " + peer, addWalk<Graph>(name, shape), {std::string(work) + "/F2"}});
    }
}

} // namespace

void registerPeers(CRatioTable& table)
{
    addPeer<CGStreamerGraph>(table, "GStreamer pads");
    addPeer<CTbbGraph>(table, "oneTBB's flow graph");
    addPeer<CSignals2Graph>(table, "Boost.Signals2");

    const std::string work = "a frame through two filters, two cameras, in workers, against ";
    table.add({work + "GStreamer with a queue before each filter",
               filtersInWorkers,
               {addFilters<CGStreamerFilters>("filters/GStreamer")},
               1});
    table.add({work + "oneTBB's flow graph", filtersInWorkers, {addFilters<CTbbFilters>("filters/oneTBB")}, 1});
}
