// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "world/Operations.h"

#include "world/STables.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <set>

using namespace Plugin::Halvex;

namespace {

using Arguments = SArguments;

// Enough for everything to happen, and few enough for a difference to be understood and for walks to end.
constexpr std::size_t mostNodes = 10;
constexpr std::size_t mostConnections = 16;
constexpr int mostScenes = 4;

bool hasRoom(const CNodeScene* scene)
{
    return scene && scene->nodes().size() < mostNodes && scene->connections().size() < mostConnections;
}

int number(const CWorld& world, const CNodeScene* scene)
{
    return world.witness().numberOf(scene);
}

int number(const CWorld& world, const CNodeBase* node)
{
    return world.witness().numberOf(node);
}

ANodeDataModel* namedModel(const SPlace& place)
{
    return qobject_cast<ANodeDataModel*>(place.node->nodeDataModel());
}

bool hasOtherRegistry(const CWorld& world, const CNodeScene& scene)
{
    return &scene.registry() != world.service().registry().get();
}

/// A port: mostly there, seldom not.
int port(int argument)
{
    return argument % 16 == 15 ? 2 : argument % 16 == 14 ? -1 : argument % 2;
}

// ---- those of the matrix

Proof goes(const QPointer<QObject>& object)
{
    return [object] { return !object; };
}

template <void (CNodeScene::*deleteIt)(CNodeConnection&)>
Proof deleteConnection(CWorld& world, const SPlace& place, const Arguments&)
{
    const bool isKept = !world.kept.empty();
    const QPointer<CNodeScene> scene = place.scene;
    const QPointer<CNodeConnection> connection = place.connection;
    const Core::CId id = connection->id();
    constexpr bool waits = deleteIt == &CNodeScene::deleteConnection;
    const bool isPutOff = waits && world.witness().isTelling(scene) && !scene->isBeingDestroyed();
    (*place.scene.*deleteIt)(*place.connection);
    if (isPutOff && !connection)
        return [] { return false; }; // other handlers have not heard of it
    return [=] { return !connection || (isKept && (!scene || scene->connections().count(id) == 0)); };
}

void expectDeletion(STables& tables, const CWorld& world, const SPlace& place, const Arguments&)
{
    tables.isDeletion = true;
    tables.removeLink(STables::linkOf(world, *place.scene, *place.connection));
}

Proof createConnection(CWorld& world, const SPlace& place, const Arguments& arguments)
{
    const QPointer<CNodeScene> scene = place.scene;
    const QPointer<CNodeBase> node = place.node;
    const QPointer<CNodeBase> feeder = place.feeder;
    if (!feeder || (arguments.c % 64 != 0 && !hasRoom(scene)))
        return {};
    const bool isPossible = port(arguments.a) >= 0 && port(arguments.b) >= 0 && port(arguments.a) < 2 &&
                            port(arguments.b) < 2 && dynamic_cast<CWorldModel*>(node->nodeDataModel()) &&
                            dynamic_cast<CWorldModel*>(feeder->nodeDataModel());
    const NodeDataConverter converter = arguments.c % 3 == 1 ? world.converter() : NodeDataConverter();
    const auto made = scene->createConnection(*node, port(arguments.a), *feeder, port(arguments.b), converter);
    const bool isMade = made != nullptr;
    world.result = isMade;
    return [=] { return isMade || !isPossible || !node || !feeder || !scene; }; // a node that is going takes none
}

void expectConnection(STables& tables, const CWorld& world, const SPlace& place, const Arguments& arguments)
{
    if (!place.feeder || (arguments.c % 64 != 0 && !hasRoom(place.scene)))
        return;
    const int out = number(world, place.feeder);
    tables.result = tables.addLink(number(world, place.scene), number(world, place.node), port(arguments.a), out,
                                   port(arguments.b), arguments.c % 3 == 1);
    if (*tables.result)
        tables.announce(out, port(arguments.b));
}

Proof removeNode(CWorld&, const SPlace& place, const Arguments&)
{
    const QPointer<CNodeBase> node = place.node;
    place.scene->removeNode(*node);
    return goes(node.data());
}

void expectRemoval(STables& tables, const CWorld& world, const SPlace& place, const Arguments&)
{
    tables.removeNode(number(world, place.node));
}

Proof clearScene(CWorld&, const SPlace& place, const Arguments&)
{
    std::vector<QPointer<CNodeBase>> nodes;
    place.scene->iterateOverNodes([&nodes](CNodeBase* node) { nodes.emplace_back(node); });
    place.scene->clearScene();
    return [nodes] { return std::all_of(nodes.begin(), nodes.end(), [](const auto& node) { return !node; }); };
}

void expectClear(STables& tables, const CWorld& world, const SPlace& place, const Arguments&)
{
    tables.clearScene(number(world, place.scene));
}

QByteArray documentFor(const CWorld& world, const SPlace& place, const Arguments& arguments)
{
    return arguments.a % 2 == 0 ? CWorld::sceneDocument(place) : world.saved;
}

Proof loadFromMemory(CWorld& world, const SPlace& place, const Arguments& arguments)
{
    const QPointer<CNodeScene> scene = place.scene;
    if (arguments.c % 64 != 0 && !hasRoom(scene))
        return {};
    const auto present = [&scene, &world] {
        std::set<int> nodes;
        for (const auto& entry : scene->nodes())
            nodes.insert(number(world, entry.second.get()));
        return nodes;
    };
    const auto before = present();
    const int next = world.witness().nextNode();
    world.witness().onReplacement();
    scene->loadFromMemory(documentFor(world, place, arguments));
    const bool isLoaded = !scene || present() != before || world.witness().nextNode() != next;
    return [=] { return isLoaded || !scene || arguments.a % 2 != 0; }; // one that is going takes nothing in
}

void expectLoad(STables& tables, const CWorld& world, const SPlace& place, const Arguments& arguments)
{
    if (arguments.c % 64 != 0 && !hasRoom(place.scene))
        return;
    if ((arguments.a % 2 == 0 && !place.node) || hasOtherRegistry(world, *place.scene))
        tables.isUnknown = true; // its id is made up anew
    else
        tables.load(number(world, place.scene), documentFor(world, place, arguments));
}

Proof destroyScene(CWorld& world, const SPlace& place, const Arguments&)
{
    const QPointer<CNodeScene> scene = place.scene;
    world.destroyScene(scene);
    return [isGone = !scene] { return isGone; };
}

void expectDestruction(STables& tables, const CWorld& world, const SPlace& place, const Arguments&)
{
    tables.removeScene(number(world, place.scene));
}

Proof removeSceneOfNode(CWorld& world, const SPlace& place, const Arguments& arguments)
{
    const QPointer<CNodeScene> scene = place.scene;
    const QPointer<CNodeBase> node = place.node;
    const bool isHere = world.service().findNode(node->id()) == node; // two scenes may have read one document
    if (arguments.a % 2 == 1 && isHere)
        world.service().removeSceneOfNode(node->id());
    else
        world.service().removeSceneOfNode(node.data());
    return [=] { return !scene || !node; }; // a node that has left its scene has none
}

void expectSceneRemoval(STables& tables, const CWorld& world, const SPlace& place, const Arguments&)
{
    const int scene = number(world, place.scene);
    tables.told.emplace_back(EHook::SceneRemoving, scene);
    tables.removeScene(scene);
}

Proof setActiveScene(CWorld& world, const SPlace& place, const Arguments&)
{
    const QPointer<CNodeScene> scene = place.scene;
    const auto& all = world.witness().told();
    const auto told = all.size();
    const int which = number(world, scene);
    const bool isRemoving = told != 0 && all.back().signal == EHook::SceneRemoving && all.back().scene == which;
    world.service().setActiveScene(scene);
    const bool isActive =
        !world.hasService() || world.service().getActiveScene() == scene || world.witness().told().size() > told + 1;
    return [=, &world] {
        // A scene that is about to be removed is still whole, and so its activation is told before it goes.
        const auto& signals = world.witness().told();
        const auto isIt = [which](const auto& s) { return s.signal == EHook::ActiveSceneChanged && s.scene == which; };
        const bool isTold = std::any_of(signals.begin() + long(told), signals.end(), isIt);
        return (isActive || !scene) && (!isRemoving || isTold || world.witness().hasHostDestroyedScene());
    };
}

void expectActive(STables& tables, const CWorld& world, const SPlace& place, const Arguments&)
{
    tables.activate(number(world, place.scene));
}

/// An element of an import document; labels are small numbers.
struct SElement
{
    int label;
    QString model;
    std::vector<std::vector<QString>> sources; // names by input port
    std::vector<QString> feeds;
};

/// A document that the arguments choose. The plainest adds a node behind the source of \a place's scene.
std::vector<SElement> elementsFor(const SPlace& place, const Arguments& arguments)
{
    static constexpr EKind kinds[]{EKind::Step, EKind::View, EKind::Decoupler, EKind::Plain};
    const auto label = [](int which) { return QStringLiteral("label %1").arg(which % 4); };
    const QString source = arguments.c / 64 == 1 ? QStringLiteral("named") : place.sourceName;
    std::vector<SElement> elements{{0, QString::fromLatin1(nameOf(EKind::Step)), {{source}}, {}}};
    int rest = arguments.a * 256 + arguments.b;
    for (; rest != 0; rest /= 16) {
        elements.push_back({rest % 3, QString::fromLatin1(nameOf(kinds[rest % 4])), {{}, {source}}, {}});
        elements.back().sources[0].push_back(label(rest / 4));
        elements.back().feeds.push_back(label(rest / 2));
    }
    if (arguments.b % 32 == 31)
        elements.back().model = QStringLiteral("Unknown");
    return elements;
}

QString jsonOf(const std::vector<SElement>& elements)
{
    QJsonArray json;
    for (const SElement& element : elements) {
        QJsonArray sources;
        for (const auto& names : element.sources)
            sources.append(QJsonArray::fromStringList(QStringList(names.begin(), names.end())));
        const QStringList feeds(element.feeds.begin(), element.feeds.end());
        json.append(QJsonObject{{"name", QStringLiteral("label %1").arg(element.label)},
                                {"model", QJsonObject{{"name", element.model}}},
                                {"unique_sources", sources},
                                {"connection", QJsonArray{QJsonArray::fromStringList(feeds)}}});
    }
    return QString::fromUtf8(QJsonDocument(json).toJson(QJsonDocument::Compact));
}

Proof importDocument(CWorld& world, const SPlace& place, const Arguments& arguments)
{
    const QPointer<CNodeScene> scene = place.scene;
    if (arguments.c % 64 != 0 && !hasRoom(scene))
        return {};
    const QString document = jsonOf(elementsFor(place, arguments));
    world.service().setActiveScene(scene);
    if (!world.hasService() || !scene)
        return {};
    CNodeService& service = world.service();
    const std::size_t before = scene->nodes().size();
    const int next = world.witness().nextNode();
    world.witness().onReplacement();
    const bool isDone = arguments.c % 3 != 2 ? service.importDocument(document)
                                             : (service.addStoredDocument(document), service.importStoredDocuments());
    world.result = isDone;
    const bool isPlain = arguments.a == 0 && arguments.b == 0;
    const bool isImported =
        isDone && scene && (scene->nodes().size() == before + 1 || world.witness().nextNode() > next + 1);
    return [=] { return isImported || !isPlain || !scene; };
}

void expectImport(STables& tables, const CWorld& world, const SPlace& place, const Arguments& arguments)
{
    if (arguments.c % 64 != 0 && !hasRoom(place.scene))
        return;
    const int scene = number(world, place.scene);
    tables.activate(scene);
    tables.isUnknown =
        arguments.c % 3 == 2 || hasOtherRegistry(world, *place.scene); // what is stored already is imported as well
    std::map<QString, int> nodes;
    for (const auto& node : tables.nodes) {
        if (node.second.scene == scene && !node.second.uniqueName.isEmpty() &&
            !nodes.emplace(node.second.uniqueName, node.first).second)
            tables.isUnknown = true; // the first in a table
    }
    const auto elements = elementsFor(place, arguments);
    std::map<QString, QString> ids; // of what is made, for as long as the import lasts
    for (const SElement& element : elements) {
        QString& id = ids[QStringLiteral("label %1").arg(element.label)];
        id = id.isEmpty() ? Core::CId::createId().toString() : id;
        tables.loadNode(scene, {{"id", id}, {"model", QJsonObject{{"name", element.model}}}});
        for (const auto& names : element.sources) {
            for (const QString& name : names) {
                const int source = nodes.count(name) != 0 ? nodes[name] : 0;
                if (source == 0 || tables.nodes.at(source).model != QLatin1String(nameOf(EKind::Named)))
                    continue;
                // One that is not unique is made anew.
                const QString sourceId = tables.nodes.at(source).id;
                tables.loadNode(scene, {{"id", sourceId}, {"model", QJsonObject{{"name", nameOf(EKind::Named)}}}});
                nodes[name] = tables.find(scene, sourceId);
            }
        }
    }
    const auto nodeOf = [&](const QString& name) {
        if (ids.count(name) != 0)
            return tables.find(scene, ids[name]);
        return nodes.count(name) != 0 ? nodes[name] : tables.find(scene, QString()); // one without an id
    };
    for (const SElement& element : elements) {
        const int own = nodeOf(QStringLiteral("label %1").arg(element.label));
        for (std::size_t input = 0; input < element.sources.size() && !tables.isThrown; ++input) {
            for (const QString& name : element.sources[input])
                tables.addLink(scene, own, int(input), nodeOf(name), int(input), false);
        }
        for (const QString& name : element.feeds) {
            if (!tables.isThrown)
                tables.addLink(scene, nodeOf(name), 0, own, 0, false);
        }
    }
    for (const auto& made : ids) {
        if (const int node = tables.find(scene, made.second))
            tables.nodes[node].id.clear();
    }
    tables.result = !std::exchange(tables.isThrown, false);
    tables.hasWalks = true;
}

Proof shutDecouplerDown(CWorld&, const SPlace& place, const Arguments&)
{
    const QPointer<CNodeBase> decoupler = place.decoupler;
    place.scene->removeNode(*decoupler);
    return goes(decoupler.data());
}

void expectShutDown(STables& tables, const CWorld& world, const SPlace& place, const Arguments&)
{
    tables.removeNode(number(world, place.decoupler));
}

// ---- what makes something

Proof addSource(CWorld& world, const SPlace&, const Arguments&)
{
    if (world.service().scenes().size() >= mostScenes)
        return {};
    const auto info = QSharedPointer<CWorldInfo>::create();
    const Core::CId id = world.service().addNode(world.makeSource(), info);
    world.result = world.hasService() && id != Core::CId() && world.service().findNode(id) &&
                   world.service().findSceneByInfo(info);
    for (CNodeScene* const scene : world.scenes())
        world.witness().hear(*scene);
    return {};
}

void expectSource(STables& tables, const CWorld&, const SPlace&, const Arguments&)
{
    if (int(tables.scenes.size()) >= mostScenes)
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
    static constexpr EKind kinds[]{EKind::Step,  EKind::View, EKind::Step, EKind::Decoupler,
                                   EKind::Named, EKind::View, EKind::Step, EKind::Plain};
    return kinds[arguments.a % 8];
}

Proof addModel(CWorld& world, const SPlace&, const Arguments& arguments)
{
    const EKind kind = kindFor(arguments);
    std::unique_ptr<ANodeDataModel> model = kind == EKind::Named
                                                ? std::make_unique<CWorldModel>(kind, QStringLiteral("named"))
                                                : world.service().createModel(QString::fromLatin1(nameOf(kind)));
    if (!world.hasService() || (world.service().getActiveScene() && !hasRoom(world.service().getActiveScene())))
        return {};
    const Core::CId id = world.service().addNode(std::move(model), {});
    world.result = world.hasService() && id != Core::CId() && world.service().findNode(id);
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
    const Core::CId id = world.service().addNode(std::make_unique<CWorldModel>(EKind::Screen), {});
    world.result = id != Core::CId();
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
    if (model && number(world, place.node) != 0)
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
    const int ports = tables.nodes.at(node).model == QLatin1String(nameOf(EKind::Decoupler)) ? 1 : 2;
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

QString importDocumentFor(const SPlace& place)
{
    return jsonOf(elementsFor(place, {}));
}

const std::vector<SOperation>& operations()
{
    constexpr bool ofService = true;
    static const std::vector<SOperation> all{
        {"deleteConnection", EPart::Connection, &deleteConnection<&CNodeScene::deleteConnection>, &expectDeletion, 3},
        {"deleteConnectionNow", EPart::Connection, &deleteConnection<&CNodeScene::deleteConnectionNow>, &expectDeletion,
         3},
        {"createConnection", EPart::Node, &createConnection, &expectConnection, 10},
        {"removeNode", EPart::Node, &removeNode, &expectRemoval, 2},
        {"clearScene", EPart::Scene, &clearScene, &expectClear, 1},
        {"loadFromMemory", EPart::Scene, &loadFromMemory, &expectLoad, 3},
        {"scene destroyed", EPart::OwnedScene, &destroyScene, &expectDestruction, 1},
        {"removeSceneOfNode", EPart::Node, &removeSceneOfNode, &expectSceneRemoval, 3, ofService},
        {"setActiveScene", EPart::Scene, &setActiveScene, &expectActive, 4, ofService},
        {"importDocument", EPart::Scene, &importDocument, &expectImport, 3, ofService},
        {"decoupler shut down", EPart::Decoupler, &shutDecouplerDown, &expectShutDown, 1},

        {"addNode of a source", EPart::Service, &addSource, &expectSource, 4, ofService},
        {"addNode", EPart::Service, &addModel, &expectModel, 6, ofService},
        {"addNode of a unique sink", EPart::Service, &addUniqueSink, &expectUniqueSink, 1, ofService},
        {"addNode again", EPart::Node, &addAgain, &expectAgain, 2, ofService},
        {"createNode", EPart::Scene, &createNode, &expectNode, 8},
        {"createConnection at one end", EPart::Node, &createHalfConnection, &expectHalfConnection, 1},
        {"connectModels", EPart::Node, &connectModels, &expectModelConnection, 6, ofService},
        {"removeNode of the service", EPart::Node, &removeNodeOfService, &expectServiceNodeRemoval, 1, ofService},
        {"removeNodeByModel", EPart::Node, &removeNodeByModel, &expectModelRemoval, 1, ofService},
        {"service destroyed", EPart::Service, &destroyService, &expectServiceDestruction, 1, ofService},
        {"setData", EPart::Node, &send, &expectSending, 10},
        {"onDataUpdated", EPart::Node, &announce, &expectAnnouncement, 2},
        {"saveToMemory", EPart::Scene, &saveToMemory, &expectNothing, 4},
        {"iterateOverNodes", EPart::Scene, &visit, &expectNothing, 2},
        {"restoreNode", EPart::Scene, &restoreNode, &expectRestoredNode, 2},
        {"restoreConnection", EPart::Scene, &restoreConnection, &expectRestoredConnection, 2},
        {"setTypeConverter", EPart::Connection, &setTypeConverter, &expectConverter, 2},
        {"connection kept", EPart::Connection, &keepConnection, &expectKept, 1},
        {"setNodeToPort", EPart::Connection, &setNodeToPort, &expectNothing, 1},
        {"setInfo", EPart::Node, &setInfo, &expectNothing, 1},
        {"setRegistry", EPart::Scene, &setRegistry, &expectNothing, 1},
        {"registerTypeConverter", EPart::Service, &registerTypeConverter, &expectNothing, 1, ofService},
        {"setFramesPerSecond", EPart::Decoupler, &setRate, &expectNothing, 2},
        {"restore", EPart::Node, &restoreItself, &expectNothing, 1},
        {"exception", EPart::Nothing, &throwSomething, &expectAnything, 2},
    };
    return all;
}
