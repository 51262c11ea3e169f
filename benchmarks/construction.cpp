// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Nodes and connections made and destroyed, per node, and what they take of memory.

#include "CObjectPairs.h"
#include "CSceneChain.h"
#include "CSignalChain.h"
#include "Measuring.h"

#include <QCoreApplication>
#include <QProcess>

using namespace Plugin::Halvex;

namespace {

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

/// Runs halvex-lifetime, the program beside this one; negative if that fails.
double secondsInFreshProcess(const std::string& system, int nodes, int times)
{
    QProcess process;
    process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/halvex-lifetime"),
                  {QString::fromStdString(system), QString::number(nodes), QString::number(times)});
    bool isNumber = false;
    const bool hasEnded = process.waitForFinished() && process.exitStatus() == QProcess::NormalExit;
    const double seconds = process.readAllStandardOutput().trimmed().toDouble(&isNumber);
    return hasEnded && process.exitCode() == 0 && isNumber ? seconds : -1;
}

/// Measures whole lives, the median of \a times of them, each time in a process of its own: what other benchmarks have
/// left of the heap has a part in what memory costs.
std::string addLifetime(const std::string& name, const std::string& system, int nodes, int times)
{
    const auto measure = [system, nodes, times](benchmark::State& state) {
        for ([[maybe_unused]] auto iteration : state) {
            const double seconds = secondsInFreshProcess(system, nodes, times);
            if (seconds < 0) {
                state.SkipWithError("halvex-lifetime has failed");
                break;
            }
            state.SetIterationTime(seconds);
        }
        setItems(state, nodes);
    };
    benchmark::RegisterBenchmark(name.c_str(), measure)->UseManualTime()->Iterations(1);
    return name;
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
    const int many = std::min(largest, 10000);
    const std::string lifetime = "make, connect and destroy together/" + std::to_string(many);
    table.add({lifetime + ", against F2's objects",
               addLifetime(lifetime + "/Halvex", "engine", many, 9),
               {addLifetime(lifetime + "/F2", "floor", many, 9)},
               2.5});
    table.add({lifetime + ", once, with memory fresh from the system",
               addLifetime(lifetime + ", once/Halvex", "engine", many, 1),
               {addLifetime(lifetime + ", once/F2", "floor", many, 1)}});
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

    const std::string engine = addMemory<CSceneChain>("memory/Halvex", many);
    const std::string floor = addMemory<CObjectPairs>("memory/S", many);
    const std::string signalFloor = addMemory<CSignalChain>("memory/F2", many);
    for (const char* const counter : {Counters::bytes, Counters::allocations}) {
        const std::string work = std::string(counter) + " of a node and a connection";
        const bool hasTarget = counter == Counters::bytes;
        table.add({work, engine, {floor}, hasTarget ? 1.8 : SRatioRow::none, counter});
        table.add(
            {work + ", against F2's objects", engine, {signalFloor}, hasTarget ? 1.75 : SRatioRow::none, counter});
    }
}
