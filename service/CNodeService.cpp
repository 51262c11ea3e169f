// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "service/CNodeService.h"

#include "graph/support/Swallow_p.h"
#include "scene/CNodeScene.h"
#include "scene/CSceneLoader_p.h"
#include "service/CSceneImport_p.h"
#include "service/LoggingCategory_p.h"

#include <algorithm>

namespace Plugin {
namespace Halvex {
namespace {

/// The node that has \a model, which may be gone; null if there is none.
CNodeBase* nodeOf(const CNodeScene& scene, const ANodeDataModel* model)
{
    const auto& nodes = scene.nodes();
    const auto found = std::find_if(nodes.begin(), nodes.end(),
                                    [model](const auto& entry) { return entry.second->nodeDataModel() == model; });
    return found == nodes.end() ? nullptr : found->second.get();
}

} // namespace

CNodeService::CNodeService(QObject* parent)
    : INodeService(parent)
{
}

CNodeService::~CNodeService()
{
    m_isClosing = true;
    while (!m_scenes.isEmpty()) {
        CNodeScene* const scene = m_scenes.takeFirst();
        if (!scene->isBeingDestroyed())
            delete scene;
    }
    releaseRegistry();
}

Core::CId CNodeService::addNode(std::unique_ptr<ANodeDataModel> model, Core::AppCoreComponents::BaseInfoPtr info)
{
    // Nothing is read of an id whose making threw: g++ 12 makes it in place when it optimizes.
    Core::CId id;
    const bool isDone = swallowExceptions(lcService, "Adding a node", [&] { id = placeNode(std::move(model), info); });
    return isDone ? id : Core::CId();
}

CNodeBase* CNodeService::findNode(Core::CId nodeId)
{
    for (const CNodeScene* scene : qAsConst(m_scenes)) {
        const auto found = scene->nodes().find(nodeId);
        if (found != scene->nodes().end())
            return found->second.get();
    }
    return nullptr;
}

CNodeBase* CNodeService::findNodeByModel(ANodeDataModel* model)
{
    if (!model)
        return nullptr;
    const auto known = m_knownNodes.find(model->id());
    return known != m_knownNodes.end() && !known->second.isFromDocument ? knownNode(*model) : nullptr;
}

void CNodeService::removeNode(Core::CId nodeId, bool removeLoneNodeScene)
{
    if (CNodeBase* const node = findNode(nodeId))
        removeNode(*node, removeLoneNodeScene);
}

void CNodeService::removeNodeByModel(ANodeDataModel*& model, bool removeLoneNodeScene)
{
    if (CNodeBase* const node = findNodeByModel(model))
        removeNode(*node, removeLoneNodeScene);
}

void CNodeService::removeSceneOfNode(Core::CId nodeId)
{
    removeSceneOfNode(findNode(nodeId));
}

void CNodeService::removeSceneOfNode(CNodeBase* node)
{
    if (CNodeScene* const scene = node ? sceneOf(*node) : nullptr)
        removeScene(*scene);
}

Core::CId CNodeService::connectModels(ANodeDataModel* first, NodePortIndex firstPort, ANodeDataModel* second,
                                      NodePortIndex secondPort)
{
    CNodeBase* const in = findNodeByModel(first);
    CNodeBase* const out = findNodeByModel(second);
    const QPointer<CNodeScene> scene = in && out ? sceneOf(*in) : nullptr;
    Core::CId id;
    swallowExceptions(lcService, "Connecting two models", [&] {
        const auto connection =
            scene ? scene->createConnection(*in, firstPort, *out, secondPort, NodeDataConverter()) : nullptr;
        // A handler that heard of it may have deleted it.
        if (connection && scene && scene->connections().count(connection->id()) != 0)
            id = connection->id();
    });
    return id;
}

bool CNodeService::importDocument(const QString& document)
{
    return importAll({document});
}

bool CNodeService::importStoredDocuments()
{
    const QStringList documents = m_storedDocuments; // the import may end the service
    return !documents.isEmpty() && importAll(documents);
}

void CNodeService::addStoredDocument(const QString& document)
{
    swallowExceptions(lcService, "Keeping a document", [&] { m_storedDocuments.append(document); });
}

std::unique_ptr<ANodeDataModel> CNodeService::createModel(const QString& modelName)
{
    std::unique_ptr<ANodeDataModel> named;
    swallowExceptions(lcService, "Making a model", [&, registry = registry()] {
        std::unique_ptr<CNodeDataModel> model = registry ? registry->create(modelName) : nullptr;
        named.reset(qobject_cast<ANodeDataModel*>(model.get()));
        if (named)
            static_cast<void>(model.release());
    });
    return named;
}

void CNodeService::registerTypeConverter(const std::pair<SNodeDataType, SNodeDataType>& fromTo,
                                         NodeDataConverter converter)
{
    swallowExceptions(lcService, "Registering a converter", [&] {
        if (const auto shared = registry())
            shared->registerTypeConverter(fromTo, std::move(converter));
    });
}

QPointer<CNodeScene> CNodeService::getActiveScene()
{
    return m_activeScene;
}

void CNodeService::setActiveScene(QPointer<CNodeScene> scene)
{
    if (scene && m_scenes.contains(scene) && !scene->isBeingDestroyed())
        activate(scene);
}

CNodeScene* CNodeService::findSceneByInfo(Core::AppCoreComponents::BaseInfoPtr info)
{
    const auto found = std::find_if(m_scenes.cbegin(), m_scenes.cend(),
                                    [&info](const CNodeScene* scene) { return scene->getSceneInfo() == info; });
    return found == m_scenes.cend() ? nullptr : *found;
}

QVector<CNodeBase*> CNodeService::documentNodes() const
{
    QVector<CNodeBase*> nodes;
    for (const auto& entry : m_knownNodes) {
        if (entry.second.isFromDocument && !entry.second.isLeaving)
            nodes.append(entry.second.node);
    }
    return nodes;
}

void CNodeService::onNodeCreated(CNodeBase& node)
{
    const auto* const model = qobject_cast<ANodeDataModel*>(node.nodeDataModel());
    if (model && m_knownNodes.count(model->id()) == 0)
        know(model->id(), node, true);
}

void CNodeService::onNodeDeleted(CNodeBase& node)
{
    // A node of addNode() can be found by its model until it is gone: a handler may still keep it from going.
    const auto* const model = qobject_cast<ANodeDataModel*>(node.nodeDataModel());
    const auto known = model ? m_knownNodes.find(model->id()) : m_knownNodes.end();
    if (known != m_knownNodes.end())
        known->second.isLeaving = true;
}

Core::CId CNodeService::placeNode(std::unique_ptr<ANodeDataModel> model,
                                  const Core::AppCoreComponents::BaseInfoPtr& info)
{
    if (!model || m_isClosing)
        return Core::CId();
    const QPointer<CNodeService> self(this);
    if (m_knownNodes.count(model->id()) != 0)
        return returnTo(*model.release());
    if (!model->isUnique())
        return self ? placeInto(m_activeScene, std::move(model)) : Core::CId();
    if (!self)
        return Core::CId();
    if (model->getType() != ENodeDataModelType::Source) {
        activate(nullptr);
        return Core::CId();
    }

    const QPointer<CNodeScene> scene = addScene(info);
    if (self && scene)
        activate(scene);
    return self ? placeInto(scene, std::move(model)) : Core::CId();
}

Core::CId CNodeService::returnTo(ANodeDataModel& model)
{
    const QPointer<CNodeBase> node = knownNode(model);
    if (!node)
        return Core::CId();
    const QPointer<CNodeService> self(this);
    const Core::CId id = node->id();
    const bool isUnique = model.isUnique();
    if (self && node && isUnique)
        activate(sceneOf(*node));
    return id;
}

Core::CId CNodeService::placeInto(QPointer<CNodeScene> scene, std::unique_ptr<ANodeDataModel> model)
{
    if (!scene)
        return Core::CId();
    const QPointer<CNodeService> self(this);
    const ANodeDataModel* const placed = model.get();
    const Core::CId modelId = placed->id();
    m_knownNodes[modelId] = SKnownNode(); // or onNodeCreated() would take the node for one from a document

    CNodeBase* node = nullptr;
    const bool isToldToAll =
        swallowExceptions(lcService, "Adding a node", [&] { node = &scene->createNode(std::move(model)); });
    if (!self)
        return Core::CId();
    // What a handler threw does not take back the node.
    if (!isToldToAll && scene)
        node = nodeOf(*scene, placed);
    if (!node || node == &CNodeScene::noNode()) {
        m_knownNodes.erase(modelId);
        return Core::CId();
    }
    if (!swallowExceptions(lcService, "Adding a node", [&] { know(modelId, *node, false); })) {
        // A node that its model does not lead to would be given the same model once more.
        m_knownNodes.erase(modelId);
        removeNode(*node, false);
        return Core::CId();
    }
    return node->id();
}

CNodeBase* CNodeService::knownNode(const ANodeDataModel& model) const
{
    // A node that was replaced, or waits for a walk to leave it, is alive but in no scene.
    const auto known = m_knownNodes.find(model.id());
    CNodeBase* const node = known == m_knownNodes.end() ? nullptr : known->second.node;
    return node && sceneOf(*node) ? node : nullptr;
}

void CNodeService::know(const Core::CId& modelId, CNodeBase& node, bool isFromDocument)
{
    // Not every node that goes is announced: a document replaces nodes silently.
    connect(&node, &QObject::destroyed, this, [this, modelId](const QObject* gone) { forget(modelId, gone); });
    m_knownNodes[modelId] = {&node, isFromDocument, false};
}

void CNodeService::forget(const Core::CId& modelId, const QObject* node)
{
    const auto known = m_knownNodes.find(modelId);
    if (known != m_knownNodes.end() && known->second.node == node)
        m_knownNodes.erase(known);
}

CNodeScene* CNodeService::sceneOf(const CNodeBase& node) const
{
    // The node itself and not only its id: scenes may hold nodes of one id, from the same document.
    for (CNodeScene* scene : m_scenes) {
        const auto found = scene->nodes().find(node.id());
        if (found != scene->nodes().end() && found->second.get() == &node)
            return scene;
    }
    return nullptr;
}

void CNodeService::removeNode(CNodeBase& node, bool removeLoneNodeScene)
{
    const QPointer<CNodeScene> scene = sceneOf(node);
    const QPointer<CNodeService> self(this);
    const bool isRemoved = swallowExceptions(lcService, "Removing a node", [&] {
        if (scene)
            scene->removeNode(node);
    });
    if (self && scene && isRemoved && removeLoneNodeScene)
        removeSceneOfLoneSink(*scene);
}

void CNodeService::removeSceneOfLoneSink(CNodeScene& scene)
{
    if (scene.nodes().size() != 1)
        return;
    CNodeBase& last = *scene.nodes().begin()->second;
    auto* const model = qobject_cast<ANodeDataModel*>(last.nodeDataModel());
    if (!model || model->getType() != ENodeDataModelType::Sink)
        return;

    const QPointer<CNodeScene> emptied(&scene);
    const QPointer<CNodeService> self(this);
    removeNode(last, false);
    if (self && emptied)
        removeScene(*emptied);
}

bool CNodeService::importAll(const QStringList& documents)
{
    const QPointer<CNodeScene> scene = m_activeScene;
    if (!scene)
        return false;
    bool isWhole = false;
    swallowExceptions(lcService, "An import", [&] {
        CSceneImport import(*scene);
        for (const QString& document : documents)
            import.addDocument(document);
        // Models that are asked, and handlers, may destroy the scene.
        if (scene)
            CSceneLoader::load(*scene, import.sceneDocument());
        isWhole = !scene.isNull();
    });
    return isWhole;
}

QPointer<CNodeScene> CNodeService::addScene(const Core::AppCoreComponents::BaseInfoPtr& info)
{
    auto made = std::make_unique<CNodeScene>(info, nullptr);
    const QPointer<CNodeScene> scene = made.get();
    connect(scene, &CNodeScene::nodeCreated, this, &CNodeService::onNodeCreated);
    connect(scene, &CNodeScene::nodeDeleted, this, &CNodeService::onNodeDeleted);
    connect(scene, &QObject::destroyed, this, [this, address = made.get()] { onSceneDestroyed(address); });
    m_scenes.append(made.get());
    static_cast<void>(made.release());
    scene->setRegistry(registry());
    takeTurn([this, scene] {
        if (scene)
            tell([&] { Q_EMIT sceneAdded(scene); });
    });
    return scene;
}

void CNodeService::removeScene(CNodeScene& scene)
{
    // One that the host is destroying goes by itself, and onSceneDestroyed() tells of it.
    if (scene.isBeingDestroyed() || m_leavingScenes.contains(&scene))
        return;
    const bool isMarked = swallowExceptions(lcService, "Removing a scene", [&] { m_leavingScenes.insert(&scene); });
    const bool isPlanned = isMarked && queueTurn([this, leaving = QPointer<CNodeScene>(&scene)] {
                               if (leaving && !tell([&] { Q_EMIT sceneRemoving(leaving); }))
                                   return;
                               if (!queueTurn([this, leaving] { destroyScene(leaving); }))
                                   m_leavingScenes.remove(leaving); // it stays, and can be removed later
                           });
    if (!isPlanned)
        m_leavingScenes.remove(&scene);
    takeTurns();
}

void CNodeService::destroyScene(const QPointer<CNodeScene>& scene)
{
    const QPointer<CNodeService> self(this);
    m_scenes.removeOne(scene);
    delete scene.data();
    if (self)
        tellRemoved();
}

void CNodeService::onSceneDestroyed(CNodeScene* scene)
{
    m_scenes.removeOne(scene); // only its address
    if (!m_leavingScenes.remove(scene))
        tellRemoved();
}

void CNodeService::tellRemoved()
{
    takeTurn([this] {
        if (!tell([this] { Q_EMIT sceneRemoved(); }))
            return;
        takeTurn([this] {
            const auto first = std::find_if(m_scenes.cbegin(), m_scenes.cend(),
                                            [](const CNodeScene* scene) { return !scene->isBeingDestroyed(); });
            if (first != m_scenes.cend())
                activate(*first);
        });
    });
}

void CNodeService::activate(CNodeScene* scene)
{
    m_activeScene = scene;
    takeTurn([this, active = m_activeScene, isNone = !scene] {
        if (active || isNone)
            tell([&] { Q_EMIT activeSceneChanged(active); });
    });
}

template <typename Turn>
void CNodeService::takeTurn(Turn turn)
{
    queueTurn(std::move(turn));
    takeTurns();
}

template <typename Turn>
bool CNodeService::queueTurn(Turn turn)
{
    return !m_isClosing && swallowExceptions(lcService, "Putting off a turn of the node service",
                                             [&] { m_turns.emplace_back(std::move(turn)); });
}

void CNodeService::takeTurns()
{
    if (m_isTelling || m_isClosing)
        return;

    const QPointer<CNodeService> self(this);
    m_isTelling = true;
    while (self && !m_turns.empty()) {
        const std::function<void()> next = std::move(m_turns.front());
        m_turns.pop_front();
        swallowExceptions(lcService, "A turn of the node service", next); // memory may be short
    }
    if (self)
        m_isTelling = false;
}

bool CNodeService::tell(const std::function<void()>& signal)
{
    const QPointer<CNodeService> self(this);
    swallowExceptions(lcService, "A handler of the node service's signals", signal);
    return !self.isNull();
}

} // namespace Halvex
} // namespace Plugin
