// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/service/CNodeService.h>

#include "graph/support/CDeferredQueue_p.h"
#include "graph/support/CMetaTypeRegistration_p.h"
#include "graph/support/Reports_p.h"
#include "service/CSceneImport_p.h"

#include <algorithm>
#include <optional>

namespace Plugin::Halvex {
namespace {

/// "halvex.service": why the service gave up something that it was asked for.
Q_LOGGING_CATEGORY(lcService, "halvex.service")

/// Whether \a model is unique; nothing if it throws when it is asked.
std::optional<bool> askIfUnique(ANodeDataModel& model)
{
    std::optional<bool> answer;
    swallowExceptions(lcService, "Adding a node", [&] { answer = model.isUnique(); });
    return answer;
}

/// For a message; empty if the model throws when it is asked.
QString nameOf(CNodeDataModel& model)
{
    QString name;
    swallowExceptions(lcService, "Adding a node", [&] { name = model.name(); });
    return name;
}

/// Compares nodes, not only ids: two scenes can hold nodes of one id, from the same document.
bool holds(const CNodeScene& scene, const CNodeBase& node)
{
    const auto found = scene.nodes().find(node.id());
    return found != scene.nodes().end() && found->second.get() == &node;
}

} // namespace

INodeService::INodeService(QObject* parent)
    : IService(parent)
    , m_registry(std::make_shared<CNodeDataModelRegistry>())
{
    // Spies look for the type by the name that the signals have it by. A type under its full name could stay behind in
    // Qt's table, with functions of the unloaded library: Qt keeps what a host, too, has asked for by the class.
    static const CMetaTypeRegistration<CNodeScene*> scenePointer("CNodeScene*");
    // Survives removed statement: only with Qt 6 does it change anything.
    scenePointer.id(); // Qt 6 takes back the names of those types alone that have a number
}

INodeService::~INodeService() = default;

CNodeService::CNodeService(QObject* parent)
    : INodeService(parent)
    , m_turns(std::make_unique<CDeferredQueue>())
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
}

Core::CId CNodeService::addNode(std::unique_ptr<ANodeDataModel> model, Core::AppCoreComponents::BaseInfoPtr info)
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    if (!model || m_isClosing)
        return Core::CId();
    // A host hands in its unique source again to make its scene the active one; the source's node owns it.
    if (m_knownNodes.count(model->id()) != 0)
        return idOfKnownModel(*model.release());

    const QPointer<CNodeService> self(this);
    const std::optional<bool> isUnique = askIfUnique(*model);
    if (!self || !isUnique)
        return Core::CId();
    if (!*isUnique)
        return placeNotUnique(std::move(model));
    if (model->getType() != ENodeDataModelType::Source) {
        activateScene(nullptr);
        warnOnce("addNode(): \"%\" is unique, but no source: it gets no scene, and is destroyed.", nameOf(*model));
        return Core::CId();
    }

    const QPointer<CNodeScene> scene = addScene(info);
    if (self && scene)
        activateScene(scene);
    return self ? placeInto(scene, std::move(model)) : Core::CId();
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
    if (known == m_knownNodes.end() || known->second.state != EKnownNode::Added)
        return nullptr;
    CNodeBase* const node = known->second.node;
    Q_ASSERT(node);
    return findSceneOf(*node) ? node : nullptr;
}

void CNodeService::removeNode(Core::CId nodeId, bool removeLoneNodeScene)
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    if (CNodeBase* const node = findNode(nodeId))
        removeNode(*node, removeLoneNodeScene);
}

void CNodeService::removeNodeByModel(ANodeDataModel*& model, bool removeLoneNodeScene)
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    if (CNodeBase* const node = findNodeByModel(model))
        removeNode(*node, removeLoneNodeScene);
}

void CNodeService::removeSceneOfNode(Core::CId nodeId)
{
    removeSceneOfNode(findNode(nodeId));
}

void CNodeService::removeSceneOfNode(CNodeBase* node)
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    if (CNodeScene* const scene = node ? findSceneOf(*node) : nullptr)
        removeScene(*scene);
}

Core::CId CNodeService::connectModels(ANodeDataModel* first, NodePortIndex firstPort, ANodeDataModel* second,
                                      NodePortIndex secondPort)
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    CNodeBase* const in = findNodeByModel(first);
    CNodeBase* const out = findNodeByModel(second);
    const QPointer<CNodeScene> scene = in && out ? findSceneOf(*in) : nullptr;
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
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    return importAll({document});
}

bool CNodeService::importStoredDocuments()
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    const QStringList documents = m_storedDocuments; // the import may end the service
    return !documents.isEmpty() && importAll(documents);
}

void CNodeService::addStoredDocument(const QString& document)
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    m_storedDocuments.append(document);
}

std::unique_ptr<ANodeDataModel> CNodeService::createModel(const QString& modelName)
{
    std::unique_ptr<ANodeDataModel> named;
    swallowExceptions(lcService, "Making a model", [&, registry = registry()] {
        std::unique_ptr<CNodeDataModel> model = registry->create(modelName);
        named.reset(qobject_cast<ANodeDataModel*>(model.get()));
        if (named)
            static_cast<void>(model.release());
    });
    return named;
}

void CNodeService::registerTypeConverter(const std::pair<SNodeDataType, SNodeDataType>& fromTo,
                                         NodeDataConverter converter)
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    registry()->registerTypeConverter(fromTo, std::move(converter));
}

QPointer<CNodeScene> CNodeService::getActiveScene()
{
    return m_activeScene;
}

void CNodeService::setActiveScene(QPointer<CNodeScene> scene)
{
    HALVEX_WARN_IF_IN_OTHER_THREAD();
    if (scene && m_scenes.contains(scene) && !scene->isBeingDestroyed())
        activateScene(scene);
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
        if (entry.second.state == EKnownNode::InDocument)
            nodes.append(entry.second.node);
    }
    return nodes;
}

void CNodeService::onNodeCreated(CNodeBase& node)
{
    const auto* const model = qobject_cast<ANodeDataModel*>(node.nodeDataModel());
    if (!model)
        return;
    const Core::CId modelId = model->id();
    SKnownNode& known = m_knownNodes.insert({modelId, {EKnownNode::InDocument, nullptr}}).first->second;
    Q_ASSERT(!known.node); // a model has one node
    known.node = &node;
    // Not every node that goes is announced: a document replaces nodes silently.
    connect(&node, &QObject::destroyed, this, [this, modelId] { m_knownNodes.erase(modelId); });
}

void CNodeService::onNodeDeleted(CNodeBase& node)
{
    // A node of addNode() is found by its model until it is gone: a handler that throws keeps it.
    const auto* const model = qobject_cast<ANodeDataModel*>(node.nodeDataModel());
    const auto known = model ? m_knownNodes.find(model->id()) : m_knownNodes.end();
    if (known != m_knownNodes.end() && known->second.state == EKnownNode::InDocument)
        known->second.state = EKnownNode::LeftDocument;
}

Core::CId CNodeService::idOfKnownModel(ANodeDataModel& model)
{
    const SKnownNode& known = m_knownNodes.at(model.id());
    if (known.state == EKnownNode::BeingAdded || !findSceneOf(*known.node))
        return Core::CId();
    const QPointer<CNodeBase> node = known.node;
    const QPointer<CNodeService> self(this);
    const Core::CId id = node->id();
    const bool isUnique = askIfUnique(model).value_or(false);
    // Asking the model may have ended all of this.
    CNodeScene* const scene = self && node ? findSceneOf(*node) : nullptr;
    if (!scene)
        return Core::CId();
    if (isUnique)
        activateScene(scene);
    return id;
}

CNodeScene* CNodeService::openScene() const
{
    return m_activeScene && !m_activeScene->isBeingDestroyed() ? m_activeScene.data() : nullptr;
}

Core::CId CNodeService::placeNotUnique(std::unique_ptr<ANodeDataModel> model)
{
    if (CNodeScene* const scene = openScene())
        return placeInto(scene, std::move(model));
    warnOnce("addNode(): there is no active scene for \"%\", which is destroyed. A unique source, added before, makes "
             "one.",
             nameOf(*model));
    return Core::CId();
}

Core::CId CNodeService::placeInto(QPointer<CNodeScene> scene, std::unique_ptr<ANodeDataModel> model)
{
    if (!scene)
        return Core::CId();
    const QPointer<CNodeService> self(this);
    const Core::CId modelId = model->id();
    // onNodeCreated() fills in the node, and does not take it for one from a document.
    m_knownNodes[modelId] = {EKnownNode::BeingAdded, nullptr};
    // A node that was announced stays, whatever a handler throws.
    swallowExceptions(lcService, "Adding a node", [&] { scene->createNode(std::move(model)); });
    if (!self)
        return Core::CId();

    const auto known = m_knownNodes.find(modelId);
    if (known == m_knownNodes.end())
        return Core::CId(); // a handler has removed it
    const CNodeBase* const node = known->second.node;
    if (!node) {
        m_knownNodes.erase(known); // it was not made
        return Core::CId();
    }
    known->second.state = EKnownNode::Added;
    return scene && holds(*scene, *node) ? node->id() : Core::CId();
}

void CNodeService::removeNode(CNodeBase& node, bool removeLoneNodeScene)
{
    const QPointer<CNodeScene> scene = findSceneOf(node);
    if (!scene)
        return; // somebody has changed the node's id
    const QPointer<CNodeService> self(this);
    const bool isRemoved = swallowExceptions(lcService, "Removing a node", [&] { scene->removeNode(node); });
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
    const QPointer<CNodeScene> scene = openScene();
    if (!scene)
        return false;
    // Models that are asked, and handlers, may destroy the scene.
    const bool isDone = swallowExceptions(lcService, "An import", [&] {
        CSceneImport import(*scene);
        for (const QString& document : documents)
            import.addDocument(document);
        if (scene)
            scene->load(import.sceneDocument());
    });
    return isDone && scene;
}

CNodeScene* CNodeService::findSceneOf(const CNodeBase& node) const
{
    const auto found = std::find_if(m_scenes.cbegin(), m_scenes.cend(),
                                    [&node](const CNodeScene* scene) { return holds(*scene, node); });
    return found == m_scenes.cend() ? nullptr : *found;
}

QPointer<CNodeScene> CNodeService::addScene(const Core::AppCoreComponents::BaseInfoPtr& info)
{
    auto* const made = new CNodeScene(info, nullptr);
    // Survives exchanged neighbours: neither runs foreign code.
    const QPointer<CNodeScene> scene(made);
    connect(made, &CNodeScene::nodeCreated, this, &CNodeService::onNodeCreated);
    connect(made, &CNodeScene::nodeDeleted, this, &CNodeService::onNodeDeleted);
    // Survives exchanged neighbours: neither runs foreign code.
    connect(made, &QObject::destroyed, this, [this, made] { onSceneDestroyed(made); });
    // Survives exchanged neighbours: the same.
    m_scenes.append(made);
    made->setRegistry(registry());
    takeTurn([this, scene] {
        if (scene)
            emitGuarded([&] { Q_EMIT sceneAdded(scene); });
    });
    return scene;
}

void CNodeService::activateScene(CNodeScene* scene)
{
    m_activeScene = scene;
    takeTurn([this, active = m_activeScene, isNone = !scene] {
        if (active || isNone)
            emitGuarded([&] { Q_EMIT activeSceneChanged(active); });
    });
}

void CNodeService::removeScene(CNodeScene& scene)
{
    // One that the host is destroying goes by itself, and onSceneDestroyed() tells of it.
    if (scene.isBeingDestroyed() || m_leavingScenes.contains(&scene))
        return;
    m_leavingScenes.insert(&scene);
    takeTurn([this, leaving = QPointer<CNodeScene>(&scene)] {
        if (leaving && !emitGuarded([&] { Q_EMIT sceneRemoving(leaving); }))
            return;
        takeTurn([this, leaving] {
            Q_ASSERT(!leaving || !leaving->isBeingDestroyed());
            m_scenes.removeOne(leaving);
            delete leaving.data();
        });
    });
}

void CNodeService::onSceneDestroyed(CNodeScene* scene)
{
    m_scenes.removeOne(scene); // only its address
    m_leavingScenes.remove(scene);
    takeTurn([this] {
        if (!emitGuarded([this] { Q_EMIT sceneRemoved(); }))
            return;
        takeTurn([this] {
            const auto first = std::find_if(m_scenes.cbegin(), m_scenes.cend(),
                                            [](const CNodeScene* left) { return !left->isBeingDestroyed(); });
            if (first != m_scenes.cend())
                activateScene(*first);
        });
    });
}

template <typename Work>
void CNodeService::takeTurn(Work work)
{
    if (!m_isClosing)
        m_turns->defer(std::move(work));
}

template <typename Signal>
bool CNodeService::emitGuarded(const Signal& signal)
{
    const QPointer<CNodeService> self(this);
    swallowExceptions(lcService, "A handler of the node service's signals", signal);
    return !self.isNull();
}

} // namespace Plugin::Halvex
