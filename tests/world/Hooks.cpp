// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "world/Hooks.h"

#include "world/Operations.h"

#include <QJsonObject>
#include <QTest>

#include <utility>

using namespace Plugin::Halvex;

namespace {

// The test looks whether it has run.
void waitForHandler(const CMatrixWorld& world)
{
    static_cast<void>(QTest::qWaitFor([&world] { return world.hasFired(); }));
}

CWorldModel* modelAtHand(CMatrixWorld& world)
{
    return world.hand().model();
}

void removeSceneAtHand(CMatrixWorld& world)
{
    world.service().removeSceneOfNode(world.hand().node.data());
}

/// The hook of what is in the place at hand, and what makes it run.
template <EHook hook, void (*provoke)(CMatrixWorld&)>
void ofModel(CMatrixWorld& world)
{
    world.arm(hook, modelAtHand(world));
    provoke(world);
}

template <EHook hook, void (*provoke)(CMatrixWorld&)>
void ofAny(CMatrixWorld& world)
{
    world.arm(hook);
    provoke(world);
}

void removeNodeAtHand(CMatrixWorld& world)
{
    world.hand().scene->removeNode(*world.hand().node);
}

void deleteConnectionAtHand(CMatrixWorld& world)
{
    world.hand().scene->deleteConnection(*world.hand().connection);
}

void feedUpstream(CMatrixWorld& world)
{
    world.feed(world.at(ETarget::Upstream));
}

void feedAtHand(CMatrixWorld& world)
{
    world.feed(world.hand());
}

void loadAtHand(CMatrixWorld& world)
{
    world.witness().onReplacement();
    world.hand().scene->loadFromMemory(CWorld::sceneDocument(world.hand()));
}

void saveAtHand(CMatrixWorld& world)
{
    world.hand().scene->saveToMemory();
}

void setInfoAtHand(CMatrixWorld& world)
{
    modelAtHand(world)->setInfo({});
}

// ---- signals

void onNodeCreated(CMatrixWorld& world)
{
    // A host wires a node when it hears of it; then it has neighbours.
    SPlace& hand = world.hand();
    removeNodeAtHand(world);
    world.arm(EHook::NodeCreated, nullptr, [&world, &hand](const void* node) {
        SPlace& down = world.at(ETarget::Downstream);
        hand.node = down.feeder = const_cast<CNodeBase*>(static_cast<const CNodeBase*>(node));
        hand.connection = CMatrixWorld::connectPlace(hand);
        down.connection = CMatrixWorld::connectPlace(down);
    });
    hand.scene->createNode(std::make_unique<CWorldModel>(EKind::Step));
}

void removeNodeOfService(CMatrixWorld& world)
{
    world.service().removeNode(world.hand().node->id(), true);
}

void onIsUniqueOfNewModel(CMatrixWorld& world)
{
    auto source = world.makeSource();
    world.arm(EHook::IsUnique, source.get());
    world.addNode(std::move(source), {});
}

void onNodeDeletedWithScene(CMatrixWorld& world)
{
    world.arm(EHook::NodeDeleted, world.hand().node);
    removeSceneAtHand(world);
}

/// A host may destroy a scene itself.
void onNodeDeletedByTheHost(CMatrixWorld& world)
{
    world.arm(EHook::NodeDeleted, world.hand().node);
    world.destroyScene(world.hand().scene);
}

void onSceneDestroyed(CMatrixWorld& world)
{
    QObject::connect(world.hand().scene, &QObject::destroyed, [&world] { world.fire(); });
    world.destroyScene(world.hand().scene);
}

void onSceneRemovedByTheHost(CMatrixWorld& world)
{
    world.arm(EHook::SceneRemoved);
    world.destroyScene(world.hand().scene);
}

void onConnectionCreated(CMatrixWorld& world)
{
    SPlace& hand = world.hand();
    deleteConnectionAtHand(world);
    world.arm(EHook::ConnectionCreated, nullptr, [&hand](const void* connection) {
        hand.connection = const_cast<CNodeConnection*>(static_cast<const CNodeConnection*>(connection));
    });
    CMatrixWorld::connectPlace(hand);
}

void onConnectionDeletedWithScene(CMatrixWorld& world)
{
    world.arm(EHook::ConnectionDeleted, world.hand().connection);
    removeSceneAtHand(world);
}

void activateSceneAtHand(CMatrixWorld& world)
{
    world.service().setActiveScene(world.hand().scene);
}

void onSceneAdded(CMatrixWorld& world)
{
    QString name;
    auto source = world.makeSource(&name);
    world.arm(EHook::SceneAdded, nullptr, [&world, name](const void* scene) {
        SPlace added;
        added.scene = const_cast<CNodeScene*>(static_cast<const CNodeScene*>(scene));
        added.sourceName = name;
        world.hand() = added;
    });
    world.addNode(std::move(source), {});
}

void onUpdated(CMatrixWorld& world)
{
    const SPlace& hand = world.hand();
    world.arm(EHook::Updated, hand.connection);
    hand.connection->setNodeToPort(*hand.node, ENodePortType::In, 0);
}

void onInDataUpdated(CMatrixWorld& world)
{
    world.arm(EHook::InDataUpdated, &world.hand().decouplerModel());
    feedAtHand(world);
}

void onRateChanged(CMatrixWorld& world)
{
    world.arm(EHook::RateChanged, &world.hand().decouplerModel());
    world.hand().decouplerModel().setFramesPerSecond(50);
}

// ---- a worker, which has data pending

void letResultsArrive(CMatrixWorld& world)
{
    world.hand().workerModel().letResultsArrive();
}

void cancelWork(CMatrixWorld& world)
{
    world.hand().workerModel().feed({});
}

void feedWorker(CMatrixWorld& world)
{
    world.hand().workerModel().feed(world.makeNextData());
}

/// When all frames have left.
void feedIdleWorker(CMatrixWorld& world)
{
    letResultsArrive(world);
    feedWorker(world);
}

void overfillWorker(CMatrixWorld& world)
{
    world.hand().workerModel().setMostWaiting(1);
    feedWorker(world);
}

void removeWorker(CMatrixWorld& world)
{
    world.hand().scene->removeNode(*world.hand().worker);
}

void setPolicy(CMatrixWorld& world)
{
    world.hand().workerModel().setPolicy(AWorkerNodeDataModel::EPolicy::DropNewest);
}

template <EHook hook, void (*provoke)(CMatrixWorld&)>
void ofWorker(CMatrixWorld& world)
{
    world.arm(hook, &world.hand().workerModel());
    provoke(world);
}

void onMakeWork(CMatrixWorld& world)
{
    auto worker = world.makeWorker();
    world.arm(EHook::MakeWork, worker.get());
    world.hand().worker = &world.hand().scene->createNode(std::move(worker));
    feedWorker(world);
}

/// That of empty data.
void onDataInvalidated(CMatrixWorld& world)
{
    cancelWork(world);
    ofWorker<EHook::DataInvalidated, &letResultsArrive>(world);
}

// ---- operations of a model, converters

void onPorts(CMatrixWorld& world)
{
    auto model = std::make_unique<CWorldModel>(EKind::Step);
    world.arm(EHook::Ports, model.get());
    world.hand().scene->createNode(std::move(model));
}

void onInfoOfNewNode(CMatrixWorld& world)
{
    world.arm(EHook::InfoInjected);
    world.hand().scene->createNode(std::make_unique<CWorldModel>(EKind::Step));
}

void searchForName(CMatrixWorld& world)
{
    world.hand().scene->restoreNode({{"model", QJsonObject{{"name", "none"}, {"is_unique", true}}}});
}

template <EHook hook>
void inAnImport(CMatrixWorld& world)
{
    activateSceneAtHand(world);
    world.arm(hook, dynamic_cast<CWorldModel*>(world.hand().source->nodeDataModel()));
    world.service().importDocument(importDocumentFor(world.hand()));
}

void onFirstSetInData(CMatrixWorld& world)
{
    deleteConnectionAtHand(world);
    world.arm(EHook::SetInData, modelAtHand(world));
    CMatrixWorld::connectPlace(world.hand());
}

void onSetInDataBehindDecoupler(CMatrixWorld& world)
{
    world.arm(EHook::SetInData, &CMatrixWorld::addBehind(world.hand(), *world.hand().decoupler));
    CMatrixWorld::feedDecoupler(world.hand(), CTestData::make(0));
    waitForHandler(world);
}

void onSetInDataBehindWorker(CMatrixWorld& world)
{
    world.arm(EHook::SetInData, &CMatrixWorld::addBehind(world.hand(), *world.hand().worker));
    letResultsArrive(world);
}

void onConverter(CMatrixWorld& world)
{
    world.hand().connection->setTypeConverter(world.converter());
    world.arm(EHook::Converter);
    feedUpstream(world);
}

void restoreAtHand(CMatrixWorld& world)
{
    if (CNodeBase* const node = world.hand().node)
        node->restore(node->save());
}

void onDataType(CMatrixWorld& world)
{
    // A connection with a converter says between which types.
    world.hand().connection->setTypeConverter(&passOn);
    world.arm(EHook::DataType, modelAtHand(world));
    if (const CNodeConnection* const connection = world.hand().connection)
        connection->save();
}

void visitNodes(CMatrixWorld& world)
{
    world.hand().scene->iterateOverNodes([](CNodeBase* node) { IHookListener::call(EHook::Visitor, node); });
}

void visitModels(CMatrixWorld& world)
{
    world.hand().scene->iterateOverNodeData([](CNodeDataModel* model) { IHookListener::call(EHook::Visitor, model); });
}

// ---- destructors

/// What works in other threads has its data for as long as these like.
void cutOff(const SPlace& place)
{
    for (CNodeBase* const node : {place.decoupler.data(), place.worker.data()}) {
        if (!node)
            continue;
        const CNodeState::Connections inputs = node->nodeState().getEntries(ENodePortType::In).front();
        for (const auto& entry : inputs)
            place.scene->deleteConnectionNow(*entry.second);
    }
}

/// Data that only what is fed with it keeps. Its end is what is meant.
CNodeDataPtr makeLastData(CMatrixWorld& world)
{
    cutOff(world.hand());
    world.at(ETarget::Downstream).model()->isDeaf = true;
    const CNodeDataPtr data = world.makeNextData();
    world.arm(EHook::DataDestroyed, data.data());
    return data;
}

/// With the next data it goes.
template <void (*provoke)(CMatrixWorld&)>
void onDataReplaced(CMatrixWorld& world)
{
    modelAtHand(world)->send(makeLastData(world));
    provoke(world);
}

void onDataReplacedInDecoupler(CMatrixWorld& world)
{
    // The worker drops what it sent before it sends the next, so that the last to have it is the model.
    const SPlace& hand = world.hand();
    CNodeDataPtr last = makeLastData(world);
    const CNodeData* const marked = last.data();
    CMatrixWorld::feedDecoupler(hand, std::move(last));
    static_cast<void>(QTest::qWaitFor([&] { return hand.decouplerModel().outData(0).data() == marked; }));
    CMatrixWorld::feedDecoupler(hand, CTestData::make(0));
    waitForHandler(world);
}

/// Data that waits for its work, with other data behind it.
template <void (*provoke)(CMatrixWorld&)>
void onDataWaitingInWorker(CMatrixWorld& world)
{
    world.hand().workerModel().setPolicy(AWorkerNodeDataModel::EPolicy::DropOldest);
    world.hand().workerModel().feed(makeLastData(world));
    feedWorker(world);
    provoke(world);
}

void onDataReplacedInWorker(CMatrixWorld& world)
{
    feedIdleWorker(world);
    letResultsArrive(world);
    world.arm(EHook::DataDestroyed, world.hand().workerModel().output().data());
    feedWorker(world);
    letResultsArrive(world);
}

void onDataDestroyedAfterTheWalk(CMatrixWorld& world)
{
    modelAtHand(world)->nextOut = makeLastData(world);
    feedUpstream(world);
}

void onDataDestroyedWithModel(CMatrixWorld& world)
{
    modelAtHand(world)->send(makeLastData(world));
    modelAtHand(world)->isDeaf = true; // for the empty data with which its connection goes
    removeNodeAtHand(world);
}

void onModelDestroyedWithScene(CMatrixWorld& world)
{
    world.arm(EHook::ModelDestroyed, modelAtHand(world));
    removeSceneAtHand(world);
}

void setLastInfo(CMatrixWorld& world)
{
    const auto info = QSharedPointer<CWorldInfo>::create();
    world.arm(EHook::InfoDestroyed, info.data());
    modelAtHand(world)->setInfo(info);
}

void onInfoReplaced(CMatrixWorld& world)
{
    setLastInfo(world);
    setInfoAtHand(world);
}

void onInfoDestroyedWithModel(CMatrixWorld& world)
{
    setLastInfo(world);
    removeNodeAtHand(world);
}

void onInfoDestroyedWithScene(CMatrixWorld& world)
{
    world.arm(EHook::InfoDestroyed, world.hand().info.toStrongRef().data());
    removeSceneAtHand(world);
}

// ---- what is gone

/// It concerns everything in the scene of the node at hand.
SGone inItsScene(const char* reason, std::vector<EPart> parts)
{
    return {reason,
            std::move(parts),
            {ETarget::AtHand, ETarget::Upstream, ETarget::Downstream, ETarget::Unrelated},
            {ETarget::AtHand}};
}

SGone itsConnection(const char* reason)
{
    return {reason, {EPart::Connection}, {ETarget::AtHand}, {ETarget::AtHand}};
}

SGone connectionsOfItsNode()
{
    // One that leads into another scene belongs to that scene and stays, without this end.
    return {"connections go before their node",
            {EPart::Connection},
            {ETarget::AtHand, ETarget::Downstream},
            {ETarget::AtHand}};
}

SGone sceneItself()
{
    return inItsScene("what is being destroyed cannot be destroyed again", {EPart::OwnedScene});
}

std::vector<SGone> sceneAndConnections()
{
    return {sceneItself(), connectionsOfItsNode()};
}

std::vector<EPart> nodesAndConnections()
{
    return {EPart::Connection, EPart::Node, EPart::Decoupler, EPart::Worker};
}

SGone nodesOfItsScene()
{
    return inItsScene("the scene has lost its nodes", nodesAndConnections());
}

SGone nodesOfNewScene()
{
    return {"a new scene is empty", nodesAndConnections(), {ETarget::AtHand}, {ETarget::AtHand}};
}

SGone everythingInItsScene()
{
    std::vector<EPart> parts = nodesAndConnections();
    parts.insert(parts.end(), {EPart::Scene, EPart::OwnedScene});
    return inItsScene("the scene is gone", std::move(parts));
}

} // namespace

const std::vector<SHook>& matrixHooks()
{
    static const std::vector<SHook> hooks{
        {"nodeCreated", &onNodeCreated, {}},
        {"nodeDeleted", &ofAny<EHook::NodeDeleted, &removeNodeAtHand>, {}},
        {"nodeDeleted by the service", &ofAny<EHook::NodeDeleted, &removeNodeOfService>, {}},
        {"nodeDeleted with its scene", &onNodeDeletedWithScene, {sceneItself()}, SHook::HandFirst},
        {"connectionCreated", &onConnectionCreated, {}},
        {"connectionDeleted", &ofAny<EHook::ConnectionDeleted, &deleteConnectionAtHand>, {}},
        {"connectionDeleted with its node", &ofAny<EHook::ConnectionDeleted, &removeNodeAtHand>, {}},
        {"connectionDeleted with its scene", &onConnectionDeletedWithScene, {sceneItself()}, SHook::HandFirst},
        {"activeSceneChanged", &ofAny<EHook::ActiveSceneChanged, &activateSceneAtHand>, {}},
        {"sceneAdded", &onSceneAdded, {nodesOfNewScene()}},
        {"sceneRemoving", &ofAny<EHook::SceneRemoving, &removeSceneAtHand>, {}},
        {"sceneRemoved", &ofAny<EHook::SceneRemoved, &removeSceneAtHand>, {everythingInItsScene()}},
        {"nodeDeleted as the host destroys its scene", &onNodeDeletedByTheHost, {sceneItself()}, SHook::HandFirst},
        {"destroyed of a scene", &onSceneDestroyed, {everythingInItsScene()}},
        {"sceneRemoved as the host destroys it", &onSceneRemovedByTheHost, {everythingInItsScene()}},
        {"updated", &onUpdated, {}},
        {"dataUpdated before the walk", &ofModel<EHook::DataUpdatedFirst, &feedUpstream>, {}},
        {"dataUpdated after the walk", &ofModel<EHook::DataUpdatedLast, &feedUpstream>, {}},
        {"newDataAvailable", &ofModel<EHook::NewData, &feedAtHand>, {}},
        {"infoInjected", &ofModel<EHook::InfoInjected, &setInfoAtHand>, {}},
        {"infoInjected into a new node", &onInfoOfNewNode, {}},
        {"infoInjected into a node of a document", &ofAny<EHook::InfoInjected, &loadAtHand>, {}},
        {"inDataUpdated", &onInDataUpdated, {}, SHook::Decouplers},
        {"framesPerSecondChanged", &onRateChanged, {}, SHook::Decouplers},
        {"computingStarted", &ofWorker<EHook::ComputingStarted, &feedIdleWorker>, {}, SHook::Workers},
        {"computingFinished", &ofWorker<EHook::ComputingFinished, &letResultsArrive>, {}, SHook::Workers},
        {"dataUpdated of a result, first", &ofWorker<EHook::DataUpdatedFirst, &letResultsArrive>, {}, SHook::Workers},
        {"dataUpdated of a result, last", &ofWorker<EHook::DataUpdatedLast, &letResultsArrive>, {}, SHook::Workers},
        {"dataInvalidated", &onDataInvalidated, {}, SHook::Workers},
        {"policyChanged", &ofWorker<EHook::SettingChanged, &setPolicy>, {}, SHook::Workers},
        {"makeWork", &onMakeWork, {}, SHook::Workers},
        {"nPorts", &onPorts, {}},
        {"creator of a model", &ofAny<EHook::Creator, &loadAtHand>, {}},
        {"name in a search", &ofModel<EHook::Name, &searchForName>, {}},
        {"isUnique of a new model", &onIsUniqueOfNewModel, {}},
        {"isUnique in a save", &ofModel<EHook::IsUnique, &saveAtHand>, {}},
        {"isUnique in an import", &inAnImport<EHook::IsUnique>, {}},
        {"name in an import", &inAnImport<EHook::Name>, {}},
        {"dataType", &onDataType, {}},
        {"visitor of nodes", &ofAny<EHook::Visitor, &visitNodes>, {}},
        {"visitor of models", &ofAny<EHook::Visitor, &visitModels>, {}},
        {"setInData", &ofModel<EHook::SetInData, &feedUpstream>, {}},
        {"setInData of a new connection", &onFirstSetInData, {itsConnection("the connection is not in its scene yet")}},
        {"setInData of a connection that goes", &ofModel<EHook::SetInData, &deleteConnectionAtHand>, {}},
        {"setInData behind a decoupler", &onSetInDataBehindDecoupler, {}, SHook::Decouplers},
        {"setInData behind a worker", &onSetInDataBehindWorker, {}, SHook::Workers},
        {"outData", &ofModel<EHook::OutData, &feedUpstream>, {}},
        {"converter", &onConverter, {}},
        {"save", &ofModel<EHook::Save, &saveAtHand>, {}},
        {"restore", &ofModel<EHook::Restore, &restoreAtHand>, {}},
        {"restore from a document", &ofAny<EHook::Restore, &loadAtHand>, {}},
        {"model destroyed", &ofModel<EHook::ModelDestroyed, &removeNodeAtHand>, {connectionsOfItsNode()}},
        {"model replaced by a document", &ofModel<EHook::ModelDestroyed, &loadAtHand>, {}},
        {"model destroyed with its scene", &onModelDestroyedWithScene, sceneAndConnections(), SHook::HandFirst},
        {"data replaced in a walk", &onDataReplaced<&feedUpstream>, {}},
        {"data replaced through the proxy", &onDataReplaced<&feedAtHand>, {}},
        {"data replaced in a decoupler", &onDataReplacedInDecoupler, {}, SHook::Decouplers},
        {"data replaced in a worker", &onDataReplacedInWorker, {}, SHook::Workers},
        {"data dropped by a worker", &onDataWaitingInWorker<&overfillWorker>, {}, SHook::Workers},
        {"data cancelled in a worker", &onDataWaitingInWorker<&cancelWork>, {}, SHook::Workers},
        {"data destroyed with its worker", &onDataWaitingInWorker<&removeWorker>, {}, SHook::Workers},
        {"data destroyed after the walk", &onDataDestroyedAfterTheWalk, {}},
        {"data destroyed with its model", &onDataDestroyedWithModel, {connectionsOfItsNode()}},
        {"info replaced", &onInfoReplaced, {}},
        {"info destroyed with its model", &onInfoDestroyedWithModel, {connectionsOfItsNode()}},
        {"info destroyed with its scene", &onInfoDestroyedWithScene, {sceneItself(), nodesOfItsScene()}},
    };
    return hooks;
}
