// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// The table of operations, and those that destroy or rewire something. The others are in OtherOperations.cpp.

#include "world/OperationSupport.h"

#include <set>

namespace {

constexpr std::size_t destructiveOperations = 12;

template <bool isAtOnce>
Proof deleteConnection(CWorld& world, const SPlace& place, const Arguments&)
{
    const QPointer<CNodeScene> scene = place.scene;
    const QPointer<CNodeConnection> connection = place.connection;
    const Core::CId id = connection->id();
    const bool isPutOff = !isAtOnce && world.witness().isTelling(scene) && !scene->isBeingDestroyed();
    if (isAtOnce)
        scene->deleteConnectionNow(*connection);
    else
        scene->deleteConnection(*connection);
    if (isPutOff && !connection)
        return [] { return false; }; // other handlers have not heard of it
    return [=, &world] {
        const bool isOut = !scene || scene->connections().count(id) == 0;
        return !connection || (!world.kept.empty() && isOut);
    };
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
    std::vector<QStringList> sources; // names by input port
    QStringList feeds;
};

/// A document that the arguments choose. The plainest adds a node behind the source of \a place's scene.
std::vector<SElement> elementsFor(const SPlace& place, const Arguments& arguments)
{
    static constexpr EKind kinds[]{EKind::Step, EKind::View, EKind::Decoupler, EKind::Worker};
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
            sources.append(QJsonArray::fromStringList(names));
        json.append(QJsonObject{{"name", QStringLiteral("label %1").arg(element.label)},
                                {"model", QJsonObject{{"name", element.model}}},
                                {"unique_sources", sources},
                                {"connection", QJsonArray{QJsonValue(QJsonArray::fromStringList(element.feeds))}}});
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
    const bool isPlain = arguments.a == 0 && arguments.b == 0 && scene && !hasOtherRegistry(world, *scene);
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

/// What works in other threads goes.
template <QPointer<CNodeBase> SPlace::*which>
Proof shutDown(CWorld&, const SPlace& place, const Arguments&)
{
    const QPointer<CNodeBase> node = place.*which;
    place.scene->removeNode(*node);
    return goes(node.data());
}

template <QPointer<CNodeBase> SPlace::*which>
void expectShutDown(STables& tables, const CWorld& world, const SPlace& place, const Arguments&)
{
    tables.removeNode(number(world, place.*which));
}

} // namespace

QString importDocumentFor(const SPlace& place)
{
    return jsonOf(elementsFor(place, {}));
}

const std::vector<SOperation>& operations()
{
    static const std::vector<SOperation> all = [] {
        constexpr bool ofService = true;
        std::vector<SOperation> found{
            // These destroy or rewire something.
            {"deleteConnection", EPart::Connection, &deleteConnection<false>, &expectDeletion, 3},
            {"deleteConnectionNow", EPart::Connection, &deleteConnection<true>, &expectDeletion, 3},
            {"createConnection", EPart::Node, &createConnection, &expectConnection, 10},
            {"removeNode", EPart::Node, &removeNode, &expectRemoval, 2},
            {"clearScene", EPart::Scene, &clearScene, &expectClear, 1},
            {"loadFromMemory", EPart::Scene, &loadFromMemory, &expectLoad, 3},
            {"scene destroyed", EPart::OwnedScene, &destroyScene, &expectDestruction, 1},
            {"removeSceneOfNode", EPart::Node, &removeSceneOfNode, &expectSceneRemoval, 3, ofService},
            {"setActiveScene", EPart::Scene, &setActiveScene, &expectActive, 4, ofService},
            {"importDocument", EPart::Scene, &importDocument, &expectImport, 3, ofService},
            {"decoupler shut down", EPart::Decoupler, &shutDown<&SPlace::decoupler>,
             &expectShutDown<&SPlace::decoupler>, 1},
            {"worker removed", EPart::Worker, &shutDown<&SPlace::worker>, &expectShutDown<&SPlace::worker>, 1},
        };
        Q_ASSERT(found.size() == destructiveOperations);
        const std::vector<SOperation> others = otherOperations();
        found.insert(found.end(), others.begin(), others.end());
        return found;
    }();
    return all;
}

std::vector<const SOperation*> matrixOperations()
{
    std::vector<const SOperation*> found;
    for (const SOperation& operation : operations()) {
        if (found.size() < destructiveOperations || operation.isOfService)
            found.push_back(&operation);
    }
    return found;
}
