// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Nodes and connections made and destroyed, per node, and what they take of memory.

#include "CObjectPairs.h"
#include "CRelayModel.h"
#include "CSignalGraph.h"
#include "Measuring.h"
#include "scene/CNodeScene.h"

using namespace Plugin::Halvex;

namespace {

/// A chain in a scene: one connection per node.
class CSceneChain
{
public:
    explicit CSceneChain(int nodes)
        : scene(nullptr, nullptr)
    {
        CNodeBase* last = nullptr;
        for (int i = 0; i < nodes; ++i) {
            CNodeBase& node = scene.createNode(std::make_unique<CRelayModel>());
            if (last)
                scene.createConnection(node, 0, *last, 0, {});
            last = &node;
        }
    }

    CNodeScene scene;
};

/// The objects of the floor F2: pairs as well, but each with its signal connected, as a graph needs them.
class CSignalChain : public CSignalGraph<SPlainConnection>
{
public:
    explicit CSignalChain(int pairs)
        : CSignalGraph(SShape::chain(pairs))
    {
    }
};

/// One node with \a consumers.
class CHub
{
public:
    explicit CHub(int consumers)
        : scene(nullptr, nullptr)
        , hub(scene.createNode(std::make_unique<CRelayModel>()))
    {
        for (int i = 0; i < consumers; ++i)
            scene.createConnection(scene.createNode(std::make_unique<CRelayModel>()), 0, hub, 0, {});
    }

    CNodeScene scene;
    CNodeBase& hub;
};

template <typename Objects>
std::string addCreate(const std::string& name, int nodes)
{
    return addEach(name, nodes, [nodes](benchmark::State& state) {
        measureEach(
            state, nodes, [] { return std::unique_ptr<Objects>(); },
            [nodes](std::unique_ptr<Objects>& objects) { objects = std::make_unique<Objects>(nodes); });
    });
}

/// Measures what \a work does with objects that were made before.
template <typename Objects, typename Work>
std::string addTakeDown(const std::string& name, int nodes, const Work& work)
{
    return addEach(name, nodes, [nodes, work](benchmark::State& state) {
        measureEach(
            state, nodes, [nodes] { return std::make_unique<Objects>(nodes); }, work);
    });
}

template <typename Objects>
std::string addMemory(const std::string& name, int nodes)
{
    return addEach(name, nodes, [nodes](benchmark::State& state) {
        measureEach(
            state, nodes, [] { return std::unique_ptr<Objects>(); },
            [&state, nodes](std::unique_ptr<Objects>& objects) {
                const long allocationsBefore = allocations();
                const double bytesBefore = bytesInUse();
                objects = std::make_unique<Objects>(nodes);
                state.counters[Counters::bytes] = (bytesInUse() - bytesBefore) / nodes;
                state.counters[Counters::allocations] = double(allocations() - allocationsBefore) / nodes;
            });
    });
}

const auto destroyAll = [](auto& objects) { objects.reset(); };

} // namespace

void registerConstruction(CRatioTable& table, int largest)
{
    const std::vector<int> sizes = sizesUpTo(1000000, 1000, largest);
    for (const int size : sizes) {
        const std::string create = "create and connect/" + std::to_string(size);
        table.add({create,
                   addCreate<CSceneChain>(create + "/Halvex", size),
                   {addCreate<CObjectPairs>(create + "/S", size)},
                   2.0});
        table.add(
            {create + ", against F2's objects", create + "/Halvex", {addCreate<CSignalChain>(create + "/F2", size)}});
    }
    for (const int size : sizes) {
        const std::string destroy = "destroy/" + std::to_string(size);
        table.add({destroy,
                   addTakeDown<CSceneChain>(destroy + "/Halvex", size, destroyAll),
                   {addTakeDown<CObjectPairs>(destroy + "/S", size, destroyAll)},
                   2.0});
    }
    addGrowth(table, "create and connect", sizes, "/Halvex");
    addGrowth(table, "destroy", sizes, "/Halvex");

    // Whether it is linear, not how much memory the caches hold: from 1,000 nodes on they hold less and less.
    const std::vector<int> cleared = {sizes.back() / 10, sizes.back()};
    for (const int size : cleared) {
        addTakeDown<CSceneChain>("clearScene/" + std::to_string(size), size,
                                 [](const std::unique_ptr<CSceneChain>& chain) { chain->scene.clearScene(); });
    }
    addGrowth(table, "clearScene", cleared, "");

    const int connections = std::min(largest, 100000);
    const std::vector<int> hubs = {connections / 10, connections};
    for (const int size : hubs) {
        addTakeDown<CHub>("removeNode of a hub/" + std::to_string(size), size,
                          [](const std::unique_ptr<CHub>& hub) { hub->scene.removeNode(hub->hub); });
    }
    addGrowth(table, "removeNode of a hub", hubs, "");

    const int many = std::min(largest, 10000);
    const std::string engine = addMemory<CSceneChain>("memory/Halvex", many);
    const std::string floor = addMemory<CObjectPairs>("memory/S", many);
    const std::string signalFloor = addMemory<CSignalChain>("memory/F2", many);
    for (const char* const counter : {Counters::bytes, Counters::allocations}) {
        const std::string work = std::string(counter) + " of a node and a connection";
        table.add({work, engine, {floor}, counter == Counters::bytes ? 1.8 : SRatioRow::none, counter});
        table.add({work + ", against F2's objects", engine, {signalFloor}, SRatioRow::none, counter});
    }
}
