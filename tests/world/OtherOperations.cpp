// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "world/OperationSupport.h"

namespace {

// ---- what makes something

Proof addSource(CWorld& world, const SPlace&, const Arguments& arguments)
{
    if (arguments.c % 64 != 0 && world.service().scenes().size() >= mostScenes)
        return {};
    const auto info = QSharedPointer<CWorldInfo>::create();
    const CNodeBase* const node = world.addNode(world.makeSource(), info);
    world.result = node != nullptr;
    const CNodeScene* const own = node ? world.service().findSceneByInfo(info) : nullptr;
    if (node && (!own || own->nodes().count(node->id()) == 0))
        world.witness().complain("a source comes into its own scene");
    for (CNodeScene* const scene : world.scenes())
        world.witness().hear(*scene);
    return {};
}

void expectSource(STables& tables, const CWorld&, const SPlace&, const Arguments& arguments)
{
    if (arguments.c % 64 != 0 && int(tables.scenes.size()) >= mostScenes)
        return;
    const int scene = tables.addScene();
    tables.activate(scene);
    auto& node = tables.nodes[tables.addNode(scene, EKind::Camera)];
    node.isKnown = true;
    node.ofDocument = false;
    tables.result = 1;
}

EKind kindFor(const Arguments& arguments)
{
    static constexpr EKind kinds[]{EKind::Step,   EKind::View, EKind::Step,   EKind::Decoupler, EKind::Named,
                                   EKind::Worker, EKind::View, EKind::Worker, EKind::Plain};
    return kinds[arguments.a % 9];
}

Proof addModel(CWorld& world, const SPlace&, const Arguments& arguments)
{
    const EKind kind = kindFor(arguments);
    std::unique_ptr<ANodeDataModel> model = kind == EKind::Named
                                                ? std::make_unique<CWorldModel>(kind, QStringLiteral("named"))
                                                : world.service().createModel(QString::fromLatin1(nameOf(kind)));
    if (!world.hasService() || (world.service().getActiveScene() && !hasRoom(world.service().getActiveScene())))
        return {};
    world.result = world.addNode(std::move(model), {}) != nullptr;
    return {};
}

void expectModel(STables& tables, const CWorld& world, const SPlace&, const Arguments& arguments)
{
    const EKind kind = kindFor(arguments);
    const bool isMade = kind != EKind::Plain && hasRoom(world.service().getActiveScene()); // it has no identity
    tables.result = isMade;
    if (!isMade)
        return;
    auto& node = tables.nodes[tables.addNode(tables.active, kind)];
    node.isKnown = true;
    node.ofDocument = false;
}

Proof addUniqueSink(CWorld& world, const SPlace&, const Arguments&)
{
    world.result = world.addNode(std::make_unique<CWorldModel>(EKind::Screen), {}) != nullptr;
    return {};
}

void expectUniqueSink(STables& tables, const CWorld&, const SPlace&, const Arguments&)
{
    tables.activate(0);
    tables.result = 0;
}

Proof addAgain(CWorld& world, const SPlace& place, const Arguments&)
{
    const Core::CId id = place.node->id();
    ANodeDataModel* const model = namedModel(place);
    // Until a node was told, nobody can know its model.
    if (model && world.witness().isCreated(place.node))
        world.result = world.service().addNode(std::unique_ptr<ANodeDataModel>(model), {}) == id;
    return {};
}

void expectAgain(STables& tables, const CWorld& world, const SPlace& place, const Arguments&)
{
    const auto& node = tables.nodes.at(number(world, place.node));
    tables.result = node.isNamed;
    if (node.model == QLatin1String(nameOf(EKind::Camera)))
        tables.activate(node.scene);
}

Proof createNode(CWorld& world, const SPlace& place, const Arguments& arguments)
{
    if (!hasRoom(place.scene) || !place.scene->isRegistyValid())
        return {};
    const QPointer<CNodeScene> scene = place.scene;
    std::unique_ptr<CNodeDataModel> model =
        world.service().registry()->create(QString::fromLatin1(nameOf(kindFor(arguments))));
    if (scene)
        world.result = &scene->createNode(std::move(model)) != &CNodeScene::noNode();
    return {};
}

void expectNode(STables& tables, const CWorld& world, const SPlace& place, const Arguments& arguments)
{
    tables.result = hasRoom(place.scene) && place.scene->isRegistyValid();
    if (*tables.result)
        tables.addNode(number(world, place.scene), kindFor(arguments));
}

Proof createHalfConnection(CWorld& world, const SPlace& place, const Arguments& arguments)
{
    if (hasRoom(place.scene))
        world.result =
            place.scene->createConnection(ENodePortType(arguments.b % 3), *place.node, port(arguments.a)) != nullptr;
    return {};
}

void expectHalfConnection(STables& tables, const CWorld& world, const SPlace& place, const Arguments& arguments)
{
    const auto side = ENodePortType(arguments.b % 3);
    const int node = number(world, place.node);
    const int index = port(arguments.a);
    const int ports = STables::portsOf(tables.nodes.at(node).model);
    tables.result = hasRoom(place.scene) && (side == ENodePortType::None || (index >= 0 && index < ports));
    const bool isIn = side == ENodePortType::In;
    if (*tables.result)
        tables.links.push_back({number(world, place.scene), isIn ? node : 0, side == ENodePortType::Out ? -1 : index,
                                isIn ? 0 : node, side == ENodePortType::Out ? index : -1, false, true});
}

Proof connectModels(CWorld& world, const SPlace& place, const Arguments& arguments)
{
    if (!place.feeder || !hasRoom(place.scene))
        return {};
    auto* const feeder = qobject_cast<ANodeDataModel*>(place.feeder->nodeDataModel());
    const Core::CId id = world.service().connectModels(namedModel(place), port(arguments.a), feeder, port(arguments.b));
    world.result = id != Core::CId();
    return {};
}

void expectModelConnection(STables& tables, const CWorld& world, const SPlace& place, const Arguments& arguments)
{
    const int out = place.feeder ? number(world, place.feeder) : 0;
    const int in = number(world, place.node);
    const bool isPossible =
        out != 0 && hasRoom(place.scene) && tables.nodes.at(in).isKnown && tables.nodes.at(out).isKnown;
    tables.result =
        isPossible && tables.addLink(number(world, place.scene), in, port(arguments.a), out, port(arguments.b), false);
    if (*tables.result)
        tables.announce(out, port(arguments.b));
}

// ---- what removes something

/// Removes a node, and a sink that is then alone, with its scene.
void expectServiceRemoval(STables& tables, int node, bool removesLoneSink)
{
    const int scene = tables.nodes.at(node).scene;
    tables.removeNode(node);
    int last = 0;
    int count = 0;
    for (const auto& left : tables.nodes) {
        if (left.second.scene == scene) {
            last = left.first;
            ++count;
        }
    }
    if (!removesLoneSink || count != 1 || !tables.nodes.at(last).isSink)
        return;
    tables.told.emplace_back(EHook::SceneRemoving, scene);
    tables.removeScene(scene);
}

Proof removeNodeOfService(CWorld& world, const SPlace& place, const Arguments& arguments)
{
    const QPointer<CNodeBase> node = world.service().findNode(place.node->id());
    world.service().removeNode(place.node->id(), arguments.a % 2 == 1);
    return goes(node.data());
}

void expectServiceNodeRemoval(STables& tables, const CWorld& world, const SPlace& place, const Arguments& arguments)
{
    expectServiceRemoval(tables, number(world, world.service().findNode(place.node->id())), arguments.a % 2 == 1);
}

Proof removeNodeByModel(CWorld& world, const SPlace& place, const Arguments& arguments)
{
    ANodeDataModel* model = namedModel(place);
    world.service().removeNodeByModel(model, arguments.a % 2 == 1);
    return {};
}

void expectModelRemoval(STables& tables, const CWorld& world, const SPlace& place, const Arguments& arguments)
{
    const int node = number(world, place.node);
    if (tables.nodes.at(node).isKnown)
        expectServiceRemoval(tables, node, arguments.a % 2 == 1);
}

Proof destroyService(CWorld& world, const SPlace&, const Arguments& arguments)
{
    if (arguments.a >= 250)
        world.destroyService();
    return {};
}

void expectServiceDestruction(STables& tables, const CWorld&, const SPlace&, const Arguments& arguments)
{
    tables.isUnknown = arguments.a >= 250;
}

// ---- data, documents, and the rest

Proof send(CWorld& world, const SPlace& place, const Arguments& arguments)
{
    CWorldModel* const model = place.model();
    if (model && model->isPassing())
        model->send(arguments.a % 8 == 7 ? CNodeDataPtr() : world.makeNextData());
    return {};
}

void expectSending(STables& tables, const CWorld& world, const SPlace& place, const Arguments&)
{
    const CWorldModel* const model = place.model();
    if (!model || !model->isPassing())
        return;
    const int node = number(world, place.node);
    tables.nodes.at(node).isPassing = false; // it does not pass its own on again
    tables.announce(node, 0);
}

Proof announce(CWorld&, const SPlace& place, const Arguments& arguments)
{
    place.node->onDataUpdated(port(arguments.a));
    return {};
}

void expectAnnouncement(STables& tables, const CWorld& world, const SPlace& place, const Arguments& arguments)
{
    tables.announce(number(world, place.node), port(arguments.a));
}

Proof saveToMemory(CWorld& world, const SPlace& place, const Arguments&)
{
    const QByteArray document = place.scene->saveToMemory();
    world.saved = document;
    return {};
}

Proof visit(CWorld&, const SPlace& place, const Arguments& arguments)
{
    if (arguments.a % 2 == 0)
        place.scene->iterateOverNodes([](CNodeBase* node) { IHookListener::call(EHook::Visitor, node); });
    else
        place.scene->iterateOverNodeData([](CNodeDataModel* model) { IHookListener::call(EHook::Visitor, model); });
    return {};
}

QJsonObject anyOf(const QByteArray& document, const char* key, const Arguments& arguments)
{
    const QJsonArray array = QJsonDocument::fromJson(document).object().value(QLatin1String(key)).toArray();
    return array.isEmpty() ? QJsonObject() : array.at(arguments.a % array.size()).toObject();
}

Proof restoreNode(CWorld& world, const SPlace& place, const Arguments& arguments)
{
    const QJsonObject json = anyOf(world.saved, "nodes", arguments);
    if (json.isEmpty() || !hasRoom(place.scene))
        return {};
    world.witness().onReplacement();
    world.result = &place.scene->restoreNode(json) != &CNodeScene::noNode();
    return {};
}

void expectRestoredNode(STables& tables, const CWorld& world, const SPlace& place, const Arguments& arguments)
{
    const QJsonObject json = anyOf(world.saved, "nodes", arguments);
    if (json.isEmpty() || !hasRoom(place.scene))
        return;
    const int scene = number(world, place.scene);
    tables.isUnknown = hasOtherRegistry(world, *place.scene);
    tables.loadNode(scene, json);
    const QString name = json["model"]["name"].toString();
    tables.result = !json["model"]["is_unique"].toBool() ||
                    std::any_of(tables.nodes.begin(), tables.nodes.end(), [&](const auto& node) {
                        return node.second.scene == scene && node.second.model == name;
                    });
}

Proof restoreConnection(CWorld& world, const SPlace& place, const Arguments& arguments)
{
    const QJsonObject json = anyOf(world.saved, "connections", arguments);
    if (hasRoom(place.scene))
        world.result = place.scene->restoreConnection(json) != nullptr;
    return {};
}

void expectRestoredConnection(STables& tables, const CWorld& world, const SPlace& place, const Arguments& arguments)
{
    if (!hasRoom(place.scene))
        return;
    const auto before = tables.links.size();
    tables.isUnknown = hasOtherRegistry(world, *place.scene);
    tables.loadLink(number(world, place.scene), anyOf(world.saved, "connections", arguments));
    tables.result = tables.links.size() != before;
    if (*tables.result)
        tables.announce(tables.links.back().out, tables.links.back().outPort);
}

Proof setTypeConverter(CWorld& world, const SPlace& place, const Arguments& arguments)
{
    place.connection->setTypeConverter(arguments.a % 2 == 0 ? world.converter() : NodeDataConverter());
    return {};
}

void expectConverter(STables& tables, const CWorld& world, const SPlace& place, const Arguments& arguments)
{
    const auto link = STables::linkOf(world, *place.scene, *place.connection);
    if (link.in != 0 && link.out != 0)
        std::find(tables.links.begin(), tables.links.end(), link)->isConverting = arguments.a % 2 == 0;
}

Proof keepConnection(CWorld& world, const SPlace& place, const Arguments& arguments)
{
    if (arguments.a % 2 == 0) {
        // One that leads into another scene goes on leading there when its own scene is destroyed.
        if (CWorld::staysInScene(*place.scene, *place.connection))
            world.kept.push_back(place.scene->connections().at(place.connection->id()));
        return {};
    }
    const auto dropped = std::move(world.kept); // which runs foreign code
    world.kept.clear();
    return {};
}

void expectKept(STables& tables, const CWorld&, const SPlace&, const Arguments& arguments)
{
    tables.isUnknown = arguments.a % 2 != 0; // what goes was told before
}

Proof setNodeToPort(CWorld&, const SPlace& place, const Arguments&)
{
    CNodeConnection& connection = *place.connection;
    const int index = connection.getPortIndex(ENodePortType::In);
    if (CNodeBase* const in = std::as_const(connection).getNode(ENodePortType::In))
        connection.setNodeToPort(*in, ENodePortType::In, index);
    return {};
}

Proof setInfo(CWorld&, const SPlace& place, const Arguments& arguments)
{
    const auto info = QSharedPointer<CWorldInfo>::create();
    place.node->nodeDataModel()->setInfo(arguments.a % 2 == 0 ? info : nullptr);
    return {};
}

Proof setRegistry(CWorld& world, const SPlace& place, const Arguments& arguments)
{
    place.scene->setRegistry(arguments.a % 8 == 7 ? std::make_shared<CNodeDataModelRegistry>()
                                                  : world.service().registry());
    return {};
}

Proof registerTypeConverter(CWorld& world, const SPlace&, const Arguments&)
{
    world.service().registerTypeConverter({otherType(), CTestData::defaultType()}, world.converter());
    return {};
}

Proof setRate(CWorld&, const SPlace& place, const Arguments& arguments)
{
    place.decouplerModel().setFramesPerSecond(1 + arguments.a);
    return {};
}

Proof feedWorker(CWorld& world, const SPlace& place, const Arguments& arguments)
{
    place.workerModel().feed(arguments.a % 4 == 3 ? CNodeDataPtr() : world.makeNextData());
    return {};
}

Proof letResultsArrive(CWorld&, const SPlace& place, const Arguments&)
{
    place.workerModel().letResultsArrive();
    return {};
}

void expectResults(STables& tables, const CWorld&, const SPlace&, const Arguments&)
{
    tables.hasWalks = true; // one for each
}

Proof setPolicy(CWorld&, const SPlace& place, const Arguments& arguments)
{
    const QPointer<CNodeBase> worker = place.worker;
    place.workerModel().setPolicy(AWorkerNodeDataModel::EPolicy(arguments.a % 3));
    if (worker)
        place.workerModel().setMostWaiting(1 + arguments.b % 4);
    return {};
}

Proof setParallelism(CWorld&, const SPlace& place, const Arguments& arguments)
{
    place.workerModel().setParallelism(1 + arguments.a % 3);
    return {};
}

Proof restoreItself(CWorld& world, const SPlace& place, const Arguments&)
{
    const QPointer<CNodeBase> node = place.node;
    const QJsonObject json = node->save();
    if (node && world.hasService())
        node->restore(json);
    return {};
}

Proof throwSomething(CWorld&, const SPlace&, const Arguments&)
{
    throw SThrown();
}

void expectNothing(STables&, const CWorld&, const SPlace&, const Arguments&) {}

void expectAnything(STables& tables, const CWorld&, const SPlace&, const Arguments&)
{
    tables.isUnknown = true;
}

} // namespace

std::vector<SOperation> otherOperations()
{
    constexpr bool ofService = true;
    return {
        {"addNode of a source", EPart::Service, &addSource, &expectSource, 4, ofService},
        {"addNode", EPart::Service, &addModel, &expectModel, 6, ofService},
        {"addNode of a unique sink", EPart::Service, &addUniqueSink, &expectUniqueSink, 1, ofService},
        {"addNode again", EPart::Node, &addAgain, &expectAgain, 2, ofService},
        {"createNode", EPart::Scene, &createNode, &expectNode, 8},
        {"createConnection at one end", EPart::Node, &createHalfConnection, &expectHalfConnection, 1},
        {"connectModels", EPart::Node, &connectModels, &expectModelConnection, 6, ofService},
        {"removeNode of the service", EPart::Node, &removeNodeOfService, &expectServiceNodeRemoval, 1, ofService, {1}},
        {"removeNodeByModel", EPart::Node, &removeNodeByModel, &expectModelRemoval, 1, ofService, {1}},
        {"service destroyed", EPart::Service, &destroyService, &expectServiceDestruction, 1, ofService, {250}},
        {"setData", EPart::Node, &send, &expectSending, 10},
        {"onDataUpdated", EPart::Node, &announce, &expectAnnouncement, 2},
        {"saveToMemory", EPart::Scene, &saveToMemory, &expectNothing, 4},
        {"iterateOverNodes", EPart::Scene, &visit, &expectNothing, 2},
        {"restoreNode", EPart::Scene, &restoreNode, &expectRestoredNode, 2},
        {"restoreConnection", EPart::Scene, &restoreConnection, &expectRestoredConnection, 2},
        {"setTypeConverter", EPart::Connection, &setTypeConverter, &expectConverter, 3},
        {"connection kept", EPart::Connection, &keepConnection, &expectKept, 1},
        {"setNodeToPort", EPart::Connection, &setNodeToPort, &expectNothing, 3},
        {"setInfo", EPart::Node, &setInfo, &expectNothing, 1},
        {"setRegistry", EPart::Scene, &setRegistry, &expectNothing, 1},
        {"registerTypeConverter", EPart::Service, &registerTypeConverter, &expectNothing, 1, ofService},
        {"setFramesPerSecond", EPart::Decoupler, &setRate, &expectNothing, 4},
        {"setInData of a worker", EPart::Worker, &feedWorker, &expectNothing, 6},
        {"results of a worker arrive", EPart::Worker, &letResultsArrive, &expectResults, 10},
        {"setPolicy", EPart::Worker, &setPolicy, &expectNothing, 3},
        {"setParallelism", EPart::Worker, &setParallelism, &expectNothing, 2},
        {"restore", EPart::Node, &restoreItself, &expectNothing, 1},
        {"exception", EPart::Nothing, &throwSomething, &expectAnything, 2},
    };
}
