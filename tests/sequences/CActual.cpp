// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "sequences/CActual.h"

#include "support/CRowInspector.h"
#include "support/ServiceConsistency.h"
#include "support/StableIds.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <stdexcept>

using namespace Plugin::Halvex;

namespace Sequences {
namespace {

class CInfo : public Core::AppCoreComponents::IBaseInfo
{
};

QString textOf(int name)
{
    return name < 0 ? QString("node-%1").arg(-name) : QString("label-%1").arg(name);
}

QJsonArray textsOf(const std::vector<int>& names)
{
    QJsonArray texts;
    for (const int name : names)
        texts.append(textOf(name));
    return texts;
}

QString jsonOf(const Document& document)
{
    QJsonArray elements;
    for (const SElement& element : document) {
        QJsonArray sources;
        for (const auto& port : element.sources)
            sources.append(textsOf(port));
        elements.append(QJsonObject{{"name", textOf(element.label)},
                                    {"model", QJsonObject{{"name", nameOf(element.kind)}}},
                                    {"unique_sources", sources},
                                    {"connection", QJsonArray{QJsonValue(textsOf(element.feeds))}}});
    }
    return QString::fromUtf8(QJsonDocument(elements).toJson(QJsonDocument::Compact));
}

/// Adds one to what passes, so that it shows.
CNodeDataPtr convert(const CNodeDataPtr& data)
{
    return data ? CTestData::make(CIdentity::valueOf(data) + 1) : data;
}

NodeDataConverter converterIf(bool isConverting)
{
    return isConverting ? NodeDataConverter(&convert) : NodeDataConverter();
}

} // namespace

CActual::CActual(CEventLog& log)
    : AWorld(log)
{
    for (std::size_t info = 1; info < m_infos.size(); ++info)
        m_infos[info] = QSharedPointer<CInfo>::create();
    for (const EKind kind : {View, Filter, Named, Plain})
        m_service.registry()->registerModel([this, kind] { return makeModel(kind); }, QStringLiteral("Test"));
    m_service.registerTypeConverter({CTestData::defaultType(), CTestData::defaultType()}, &convert);

    hearService(EEvent::SceneAdded, &INodeService::sceneAdded);
    hearService(EEvent::ActiveSceneChanged, &INodeService::activeSceneChanged);
    hearService(EEvent::SceneRemoving, &INodeService::sceneRemoving);
    QObject::connect(&m_service, &INodeService::sceneRemoved, &m_context,
                     [this] { onServiceSignal(EEvent::SceneRemoved, nullptr); });
    QObject::connect(&m_service, &INodeService::sceneRemoved, &m_context,
                     [this] { onLateServiceSignal(EEvent::SceneRemoved, nullptr); });
}

SPresent CActual::present() const
{
    SPresent present;
    for (const auto& entry : m_scenes) {
        if (!entry.second)
            continue;
        present.scenes.push_back(entry.first);
        for (const auto& node : entry.second->nodes()) {
            const CIdentity& identity = identityOf(*node.second);
            present.nodes.push_back(identity.number());
            if (identity.kind() == Source || identity.kind() == Named)
                present.sources.push_back(identity.number());
        }
        for (const auto& connection : entry.second->connections())
            present.connections.push_back(numberOf(*connection.second));
    }
    // The choice must not depend on the tables' order.
    for (auto* const list : {&present.nodes, &present.sources, &present.connections})
        std::sort(list->begin(), list->end());
    return present;
}

SState CActual::state()
{
    SState state;
    const QVector<CNodeBase*> ofDocuments = m_service.documentNodes();
    const QList<CNodeScene*> scenes = m_service.scenes();
    for (const CNodeScene* const scene : scenes) {
        const int sceneNumber = numberOf(scene);
        state.scenes.push_back(sceneNumber);
        for (const auto& entry : scene->nodes()) {
            CNodeBase& node = *entry.second;
            auto* const model = dynamic_cast<ANodeDataModel*>(node.nodeDataModel());
            state.nodes.push_back({sceneNumber, numberOf(&node), CIdentity::valueOf(node.nodeDataModel()->outData(0)),
                                   numberOf(m_service.findNode(node.id())), m_service.findNodeByModel(model) == &node,
                                   ofDocuments.contains(&node)});
        }
        for (const auto& entry : scene->connections()) {
            const CNodeConnection& c = *entry.second;
            state.connections.push_back({sceneNumber, numberOf(c), numberOf(c.getNode(ENodePortType::In)),
                                         c.getPortIndex(ENodePortType::In), numberOf(c.getNode(ENodePortType::Out)),
                                         c.getPortIndex(ENodePortType::Out)});
        }
    }
    state.active = numberOf(m_service.getActiveScene());
    for (const auto& info : m_infos)
        state.sceneOfInfo.push_back(numberOf(m_service.findSceneByInfo(info)));
    state.models = m_models;
    state.sort();
    return state;
}

QString CActual::inconsistency()
{
    return inconsistencyOfScenes(m_service);
}

int CActual::perform(const SOperation& operation)
{
    if (!isPossible(operation))
        return nothingThere;
    try {
        return operation.kind < EOperation::CreateNode ? performOnService(operation) : performOnScene(operation);
    } catch (const std::logic_error&) {
        return thrown;
    }
}

void CActual::onNumbersChanged(int first)
{
    StableIds::startOperation(first);
}

bool CActual::isPossible(const SOperation& operation) const
{
    const auto& arguments = operation.arguments;
    const auto hasScene = [&](std::size_t i) {
        const auto found = m_scenes.find(arguments[i]);
        return found != m_scenes.end() && found->second;
    };
    const auto hasNode = [&](std::size_t i) { return nodeOf(arguments[i]) != nullptr; };
    const auto hasSaved = [this](const char* key) {
        return !QJsonDocument::fromJson(m_saved).object().value(QLatin1String(key)).toArray().isEmpty();
    };
    switch (operation.kind) {
    case EOperation::AddAgain:
    case EOperation::RemoveNode:
    case EOperation::RemoveNodeByModel:
    case EOperation::RemoveSceneOfNode:
    case EOperation::RemoveFromScene:
        return hasNode(0);
    case EOperation::SetData:
        return hasNode(0) && dynamic_cast<CFedModel*>(nodeOf(arguments[0])->nodeDataModel());
    case EOperation::ConnectModels:
        return hasNode(0) && hasNode(2);
    case EOperation::SetActiveScene:
        return arguments[0] == 0 || hasScene(0);
    case EOperation::CreateConnection:
        return hasScene(0) && hasNode(1) && hasNode(3);
    case EOperation::CreateHalfConnection:
        return hasScene(0) && hasNode(2);
    case EOperation::DeleteConnection:
    case EOperation::DeleteConnectionNow:
        return connectionOf(arguments[0]).second != nullptr;
    case EOperation::CreateNode:
    case EOperation::ClearScene:
    case EOperation::SaveToMemory:
    case EOperation::LoadFromMemory:
    case EOperation::Iterate:
        return hasScene(0);
    case EOperation::RestoreNode:
        return hasScene(0) && hasSaved("nodes");
    case EOperation::RestoreConnection:
        return hasScene(0) && hasSaved("connections");
    case EOperation::DestroyScene:
        return hasScene(0) && !m_scenes.at(arguments[0])->isBeingDestroyed();
    default:
        return true;
    }
}

int CActual::performOnService(const SOperation& operation)
{
    const auto& arguments = operation.arguments;
    switch (operation.kind) {
    case EOperation::AddSource:
        return addSource(arguments[0]);
    case EOperation::AddModel:
        return addModel(EKind(arguments[0]));
    case EOperation::AddUniqueSink:
        m_service.addNode(std::make_unique<CViewModel>(*this, takeNodeNumber(), true), {});
        return 0;
    case EOperation::AddAgain:
        return addAgain(arguments[0]);
    case EOperation::RemoveNode:
        m_service.removeNode(nodeOf(arguments[0])->id(), arguments[1] != 0);
        return 0;
    case EOperation::RemoveNodeByModel: {
        ANodeDataModel* model = modelOf(arguments[0]);
        m_service.removeNodeByModel(model, arguments[1] != 0);
        return 0;
    }
    case EOperation::RemoveSceneOfNode:
        if (arguments[1] != 0)
            m_service.removeSceneOfNode(nodeOf(arguments[0])->id());
        else
            m_service.removeSceneOfNode(nodeOf(arguments[0]));
        return 0;
    case EOperation::ConnectModels:
        return connectModels(operation);
    case EOperation::ImportDocument:
        return m_service.importDocument(jsonOf(operation.document));
    case EOperation::ImportStoredDocuments:
        return m_service.importStoredDocuments();
    case EOperation::AddStoredDocument:
        m_service.addStoredDocument(jsonOf(operation.document));
        return 0;
    case EOperation::SetActiveScene:
        m_service.setActiveScene(arguments[0] == 0 ? nullptr : m_scenes.at(arguments[0]));
        return 0;
    default:
        return 0;
    }
}

int CActual::performOnScene(const SOperation& operation)
{
    const auto& arguments = operation.arguments;
    switch (operation.kind) {
    case EOperation::CreateConnection:
        return createConnection(operation);
    case EOperation::CreateHalfConnection:
        return createHalfConnection(operation);
    case EOperation::DeleteConnection: {
        const auto found = connectionOf(arguments[0]);
        found.first->deleteConnection(*found.second);
        return 0;
    }
    case EOperation::DeleteConnectionNow: {
        const auto found = connectionOf(arguments[0]);
        found.first->deleteConnectionNow(*found.second);
        return 0;
    }
    case EOperation::RemoveFromScene: {
        CNodeBase& node = *nodeOf(arguments[0]);
        sceneOf(node)->removeNode(node);
        return 0;
    }
    case EOperation::SetData: {
        auto& model = dynamic_cast<CFedModel&>(*nodeOf(arguments[0])->nodeDataModel());
        model.getDataFlowProxy()->setData(arguments[1] != 0 ? CNodeDataPtr()
                                                            : CTestData::make(operation.number * perOperation));
        return 0;
    }
    default:
        break;
    }

    CNodeScene& scene = *m_scenes.at(arguments[0]);
    switch (operation.kind) {
    case EOperation::CreateNode: {
        CNodeBase& node = scene.createNode(makeModel(EKind(arguments[1])));
        return &node == &CNodeScene::noNode() ? 0 : numberOf(&node);
    }
    case EOperation::ClearScene:
        scene.clearScene();
        return 0;
    case EOperation::SaveToMemory:
        save(scene);
        return 0;
    case EOperation::LoadFromMemory:
        scene.loadFromMemory(QByteArray(m_saved));
        return 0;
    case EOperation::RestoreNode:
        return restoreNode(scene, arguments[1]);
    case EOperation::RestoreConnection:
        return restoreConnection(scene, arguments[1]);
    case EOperation::Iterate:
        scene.iterateOverNodes([this](const CNodeBase* node) {
            log().note({EEvent::Visited, false, 0, numberOf(node), 0, 0, {}});
        });
        return 0;
    case EOperation::DestroyScene:
        delete &scene;
        return 0;
    default:
        return 0;
    }
}

int CActual::addSource(int info)
{
    const int number = takeNodeNumber();
    auto model = std::make_unique<CFedModel>(*this, number, Source, textOf(-number));
    const Core::CId id = m_service.addNode(std::move(model), m_infos.at(std::size_t(info)));
    // It may not have been told yet, and another scene may have been where it is now.
    const QList<CNodeScene*> scenes = m_service.scenes();
    for (CNodeScene* const scene : scenes) {
        if (numberOf(scene) == 0)
            hear(*scene, number);
    }
    if (id == Core::CId())
        return 0;
    m_nodes[number] = m_service.findNode(id);
    m_firstOfId.emplace(id, number);
    return number;
}

int CActual::addModel(EKind kind)
{
    const int number = firstNumber();
    std::unique_ptr<ANodeDataModel> model = kind == Named
                                                ? std::make_unique<CFedModel>(*this, number, Named, textOf(-number))
                                                : m_service.createModel(nameOf(kind));
    return m_service.addNode(std::move(model), {}) == Core::CId() ? 0 : number;
}

int CActual::addAgain(int node)
{
    const Core::CId id = nodeOf(node)->id();
    const Core::CId returned = m_service.addNode(std::unique_ptr<ANodeDataModel>(modelOf(node)), {});
    return returned == id && id != Core::CId() ? node : 0; // a document may have brought a node without an id
}

int CActual::connectModels(const SOperation& operation)
{
    const auto& arguments = operation.arguments;
    const Core::CId id =
        m_service.connectModels(modelOf(arguments[0]), arguments[1], modelOf(arguments[2]), arguments[3]);
    if (id == Core::CId())
        return 0;
    const auto found = std::find_if(m_connections.begin(), m_connections.end(),
                                    [&id](const auto& entry) { return entry.second.second == id; });
    return found->first;
}

int CActual::createConnection(const SOperation& operation)
{
    const auto& arguments = operation.arguments;
    CNodeScene& scene = *m_scenes.at(arguments[0]);
    const auto connection = scene.createConnection(*nodeOf(arguments[1]), arguments[2], *nodeOf(arguments[3]),
                                                   arguments[4], converterIf(arguments[5] != 0));
    return connection ? numberOf(*connection) : 0;
}

int CActual::createHalfConnection(const SOperation& operation)
{
    const auto& arguments = operation.arguments;
    CNodeScene& scene = *m_scenes.at(arguments[0]);
    const auto connection = scene.createConnection(ENodePortType(arguments[1]), *nodeOf(arguments[2]), arguments[3]);
    return connection ? numberOf(*connection) : 0;
}

int CActual::restoreNode(CNodeScene& scene, int index)
{
    const QJsonArray nodes = QJsonDocument::fromJson(m_saved).object().value("nodes").toArray();
    CNodeBase& node = scene.restoreNode(nodes.at(index % nodes.size()).toObject());
    return &node == &CNodeScene::noNode() ? 0 : numberOf(&node);
}

int CActual::restoreConnection(CNodeScene& scene, int index)
{
    const QJsonArray connections = QJsonDocument::fromJson(m_saved).object().value("connections").toArray();
    const auto connection = scene.restoreConnection(connections.at(index % connections.size()).toObject());
    return connection ? numberOf(*connection) : 0;
}

void CActual::save(const CNodeScene& scene)
{
    m_saved = scene.saveToMemory();
    const QJsonObject root = QJsonDocument::fromJson(m_saved).object();

    std::vector<int> nodes;
    const QJsonArray nodesJson = root.value("nodes").toArray();
    for (const QJsonValue& json : nodesJson) {
        const auto found = scene.nodes().find(Core::CId(json["id"].toString().toLatin1().constData()));
        nodes.push_back(found == scene.nodes().end() ? 0 : numberOf(found->second.get()));
    }
    log().note({EEvent::Saved, false, 0, 0, 0, 0, nodes});

    const QJsonArray connectionsJson = root.value("connections").toArray();
    for (const QJsonValue& json : connectionsJson) {
        log().note({EEvent::SavedConnection,
                    false,
                    0,
                    0,
                    0,
                    0,
                    {firstOfId(json["in_id"]), json["in_index"].toInt(-1), firstOfId(json["out_id"]),
                     json["out_index"].toInt(-1), !json["converter"].isUndefined()}});
    }
}

// Models.

std::unique_ptr<CNodeDataModel> CActual::makeModel(EKind kind)
{
    const int number = takeNodeNumber();
    switch (kind) {
    case View:
        return std::make_unique<CViewModel>(*this, number);
    case Filter:
        return std::make_unique<CFilterModel>(*this, number);
    case Named:
        return std::make_unique<CFedModel>(*this, number, Named);
    default:
        return std::make_unique<CPlainModel>(*this, number, Plain);
    }
}

// Tells the connections of the port, in the order in which the node will serve them.
void CActual::onAsked(int model, int port)
{
    const auto node = m_nodes.find(model);
    if (node == m_nodes.end() || !node->second)
        return;
    std::vector<int> connections;
    for (const CNodeConnection* const connection :
         CRowInspector::row(std::as_const(*node->second).nodeState(), ENodePortType::Out, port)) {
        const auto number = m_connectionNumbers.find(connection->id());
        if (number != m_connectionNumbers.end())
            connections.push_back(number->second);
        else
            connections.push_back(unnumbered(numberOf(connection->getNode(ENodePortType::In)),
                                             connection->getPortIndex(ENodePortType::In),
                                             connection->save().contains("converter")));
    }
    log().note({EEvent::Asked, false, 0, model, 0, port, connections});
}

void CActual::onReceived(int model, int value, int port)
{
    log().note({EEvent::Received, false, 0, model, value, port, {}});
}

void CActual::onGone(int model)
{
    --m_models;
    log().note({EEvent::Gone, false, 0, model, 0, 0, {}});
}

// Signals.

template <typename Signal>
void CActual::hearService(EEvent event, Signal signal)
{
    QObject::connect(&m_service, signal, &m_context,
                     [this, event](CNodeScene* scene) { onServiceSignal(event, scene); });
    QObject::connect(&m_service, signal, &m_context,
                     [this, event](const CNodeScene* scene) { onLateServiceSignal(event, scene); });
}

void CActual::onServiceSignal(EEvent event, CNodeScene* scene)
{
    if (event == EEvent::SceneAdded && numberOf(scene) == 0)
        hear(*scene, firstNumber());
    m_emissions.emplace_back(scene, numberOf(scene));
    log().tell({event, false, m_emissions.back().second, 0, 0, 0, {}});
}

// The scene may be gone by now, and another one may be where it was.
void CActual::onLateServiceSignal(EEvent event, const CNodeScene* scene)
{
    const auto emission = m_emissions.back();
    m_emissions.pop_back();
    const int number = emission.first == scene ? emission.second : 0;
    log().tell({event, true, number, 0, 0, 0, {}});
}

void CActual::hear(CNodeScene& scene, int number)
{
    m_scenes[number] = &scene;
    m_sceneNumbers[&scene] = number;
    for (const bool isLate : {false, true}) {
        QObject::connect(&scene, &CNodeScene::nodeCreated, &m_context, [this, isLate, &scene, number](CNodeBase& node) {
            onNode(EEvent::NodeCreated, isLate, scene, number, node);
        });
        QObject::connect(&scene, &CNodeScene::nodeDeleted, &m_context, [this, isLate, &scene, number](CNodeBase& node) {
            onNode(EEvent::NodeDeleted, isLate, scene, number, node);
        });
        QObject::connect(&scene, &CNodeScene::connectionCreated, &m_context,
                         [this, isLate, &scene, number](const CNodeConnection& connection) {
                             onConnection(EEvent::ConnectionCreated, isLate, scene, number, connection);
                         });
        QObject::connect(&scene, &CNodeScene::connectionDeleted, &m_context,
                         [this, isLate, &scene, number](const CNodeConnection& connection) {
                             onConnection(EEvent::ConnectionDeleted, isLate, scene, number, connection);
                         });
    }
}

void CActual::hearView(CNodeBase& node)
{
    const auto proxy = dynamic_cast<CViewModel&>(*node.nodeDataModel()).getDataFlowProxy();
    const int number = numberOf(&node);
    for (const bool isLate : {false, true}) {
        QObject::connect(proxy, &CNodeDataFlowProxy::newDataAvailable, &m_context,
                         [this, isLate, number](const CNodeDataPtr& data) {
                             log().tell({EEvent::NewData, isLate, 0, number, CIdentity::valueOf(data), 0, {}});
                         });
    }
}

void CActual::onNode(EEvent event, bool isLate, const CNodeScene& scene, int number, CNodeBase& node)
{
    const int nodeNumber = numberOf(&node);
    if (event == EEvent::NodeCreated && !isLate) {
        m_nodes[nodeNumber] = &node;
        m_firstOfId.emplace(node.id(), nodeNumber);
        if (identityOf(node).kind() == View)
            hearView(node);
    }
    log().tell({event, isLate, number, nodeNumber, 0, 0, nodesIfClosing(scene)});
}

void CActual::onConnection(EEvent event, bool isLate, CNodeScene& scene, int number, const CNodeConnection& connection)
{
    if (event == EEvent::ConnectionCreated && !isLate) {
        const int made = takeConnectionNumber();
        m_connections[made] = {&scene, connection.id()};
        m_connectionNumbers[connection.id()] = made;
        QObject::connect(&connection, &QObject::destroyed, &m_context, [this, made] {
            log().note({EEvent::ConnectionGone, false, 0, made, 0, 0, {}});
        });
    }
    log().tell({event, isLate, number, numberOf(connection), numberOf(connection.getNode(ENodePortType::Out)),
                numberOf(connection.getNode(ENodePortType::In)), nodesIfClosing(scene)});
}

std::vector<int> CActual::nodesIfClosing(const CNodeScene& scene)
{
    std::vector<int> numbers;
    if (!scene.isBeingDestroyed())
        return numbers;
    for (const auto& entry : scene.nodes())
        numbers.push_back(numberOf(entry.second.get()));
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

// Numbers.

int CActual::numberOf(const CNodeScene* scene) const
{
    const auto found = m_sceneNumbers.find(scene);
    return found != m_sceneNumbers.end() && m_scenes.at(found->second) == scene ? found->second : 0;
}

int CActual::numberOf(const CNodeBase* node)
{
    return node ? identityOf(*node).number() : 0;
}

const CIdentity& CActual::identityOf(const CNodeBase& node)
{
    return dynamic_cast<const CIdentity&>(*node.nodeDataModel());
}

CActual::CNodeBase* CActual::nodeOf(int number) const
{
    const auto found = m_nodes.find(number);
    CNodeBase* const node = found == m_nodes.end() ? nullptr : found->second.data();
    return node && sceneOf(*node) ? node : nullptr;
}

CActual::ANodeDataModel* CActual::modelOf(int node) const
{
    return dynamic_cast<ANodeDataModel*>(nodeOf(node)->nodeDataModel());
}

CActual::CNodeScene* CActual::sceneOf(const CNodeBase& node) const
{
    for (const auto& entry : m_scenes) {
        if (!entry.second)
            continue;
        const auto found = entry.second->nodes().find(node.id());
        if (found != entry.second->nodes().end() && found->second.get() == &node)
            return entry.second;
    }
    return nullptr;
}

std::pair<CActual::CNodeScene*, CActual::CNodeConnection*> CActual::connectionOf(int number) const
{
    const auto known = m_connections.find(number);
    if (known == m_connections.end() || !known->second.first)
        return {};
    CNodeScene* const scene = known->second.first;
    const auto found = scene->connections().find(known->second.second);
    if (found == scene->connections().end())
        return {};
    return {scene, found->second.get()};
}

int CActual::firstOfId(const QJsonValue& id) const
{
    const auto found = m_firstOfId.find(Core::CId(id.toString().toLatin1().constData()));
    return found == m_firstOfId.end() ? 0 : found->second;
}

} // namespace Sequences
