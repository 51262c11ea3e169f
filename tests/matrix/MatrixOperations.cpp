// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "matrix/MatrixOperations.h"

#include <algorithm>
#include <set>

using namespace Plugin::Halvex;

namespace {

Proof deleteConnection(CMatrixWorld&, const SPlace& place)
{
    const auto connection = place.connection;
    place.scene->deleteConnection(*place.connection);
    return [connection] { return !connection; };
}

Proof deleteConnectionNow(CMatrixWorld&, const SPlace& place)
{
    const auto connection = place.connection;
    place.scene->deleteConnectionNow(*place.connection);
    return [connection] { return !connection; };
}

Proof removeNode(CMatrixWorld&, const SPlace& place)
{
    const QPointer<CNodeBase> node = place.node;
    place.scene->removeNode(*node);
    return [node] { return !node; };
}

Proof clearScene(CMatrixWorld&, const SPlace& place)
{
    std::vector<QPointer<CNodeBase>> nodes;
    place.scene->iterateOverNodes([&nodes](CNodeBase* node) { nodes.emplace_back(node); });
    place.scene->clearScene();
    return [nodes] { return std::all_of(nodes.begin(), nodes.end(), [](const auto& node) { return !node; }); };
}

Proof loadFromMemory(CMatrixWorld&, const SPlace& place)
{
    const QPointer<CNodeScene> scene = place.scene;
    const auto present = [&scene] {
        std::set<const CNodeBase*> nodes;
        for (const auto& entry : scene->nodes())
            nodes.insert(entry.second.get());
        return nodes;
    };
    const auto before = present();
    scene->loadFromMemory(CMatrixWorld::sceneDocument(place));
    const bool isLoaded = present() != before;
    return [scene, isLoaded] { return isLoaded || !scene; }; // one that is going takes nothing in
}

Proof createConnection(CMatrixWorld&, const SPlace& place)
{
    const QPointer<CNodeBase> node = place.node;
    const QPointer<CNodeBase> feeder = place.feeder;
    const bool isMade = feeder && CMatrixWorld::connectPlace(place);
    return [=] { return isMade || !node || !feeder; }; // a node that is going takes none
}

Proof destroyScene(CMatrixWorld& world, const SPlace& place)
{
    const QPointer<CNodeScene> scene = place.scene;
    world.destroyScene(scene);
    return [isGone = !scene] { return isGone; };
}

Proof removeSceneOfNode(CMatrixWorld& world, const SPlace& place)
{
    const QPointer<CNodeScene> scene = place.scene;
    const QPointer<CNodeBase> node = place.node;
    world.service().removeSceneOfNode(node.data());
    return [=] { return !scene || !node; }; // a node that has left its scene has none
}

Proof setActiveScene(CMatrixWorld& world, const SPlace& place)
{
    const QPointer<CNodeScene> scene = place.scene;
    world.service().setActiveScene(scene);
    const bool isActive = world.service().getActiveScene() == scene;
    return [=] { return isActive || !scene; }; // the service has none that is going
}

Proof importDocument(CMatrixWorld& world, const SPlace& place)
{
    const QPointer<CNodeScene> scene = place.scene;
    world.service().setActiveScene(scene);
    const std::size_t before = scene->nodes().size();
    const bool isImported =
        world.service().importDocument(CMatrixWorld::importDocument(place)) && scene->nodes().size() == before + 1;
    return [=] { return isImported || !scene; };
}

Proof shutDecouplerDown(CMatrixWorld&, const SPlace& place)
{
    const QPointer<CNodeBase> decoupler = place.decoupler;
    place.scene->removeNode(*decoupler);
    return [decoupler] { return !decoupler; };
}

} // namespace

const std::vector<SOperation>& matrixOperations()
{
    static const std::vector<SOperation> operations{
        {"deleteConnection", EPart::Connection, &deleteConnection},
        {"deleteConnectionNow", EPart::Connection, &deleteConnectionNow},
        {"createConnection", EPart::Node, &createConnection},
        {"removeNode", EPart::Node, &removeNode},
        {"clearScene", EPart::Scene, &clearScene},
        {"loadFromMemory", EPart::Scene, &loadFromMemory},
        {"scene destroyed", EPart::OwnedScene, &destroyScene},
        {"removeSceneOfNode", EPart::Node, &removeSceneOfNode},
        {"setActiveScene", EPart::Scene, &setActiveScene},
        {"importDocument", EPart::Scene, &importDocument},
        {"decoupler shut down", EPart::Decoupler, &shutDecouplerDown},
    };
    return operations;
}
