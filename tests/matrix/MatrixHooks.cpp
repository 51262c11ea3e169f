// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "matrix/MatrixHooks.h"

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

template <typename Sender, typename Signal, typename Handler>
void listen(CMatrixWorld& world, const Sender& sender, Signal signal, const Handler& handler)
{
    QObject::connect(&*sender, signal, handler);
    world.addWitnesses(); // handlers after this one
}

// ---- signals of a scene

void onNodeCreated(CMatrixWorld& world)
{
    // A host wires a node when it hears of it; then it has neighbours.
    SPlace& hand = world.hand();
    hand.scene->removeNode(*hand.node);
    listen(world, hand.scene, &CNodeScene::nodeCreated, [&world, &hand](CNodeBase& node) {
        if (world.hasFired())
            return;
        SPlace& down = world.at(ETarget::Downstream);
        hand.node = down.feeder = &node;
        hand.connection = CMatrixWorld::connectPlace(hand).get();
        down.connection = CMatrixWorld::connectPlace(down).get();
        world.fire();
    });
    hand.scene->createNode(std::make_unique<CStepModel>());
}

void onNodeDeleted(CMatrixWorld& world)
{
    const SPlace& hand = world.hand();
    listen(world, hand.scene, &CNodeScene::nodeDeleted, world.firing());
    hand.scene->removeNode(*hand.node);
}

void onNodeDeletedWithScene(CMatrixWorld& world)
{
    const SPlace& hand = world.hand();
    listen(world, hand.scene, &CNodeScene::nodeDeleted, [&world, &hand](const CNodeBase& node) {
        if (&node == hand.node)
            world.fire();
    });
    world.service().removeSceneOfNode(hand.node.data());
}

void onConnectionCreated(CMatrixWorld& world)
{
    SPlace& hand = world.hand();
    hand.scene->deleteConnection(*hand.connection);
    listen(world, hand.scene, &CNodeScene::connectionCreated, [&world, &hand](CNodeConnection& connection) {
        if (world.hasFired())
            return;
        hand.connection = &connection;
        world.fire();
    });
    CMatrixWorld::connectPlace(hand);
}

void onConnectionDeleted(CMatrixWorld& world)
{
    const SPlace& hand = world.hand();
    listen(world, hand.scene, &CNodeScene::connectionDeleted, world.firing());
    hand.scene->deleteConnection(*hand.connection);
}

void onConnectionDeletedWithNode(CMatrixWorld& world)
{
    const SPlace& hand = world.hand();
    listen(world, hand.scene, &CNodeScene::connectionDeleted, world.firing());
    hand.scene->removeNode(*hand.node);
}

void onConnectionDeletedWithScene(CMatrixWorld& world)
{
    const SPlace& hand = world.hand();
    const Core::CId id = hand.connection->id();
    listen(world, hand.scene, &CNodeScene::connectionDeleted, [&world, id](const CNodeConnection& connection) {
        if (connection.id() == id)
            world.fire();
    });
    world.service().removeSceneOfNode(hand.node.data());
}

// ---- signals of the service

void onActiveSceneChanged(CMatrixWorld& world)
{
    listen(world, &world.service(), &INodeService::activeSceneChanged, world.firing());
    world.service().setActiveScene(world.hand().scene);
}

void onSceneAdded(CMatrixWorld& world)
{
    listen(world, &world.service(), &INodeService::sceneAdded, [&world](CNodeScene* scene) {
        if (world.hasFired())
            return;
        SPlace added;
        added.scene = scene;
        added.sourceName = QStringLiteral("added");
        world.hand() = added;
        world.fire();
    });
    world.service().addNode(std::make_unique<CStepModel>(QStringLiteral("added")), {});
}

void onSceneRemoving(CMatrixWorld& world)
{
    listen(world, &world.service(), &INodeService::sceneRemoving, world.firing());
    world.service().removeSceneOfNode(world.hand().node.data());
}

void onSceneRemoved(CMatrixWorld& world)
{
    listen(world, &world.service(), &INodeService::sceneRemoved, world.firing());
    world.service().removeSceneOfNode(world.hand().node.data());
}

// ---- signals of a connection and of a model

void onUpdated(CMatrixWorld& world)
{
    const SPlace& hand = world.hand();
    CNodeConnection& connection = *hand.connection;
    listen(world, &connection, &CNodeConnection::updated, world.firing());
    connection.setNodeToPort(*hand.node, ENodePortType::In, 0);
}

void onDataUpdatedBeforeTheWalk(CMatrixWorld& world)
{
    world.hand().model().onDataUpdated = world.firing();
    world.feed(world.at(ETarget::Upstream));
}

void onDataUpdatedAfterTheWalk(CMatrixWorld& world)
{
    listen(world, &world.hand().model(), &CNodeDataModel::dataUpdated, world.firing());
    world.feed(world.at(ETarget::Upstream));
}

void onNewDataAvailable(CMatrixWorld& world)
{
    listen(world, world.hand().model().getDataFlowProxy(), &CNodeDataFlowProxy::newDataAvailable, world.firing());
    world.feed(world.hand());
}

void onInfoInjected(CMatrixWorld& world)
{
    listen(world, &world.hand().model(), &CNodeDataModel::infoInjected, world.firing());
    world.hand().model().setInfo({});
}

void onInDataUpdated(CMatrixWorld& world)
{
    listen(world, &world.hand().decouplerModel(), &CNodeDecouplerDataModelBase::inDataUpdated, world.firing());
    world.feed(world.hand());
}

void onFramesPerSecondChanged(CMatrixWorld& world)
{
    listen(world, &world.hand().decouplerModel(), &CNodeDecouplerDataModelBase::framesPerSecondChanged, world.firing());
    world.hand().decouplerModel().setFramesPerSecond(50);
}

// ---- operations of a model, converters

void onNPorts(CMatrixWorld& world)
{
    auto model = std::make_unique<CStepModel>();
    model->onNPorts = world.firing();
    world.hand().scene->createNode(std::move(model));
}

void onCreator(CMatrixWorld& world)
{
    world.onMade = [&world](const CStepModel&) { world.fire(); };
    world.hand().scene->loadFromMemory(CMatrixWorld::sceneDocument(world.hand()));
}

void onNameInASearch(CMatrixWorld& world)
{
    world.hand().model().onName = world.firing();
    world.hand().scene->restoreNode({{"model", QJsonObject{{"name", "none"}, {"is_unique", true}}}});
}

void onIsUniqueInASave(CMatrixWorld& world)
{
    world.hand().model().onIsUnique = world.firing();
    world.hand().scene->saveToMemory();
}

void onIsUniqueInAnImport(CMatrixWorld& world)
{
    world.service().setActiveScene(world.hand().scene);
    static_cast<CStepModel*>(world.hand().source->nodeDataModel())->onIsUnique = world.firing();
    world.service().importDocument(CMatrixWorld::importDocument(world.hand()));
}

void onSetInData(CMatrixWorld& world)
{
    world.hand().model().onSetInData = world.firing();
    world.feed(world.at(ETarget::Upstream));
}

void onFirstSetInData(CMatrixWorld& world)
{
    const SPlace& hand = world.hand();
    hand.scene->deleteConnection(*hand.connection);
    hand.model().onSetInData = world.firing();
    CMatrixWorld::connectPlace(hand);
}

void onLastSetInData(CMatrixWorld& world)
{
    const SPlace& hand = world.hand();
    hand.model().onSetInData = world.firing();
    hand.scene->deleteConnection(*hand.connection);
}

void onSetInDataBehindDecoupler(CMatrixWorld& world)
{
    const SPlace& hand = world.hand();
    world.addBehindDecoupler(hand).onSetInData = world.firing();
    hand.feedDecoupler(CTestData::make(0));
    waitForHandler(world);
}

void onOutData(CMatrixWorld& world)
{
    world.hand().model().onOutData = world.firing();
    world.feed(world.at(ETarget::Upstream));
}

void onConverter(CMatrixWorld& world)
{
    world.hand().connection->setTypeConverter([&world](CNodeDataPtr data) {
        world.fire();
        return data;
    });
    world.feed(world.at(ETarget::Upstream));
}

void onSave(CMatrixWorld& world)
{
    world.hand().model().onSave = world.firing();
    world.hand().scene->saveToMemory();
}

void onRestore(CMatrixWorld& world)
{
    world.hand().model().onRestore = world.firing();
    if (CNodeBase* const node = world.hand().node)
        node->restore(node->save());
}

void onRestoreFromDocument(CMatrixWorld& world)
{
    world.onMade = [&world](CStepModel& model) { model.onRestore = world.firing(); };
    world.hand().scene->loadFromMemory(CMatrixWorld::sceneDocument(world.hand()));
}

void onDataType(CMatrixWorld& world)
{
    // A connection with a converter says between which types.
    world.hand().connection->setTypeConverter([](CNodeDataPtr data) { return data; });
    world.hand().model().onDataType = world.firing();
    if (const CNodeConnection* const connection = world.hand().connection)
        connection->save();
}

void onVisitor(CMatrixWorld& world)
{
    world.hand().scene->iterateOverNodes([&world](const CNodeBase*) { world.fire(); });
}

void onVisitorOfModels(CMatrixWorld& world)
{
    world.hand().scene->iterateOverNodeData([&world](const CNodeDataModel*) { world.fire(); });
}

// ---- destructors

void onModelDestroyed(CMatrixWorld& world)
{
    world.hand().model().onDestroyed = world.firing();
    world.hand().scene->removeNode(*world.hand().node);
}

void onModelReplaced(CMatrixWorld& world)
{
    world.hand().model().onDestroyed = world.firing();
    world.hand().scene->loadFromMemory(CMatrixWorld::sceneDocument(world.hand()));
}

void onModelDestroyedWithScene(CMatrixWorld& world)
{
    world.hand().model().onDestroyed = world.firing();
    world.service().removeSceneOfNode(world.hand().node.data());
}

/// A decoupler that is fed has its data for as long as its worker likes.
void cutDecouplerOff(const SPlace& place)
{
    if (!place.decoupler)
        return;
    const CNodeState::Connections inputs = place.decoupler->nodeState().getEntries(ENodePortType::In).front();
    for (const auto& entry : inputs)
        place.scene->deleteConnectionNow(*entry.second);
}

CNodeDataPtr makeLastData(CMatrixWorld& world)
{
    cutDecouplerOff(world.hand());
    const auto data = CTestData::make(0);
    data->onDestroyed = world.firing();
    return data;
}

void onDataReplacedInWalk(CMatrixWorld& world)
{
    // The model at hand is the only one that keeps it; with the next data it goes.
    world.at(ETarget::Downstream).model().isDeaf = true;
    world.hand().model().getDataFlowProxy()->setData(makeLastData(world));
    world.feed(world.at(ETarget::Upstream));
}

void onDataReplacedThroughProxy(CMatrixWorld& world)
{
    world.at(ETarget::Downstream).model().isDeaf = true;
    world.hand().model().getDataFlowProxy()->setData(makeLastData(world));
    world.feed(world.hand());
}

void onDataReplacedInDecoupler(CMatrixWorld& world)
{
    // The worker drops what it sent before it sends the next, so that the last to have it is the model.
    const SPlace& hand = world.hand();
    CNodeDataPtr last = makeLastData(world);
    const CNodeData* const marked = last.data();
    hand.feedDecoupler(std::move(last));
    static_cast<void>(QTest::qWaitFor([&] { return hand.decouplerModel().outData(0).data() == marked; }));
    hand.feedDecoupler(CTestData::make(0));
    waitForHandler(world);
}

void onDataDestroyedAfterTheWalk(CMatrixWorld& world)
{
    world.at(ETarget::Downstream).model().isDeaf = true;
    world.hand().model().nextOut = makeLastData(world);
    world.feed(world.at(ETarget::Upstream));
}

void onDataDestroyedWithModel(CMatrixWorld& world)
{
    const SPlace& hand = world.hand();
    world.at(ETarget::Downstream).model().isDeaf = true;
    hand.model().getDataFlowProxy()->setData(makeLastData(world));
    hand.model().isDeaf = true; // for the empty data with which its connection goes
    hand.scene->removeNode(*hand.node);
}

QSharedPointer<CMatrixInfo> makeLastInfo(CMatrixWorld& world)
{
    const auto info = QSharedPointer<CMatrixInfo>::create();
    info->onDestroyed = world.firing();
    return info;
}

void onInfoReplaced(CMatrixWorld& world)
{
    world.hand().model().setInfo(makeLastInfo(world));
    world.hand().model().setInfo({});
}

void onInfoDestroyedWithModel(CMatrixWorld& world)
{
    world.hand().model().setInfo(makeLastInfo(world));
    world.hand().scene->removeNode(*world.hand().node);
}

void onInfoDestroyedWithScene(CMatrixWorld& world)
{
    world.hand().info.toStrongRef()->onDestroyed = world.firing();
    world.service().removeSceneOfNode(world.hand().node.data());
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

} // namespace

const std::vector<SHook>& matrixHooks()
{
    static const std::vector<SHook> hooks{
        {"nodeCreated", &onNodeCreated, {}},
        {"nodeDeleted", &onNodeDeleted, {}},
        {"nodeDeleted with its scene", &onNodeDeletedWithScene, {sceneItself()}, SHook::HandFirst},
        {"connectionCreated", &onConnectionCreated, {}},
        {"connectionDeleted", &onConnectionDeleted, {}},
        {"connectionDeleted with its node", &onConnectionDeletedWithNode, {}},
        {"connectionDeleted with its scene", &onConnectionDeletedWithScene, {sceneItself()}, SHook::HandFirst},
        {"activeSceneChanged", &onActiveSceneChanged, {}},
        {"sceneAdded",
         &onSceneAdded,
         {{"a new scene is empty",
           {EPart::Connection, EPart::Node, EPart::Decoupler},
           {ETarget::AtHand},
           {ETarget::AtHand}}}},
        {"sceneRemoving", &onSceneRemoving, {}},
        {"sceneRemoved",
         &onSceneRemoved,
         {inItsScene("the scene is gone",
                     {EPart::Connection, EPart::Node, EPart::Decoupler, EPart::Scene, EPart::OwnedScene})}},
        {"updated", &onUpdated, {}},
        {"dataUpdated before the walk", &onDataUpdatedBeforeTheWalk, {}},
        {"dataUpdated after the walk", &onDataUpdatedAfterTheWalk, {}},
        {"newDataAvailable", &onNewDataAvailable, {}},
        {"infoInjected", &onInfoInjected, {}},
        {"inDataUpdated", &onInDataUpdated, {}, SHook::Decouplers},
        {"framesPerSecondChanged", &onFramesPerSecondChanged, {}, SHook::Decouplers},
        {"nPorts", &onNPorts, {}},
        {"creator of a model", &onCreator, {}},
        {"name in a search", &onNameInASearch, {}},
        {"isUnique in a save", &onIsUniqueInASave, {}},
        {"isUnique in an import", &onIsUniqueInAnImport, {}},
        {"dataType", &onDataType, {}},
        {"visitor of nodes", &onVisitor, {}},
        {"visitor of models", &onVisitorOfModels, {}},
        {"setInData", &onSetInData, {}},
        {"setInData of a new connection", &onFirstSetInData, {itsConnection("the connection is not in its scene yet")}},
        {"setInData of a connection that goes", &onLastSetInData, {}},
        {"setInData behind a decoupler", &onSetInDataBehindDecoupler, {}, SHook::Decouplers},
        {"outData", &onOutData, {}},
        {"converter", &onConverter, {}},
        {"save", &onSave, {}},
        {"restore", &onRestore, {}},
        {"restore from a document", &onRestoreFromDocument, {}},
        {"model destroyed", &onModelDestroyed, {connectionsOfItsNode()}},
        {"model replaced by a document", &onModelReplaced, {}},
        {"model destroyed with its scene",
         &onModelDestroyedWithScene,
         {sceneItself(), connectionsOfItsNode()},
         SHook::HandFirst},
        {"data replaced in a walk", &onDataReplacedInWalk, {}},
        {"data replaced through the proxy", &onDataReplacedThroughProxy, {}},
        {"data replaced in a decoupler", &onDataReplacedInDecoupler, {}, SHook::Decouplers},
        {"data destroyed after the walk", &onDataDestroyedAfterTheWalk, {}},
        {"data destroyed with its model", &onDataDestroyedWithModel, {connectionsOfItsNode()}},
        {"info replaced", &onInfoReplaced, {}},
        {"info destroyed with its model", &onInfoDestroyedWithModel, {connectionsOfItsNode()}},
        {"info destroyed with its scene",
         &onInfoDestroyedWithScene,
         {sceneItself(),
          inItsScene("the scene has lost its nodes", {EPart::Connection, EPart::Node, EPart::Decoupler})}},
    };
    return hooks;
}
