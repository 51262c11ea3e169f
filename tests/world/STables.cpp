// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "world/STables.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <set>

using namespace Plugin::Halvex;

namespace {

CNodeBase* nodeOf(const CWorld& world, int number)
{
    for (const CNodeScene* const scene : world.scenes()) {
        for (const auto& entry : scene->nodes()) {
            if (world.witness().numberOf(entry.second.get()) == number)
                return entry.second.get();
        }
    }
    return nullptr;
}

bool isRegistered(const QString& model)
{
    for (const EKind kind : {EKind::Step, EKind::View, EKind::Named, EKind::Plain, EKind::Decoupler, EKind::Worker}) {
        if (model == QLatin1String(nameOf(kind)))
            return true;
    }
    return false;
}

QString textOf(const std::vector<STables::SLink>& links)
{
    QString text;
    for (const STables::SLink& link : links)
        text +=
            QStringLiteral("\n  scene %1: node %2, port %3 from node %4, port %5%6%7")
                .arg(link.scene)
                .arg(link.in)
                .arg(link.inPort)
                .arg(link.out)
                .arg(link.outPort)
                .arg(QLatin1String(link.isConverting ? ", converted" : ""), QLatin1String(link.isHalf ? ", half" : ""));
    return text;
}

Core::CId idOf(const QString& text)
{
    return Core::CId(text.toLatin1().constData());
}

} // namespace

int STables::portsOf(const QString& model)
{
    return model == QLatin1String(nameOf(EKind::Decoupler)) || model == QLatin1String(nameOf(EKind::Worker)) ? 1 : 2;
}

STables STables::of(const CWorld& world)
{
    const CSilence silence;
    STables tables;
    tables.nextNode = world.witness().nextNode();
    tables.nextScene = world.witness().nextScene();
    if (!world.hasService())
        return tables;
    CNodeService& service = world.service();
    const QVector<CNodeBase*> ofDocuments = service.documentNodes();
    for (const CNodeScene* const scene : world.scenes()) {
        const int number = world.witness().numberOf(scene);
        tables.scenes.push_back(number);
        for (const auto& entry : scene->nodes()) {
            CNodeBase& node = *entry.second;
            auto* const model = dynamic_cast<ANodeDataModel*>(node.nodeDataModel());
            auto* const step = dynamic_cast<CWorldModel*>(model);
            tables.nodes[world.witness().numberOf(&node)] = {number,
                                                             node.nodeDataModel()->name(),
                                                             model ? model->uniqueName() : QString(),
                                                             node.id().toString(),
                                                             model != nullptr,
                                                             step && step->isPassing(),
                                                             step ? step->lastPassed() : 0,
                                                             model && model->getType() == ENodeDataModelType::Sink,
                                                             service.findNodeByModel(model) == &node && model,
                                                             ofDocuments.contains(&node)};
        }
        for (const auto& entry : scene->connections())
            tables.links.push_back(linkOf(world, *scene, *entry.second));
    }
    std::sort(tables.links.begin(), tables.links.end());
    tables.active = world.witness().numberOf(service.getActiveScene());
    return tables;
}

STables::SLink STables::linkOf(const CWorld& world, const CNodeScene& scene, const CNodeConnection& connection)
{
    SLink link{world.witness().numberOf(&scene), 0, -1, 0, -1, connection.save().contains("converter"), true};
    for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
        const CNodeBase* const node = connection.getNode(side);
        (side == ENodePortType::In ? link.in : link.out) = world.witness().numberOf(node);
        const int port = (side == ENodePortType::In ? link.inPort : link.outPort) = connection.getPortIndex(side);
        if (node && port >= 0 && node->nodeState().connections(side, port).count(connection.id()) != 0)
            link.isHalf = false;
    }
    if (link.in == 0 && link.out == 0)
        link.isHalf = true; // nobody can tell any more
    return link;
}

int STables::addScene()
{
    scenes.push_back(nextScene);
    told.emplace_back(EHook::SceneAdded, nextScene);
    return nextScene++;
}

void STables::activate(int scene)
{
    active = scene;
    told.emplace_back(EHook::ActiveSceneChanged, scene);
}

int STables::addNode(int scene, EKind kind)
{
    const bool isNamed = kind != EKind::Plain;
    const bool isPassing = kind == EKind::Step || kind == EKind::Camera || kind == EKind::Named;
    nodes[nextNode] = {scene,     QString::fromLatin1(nameOf(kind)),
                       QString(), QString(),
                       isNamed,   isPassing,
                       0,         kind == EKind::View,
                       false,     isNamed};
    told.emplace_back(EHook::NodeCreated, nextNode);
    return nextNode++;
}

bool STables::addLink(int scene, int in, int inPort, int out, int outPort, bool isConverting)
{
    const auto hasPort = [this](int node, int port) {
        return nodes.count(node) != 0 && port >= 0 && port < portsOf(nodes[node].model);
    };
    if (!hasPort(in, inPort) || !hasPort(out, outPort))
        return false;
    links.push_back({scene, in, inPort, out, outPort, isConverting, false});
    return true;
}

void STables::removeLink(const SLink& link)
{
    if (link.in != 0)
        ++empties[{link.in, link.inPort}];
    links.erase(std::find(links.begin(), links.end(), link));
}

void STables::removeNode(int node)
{
    const int scene = nodes.at(node).scene;
    const std::vector<SLink> before = links;
    for (const SLink& link : before) {
        if (link.scene == scene && !link.isHalf && (link.in == node || link.out == node))
            removeLink(link);
    }
    clearEnds(node);
    nodes.erase(node);
}

void STables::clearEnds(int node)
{
    for (SLink& link : links) {
        if (link.in == node)
            link.in = 0, link.inPort = -1;
        if (link.out == node)
            link.out = 0, link.outPort = -1;
        link.isHalf = link.isHalf || (link.in == 0 && link.out == 0);
        link.isConverting = link.isConverting && link.in != 0 && link.out != 0;
    }
}

void STables::replaceNode(int node)
{
    clearEnds(node);
    nodes.erase(node);
}

void STables::clearScene(int scene)
{
    const auto present = nodes;
    for (const auto& node : present) {
        if (node.second.scene == scene)
            removeNode(node.first);
    }
}

void STables::removeScene(int scene)
{
    clearScene(scene);
    const std::vector<SLink> before = links;
    for (const SLink& link : before) {
        if (link.scene == scene)
            removeLink(link);
    }
    scenes.erase(std::find(scenes.begin(), scenes.end(), scene));
    told.emplace_back(EHook::SceneRemoved, 0);
    active = active == scene ? 0 : active;
    if (!scenes.empty())
        activate(scenes.front());
}

int STables::find(int scene, const QString& id) const
{
    const auto found = std::find_if(nodes.begin(), nodes.end(), [&](const auto& node) {
        return node.second.scene == scene && idOf(node.second.id) == idOf(id); // several texts mean no id
    });
    return found == nodes.end() ? 0 : found->first;
}

void STables::loadNode(int scene, const QJsonObject& json)
{
    const QString model = json["model"]["name"].toString();
    if (json["model"]["is_unique"].toBool() || isThrown)
        return;
    isThrown = !isRegistered(model);
    if (isThrown)
        return;
    const QString id = json["id"].toString();
    if (const int replaced = find(scene, id))
        replaceNode(replaced);
    int kind = 0;
    while (model != QLatin1String(nameOf(EKind(kind))))
        ++kind;
    nodes[addNode(scene, EKind(kind))].id = id;
}

void STables::loadLink(int scene, const QJsonObject& json)
{
    if (!isThrown)
        addLink(scene, find(scene, json["in_id"].toString()), json["in_index"].toInt(),
                find(scene, json["out_id"].toString()), json["out_index"].toInt(),
                // The types are missing if an end went while the document was written.
                !json["converter"]["in"]["id"].toString().isEmpty() &&
                    !json["converter"]["out"]["id"].toString().isEmpty());
}

void STables::load(int scene, const QByteArray& document)
{
    const QJsonObject root = QJsonDocument::fromJson(document).object();
    const QJsonArray nodesJson = root["nodes"].toArray();
    for (const QJsonValue& json : nodesJson)
        loadNode(scene, json.toObject());
    const QJsonArray connections = root["connections"].toArray();
    for (const QJsonValue& json : connections)
        loadLink(scene, json.toObject());
    hasWalks = true;
}

void STables::announce(int node, int port)
{
    walk = std::make_pair(node, port);
}

QString STables::differenceOf(const CWorld& world) const
{
    STables after = of(world);
    const auto& expected = *this;
    if (isUnknown)
        return QString();
    if (after.scenes != scenes || after.active != active)
        return QStringLiteral("other scenes are there, or another one is active");
    if (after.nodes.size() != nodes.size())
        return QStringLiteral("other nodes are there");
    for (const auto& node : nodes) {
        SNode wanted = node.second;
        const SNode& found = after.nodes[node.first];
        wanted.id = wanted.id.isEmpty() ? found.id : wanted.id; // a new one
        if (wanted.key() != found.key())
            return QStringLiteral("a node is not as it should be");
    }
    std::vector<SLink> sorted = expected.links;
    std::sort(sorted.begin(), sorted.end());
    if (sorted != after.links)
        return QStringLiteral("other connections are there:%1\ninstead of%2").arg(textOf(after.links), textOf(sorted));
    if (result && *result != world.result)
        return QStringLiteral("an operation says that it has done something else");
    const QString signal = differenceOfSignals(world);
    return signal.isEmpty() ? differenceOfDeliveries(after, world) : signal;
}

QString STables::differenceOfSignals(const CWorld& world) const
{
    std::vector<Signal> found;
    std::set<int> leaving;
    for (const CWitness::STold& signal : world.witness().told()) {
        if (signal.signal == EHook::NodeDeleted)
            leaving.insert(signal.node);
        else if (signal.signal == EHook::NodeCreated)
            found.emplace_back(signal.signal, signal.node);
        else if (signal.signal == EHook::ConnectionDeleted) {
            if (!isDeletion && leaving.count(signal.node) + leaving.count(signal.out) == 0)
                return QStringLiteral("a connection was deleted before the node that it goes with");
            if (leaving.size() == 1 && leaving.count(signal.node) == 0)
                leaving.insert(0); // out ports: no in port comes any more
            else if (leaving.count(0) != 0 && leaving.size() == 2 && signal.node != 0 &&
                     leaving.count(signal.node) != 0)
                return QStringLiteral("a connection of an output port was deleted before one of an input port");
        } else if (signal.signal != EHook::ConnectionCreated)
            found.emplace_back(signal.signal, signal.scene);
    }
    return found == told ? QString() : QStringLiteral("other signals came");
}

QString STables::differenceOfDeliveries(const STables& after, const CWorld& world) const
{
    const auto valueOf = [&world](int number) {
        const CNodeBase* const node = nodeOf(world, number);
        auto* const model = node ? dynamic_cast<CWorldModel*>(node->nodeDataModel()) : nullptr;
        if (auto* const worker = node ? dynamic_cast<CWorldWorker*>(node->nodeDataModel()) : nullptr)
            return CTestData::valueOf(worker->output());
        return model && model->isPassing() ? model->value() : -1;
    };
    std::multiset<std::tuple<int, int, int>> expected;
    std::multiset<std::tuple<int, int, int>> found;
    std::map<std::pair<int, int>, int> foundEmpties;
    for (const CWorld::SReceived& received : world.received()) {
        if (received.value != -1)
            found.emplace(received.node, received.port, received.value);
        else if (after.nodes.count(received.node) != 0)
            ++foundEmpties[{received.node, received.port}];
    }
    if (world.kept.empty()) {
        std::map<std::pair<int, int>, int> wanted;
        for (const auto& empty : empties) {
            const auto node = after.nodes.find(empty.first.first);
            if (node != after.nodes.end() && node->second.model != QLatin1String(nameOf(EKind::Decoupler)))
                wanted.insert(empty);
        }
        if (wanted != foundEmpties)
            return QStringLiteral("a connection that goes sends empty data, once");
    }
    if (hasWalks)
        return QString();

    int conversions = 0;
    std::vector<std::pair<int, int>> open;
    std::set<int> passing;
    if (walk)
        open.push_back(*walk);
    while (!open.empty()) {
        const auto [out, port] = open.back();
        open.pop_back();
        const int value = valueOf(out);
        for (const SLink& link : links) {
            if (value == -1 || link.out != out || link.outPort != port || link.in == 0 || link.isHalf)
                continue;
            const SNode& in = nodes.at(link.in);
            conversions += link.isConverting ? 1 : 0;
            if (in.model != QLatin1String(nameOf(EKind::Decoupler)))
                expected.emplace(link.in, link.inPort, value + (link.isConverting ? 1 : 0));
            if (in.isPassing && in.lastPassed < value / perSending && passing.insert(link.in).second)
                open.emplace_back(link.in, 0);
        }
    }
    if (found != expected)
        return QStringLiteral("data has not gone where the connections lead, once through each");
    return conversions == world.conversions() ? QString() : QStringLiteral("data was converted more or less often");
}
