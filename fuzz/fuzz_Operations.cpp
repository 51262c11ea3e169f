// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Input: a sequence of operations of a service and its scenes, one byte for the operation and one for each of its
// choices. Whenever the library runs foreign code (a handler, a model, a converter) that takes a byte as well: it may
// throw, or run the operation that comes next.
//
// True whatever the sequence is: after each operation every scene is sound; at the end every scene's document comes
// back, and nothing outlives the service.

#include "support/CFuzzInput.h"
#include "support/CFuzzModel.h"
#include "support/FuzzProperties.h"
#include "support/StableIds.h"

#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/CNodeService.h>

#include <QScopeGuard>
#include <QSet>

#include <algorithm>
#include <array>
#include <vector>

using namespace Plugin::Halvex;

namespace {

constexpr int mostNodes = 16;
constexpr int mostConnections = 24;
constexpr int mostScenes = 4;
constexpr int deepestNesting = 3;

/// What foreign code throws.
struct SThrown
{
};

/// The objects of a table, in the order of their ids.
template <typename Table>
auto inOrder(const Table& table)
{
    std::vector<std::pair<Core::CId, decltype(table.begin()->second.get())>> objects;
    objects.reserve(table.size());
    for (const auto& entry : table)
        objects.emplace_back(entry.first, entry.second.get());
    std::sort(objects.begin(), objects.end());
    return objects;
}

class CWorld
{
public:
    explicit CWorld(CFuzzInput input);
    ~CWorld();
    Q_DISABLE_COPY(CWorld)

    void run();

private:
    using Operation = void (CWorld::*)();

    void operate();
    void onForeignCode();
    void watch(CNodeScene* scene);

    std::vector<CNodeScene*> scenes() const;
    CNodeScene* anyScene();
    CNodeBase* anyNode(const CNodeScene* scene);
    CNodeBase* anyNode() { return anyNode(anyScene()); }
    ANodeDataModel* anyModel();
    std::shared_ptr<CNodeConnection> anyConnection(const CNodeScene* scene);
    NodeDataConverter anyConverter();
    bool hasRoom(const CNodeScene* scene) const;

    void addSource();
    void addFilter();
    void addAgain();
    void createNode();
    void createConnection();
    void createHalfConnection();
    void connectModels();
    void deleteConnection();
    void deleteConnectionNow();
    void setTypeConverter();
    void removeNode();
    void removeNodeOfService();
    void removeNodeByModel();
    void removeSceneOfNode();
    void clearScene();
    void setActiveScene();
    void offerData();
    void announceData();
    void saveScene();
    void loadScene();
    void importDocument();
    void iterate();
    void keepConnection();
    void dropKept();
    void deleteScene();
    void deleteService();

    CFuzzInput m_input;
    CNodeService* m_service;
    bool m_isServiceLeaving = false;
    QSet<CNodeScene*> m_leavingScenes;
    std::vector<std::shared_ptr<CNodeConnection>> m_kept;
    QByteArray m_saved;
    int m_depth = 0;
};

CWorld::CWorld(CFuzzInput input)
    : m_input(std::move(input))
    , m_service(new CNodeService(nullptr))
{
    registerFuzzModels(*m_service->registry());
    QObject::connect(m_service, &INodeService::sceneAdded, m_service, [this](CNodeScene* scene) {
        watch(scene);
        onForeignCode();
    });
    QObject::connect(m_service, &INodeService::sceneRemoving, m_service, [this] { onForeignCode(); });
    QObject::connect(m_service, &INodeService::sceneRemoved, m_service, [this] { onForeignCode(); });
    QObject::connect(m_service, &INodeService::activeSceneChanged, m_service, [this] { onForeignCode(); });
    CFuzzModel::onCalled = [this] { onForeignCode(); };
}

CWorld::~CWorld()
{
    CFuzzModel::onCalled = nullptr;
    m_input.rest();
    for (CNodeScene* const scene : scenes())
        requireRoundTrip(*scene);
    delete m_service;
}

void CWorld::run()
{
    while (m_service && !m_input.isEmpty()) {
        CFuzzModel::deliveriesLeft = 200;
        try {
            operate();
        } catch (const SThrown&) {
            // A scene's operations pass on what foreign code throws.
        }
        for (CNodeScene* const scene : scenes())
            requireSoundness(*scene);
    }
}

void CWorld::operate()
{
    static constexpr std::array<Operation, 26> operations{
        &CWorld::addSource,         &CWorld::addFilter,         &CWorld::addAgain,
        &CWorld::createNode,        &CWorld::createConnection,  &CWorld::createHalfConnection,
        &CWorld::connectModels,     &CWorld::deleteConnection,  &CWorld::deleteConnectionNow,
        &CWorld::setTypeConverter,  &CWorld::removeNode,        &CWorld::removeNodeOfService,
        &CWorld::removeNodeByModel, &CWorld::removeSceneOfNode, &CWorld::clearScene,
        &CWorld::setActiveScene,    &CWorld::offerData,         &CWorld::announceData,
        &CWorld::saveScene,         &CWorld::loadScene,         &CWorld::importDocument,
        &CWorld::iterate,           &CWorld::keepConnection,    &CWorld::dropKept,
        &CWorld::deleteScene,       &CWorld::deleteService};
    static constexpr std::array<Operation, 9> ofService{
        &CWorld::addSource,         &CWorld::addFilter,           &CWorld::addAgain,
        &CWorld::connectModels,     &CWorld::removeNodeOfService, &CWorld::removeNodeByModel,
        &CWorld::removeSceneOfNode, &CWorld::setActiveScene,      &CWorld::importDocument};
    if (!m_service || m_isServiceLeaving)
        return;
    const Operation operation = operations[std::size_t(m_input.choice(int(operations.size())))];
    try {
        (this->*operation)();
    } catch (const SThrown&) {
        const bool isOfService = std::find(ofService.begin(), ofService.end(), operation) != ofService.end();
        require(!isOfService, QStringLiteral("the service throws nothing"));
        throw;
    }
}

void CWorld::onForeignCode()
{
    if (m_depth == deepestNesting || m_input.isEmpty())
        return;
    const int choice = m_input.choice(8);
    if (choice == 7)
        throw SThrown();
    if (choice != 6)
        return;
    ++m_depth;
    const auto leave = qScopeGuard([this] { --m_depth; });
    operate();
}

void CWorld::watch(CNodeScene* scene)
{
    QObject::connect(scene, &CNodeScene::nodeCreated, scene, [this] { onForeignCode(); });
    QObject::connect(scene, &CNodeScene::nodeDeleted, scene, [this] { onForeignCode(); });
    QObject::connect(scene, &CNodeScene::connectionCreated, scene, [this] { onForeignCode(); });
    QObject::connect(scene, &CNodeScene::connectionDeleted, scene, [this] { onForeignCode(); });
}

std::vector<CNodeScene*> CWorld::scenes() const
{
    if (!m_service)
        return {};
    const QList<CNodeScene*> all = m_service->scenes();
    return {all.begin(), all.end()};
}

CNodeScene* CWorld::anyScene()
{
    const std::vector<CNodeScene*> all = scenes();
    return all.empty() ? nullptr : all[std::size_t(m_input.choice(int(all.size())))];
}

CNodeBase* CWorld::anyNode(const CNodeScene* scene)
{
    if (!scene || scene->nodes().empty())
        return nullptr;
    const auto nodes = inOrder(scene->nodes());
    return nodes[std::size_t(m_input.choice(int(nodes.size())))].second;
}

ANodeDataModel* CWorld::anyModel()
{
    const CNodeBase* const node = anyNode();
    return node ? qobject_cast<ANodeDataModel*>(node->nodeDataModel()) : nullptr;
}

std::shared_ptr<CNodeConnection> CWorld::anyConnection(const CNodeScene* scene)
{
    if (!scene || scene->connections().empty())
        return nullptr;
    const auto connections = inOrder(scene->connections());
    return scene->connections().at(connections[std::size_t(m_input.choice(int(connections.size())))].first);
}

NodeDataConverter CWorld::anyConverter()
{
    if (m_input.choice(2) == 0)
        return NodeDataConverter();
    return [this](CNodeDataPtr data) {
        if (CFuzzModel::onCalled)
            onForeignCode();
        return data;
    };
}

bool CWorld::hasRoom(const CNodeScene* scene) const
{
    return scene && scene->nodes().size() < mostNodes && scene->connections().size() < mostConnections;
}

void CWorld::addSource()
{
    if (m_service->scenes().size() >= mostScenes)
        return;
    SFuzzModelKind kind;
    kind.name = QStringLiteral("Camera");
    kind.inPorts = 0;
    kind.outPorts = 2;
    kind.hasOutput = m_input.choice(2) == 1;
    kind.isUnique = true;
    kind.uniqueName = QStringLiteral("camera");
    kind.type = ENodeDataModelType::Source;
    m_service->addNode(std::make_unique<CFuzzModel>(kind), nullptr);
}

void CWorld::addFilter()
{
    static const std::array<QString, 5> names{QStringLiteral("Filter"), QStringLiteral("Mixer"),
                                              QStringLiteral("Constant"), QStringLiteral("Unique"),
                                              QStringLiteral("DecouplerT")};
    if (hasRoom(m_service->getActiveScene()))
        m_service->addNode(m_service->createModel(names[std::size_t(m_input.choice(int(names.size())))]), nullptr);
}

void CWorld::addAgain()
{
    if (ANodeDataModel* const model = anyModel())
        m_service->addNode(std::unique_ptr<ANodeDataModel>(model), nullptr);
}

void CWorld::createNode()
{
    CNodeScene* const scene = anyScene();
    if (hasRoom(scene))
        scene->createNode(m_service->registry()->create(QStringLiteral("Mixer")));
}

void CWorld::createConnection()
{
    CNodeScene* const scene = anyScene();
    CNodeBase* const in = anyNode(scene);
    CNodeBase* const out = anyNode(scene);
    if (!in || !hasRoom(scene))
        return;
    const int inIndex = m_input.choice(4) - 1;
    const int outIndex = m_input.choice(4) - 1;
    scene->createConnection(*in, inIndex, *out, outIndex, anyConverter());
}

void CWorld::createHalfConnection()
{
    CNodeScene* const scene = anyScene();
    CNodeBase* const node = anyNode(scene);
    if (node && hasRoom(scene))
        scene->createConnection(ENodePortType(m_input.choice(3)), *node, m_input.choice(2));
}

void CWorld::connectModels()
{
    CNodeScene* const scene = anyScene();
    const CNodeBase* const in = anyNode(scene);
    const CNodeBase* const out = anyNode(scene);
    if (in && hasRoom(scene))
        m_service->connectModels(qobject_cast<ANodeDataModel*>(in->nodeDataModel()), m_input.choice(2),
                                 qobject_cast<ANodeDataModel*>(out->nodeDataModel()), m_input.choice(2));
}

void CWorld::deleteConnection()
{
    CNodeScene* const scene = anyScene();
    if (const auto connection = anyConnection(scene))
        scene->deleteConnection(*connection);
}

void CWorld::deleteConnectionNow()
{
    CNodeScene* const scene = anyScene();
    if (scene && !scene->connections().empty())
        scene->deleteConnectionNow(*anyConnection(scene));
}

void CWorld::setTypeConverter()
{
    if (const auto connection = anyConnection(anyScene()))
        connection->setTypeConverter(anyConverter());
}

void CWorld::removeNode()
{
    CNodeScene* const scene = anyScene();
    if (CNodeBase* const node = anyNode(scene))
        scene->removeNode(*node);
}

void CWorld::removeNodeOfService()
{
    if (const CNodeBase* const node = anyNode())
        m_service->removeNode(node->id(), m_input.choice(2) == 1);
}

void CWorld::removeNodeByModel()
{
    ANodeDataModel* model = anyModel();
    m_service->removeNodeByModel(model, m_input.choice(2) == 1);
}

void CWorld::removeSceneOfNode()
{
    m_service->removeSceneOfNode(anyNode());
}

void CWorld::clearScene()
{
    if (CNodeScene* const scene = anyScene())
        scene->clearScene();
}

void CWorld::setActiveScene()
{
    m_service->setActiveScene(anyScene());
}

void CWorld::offerData()
{
    if (auto* const model = dynamic_cast<CFuzzModel*>(anyModel()))
        model->offer(m_input.choice(4) == 0 ? CNodeDataPtr() : CTestData::make(2));
}

void CWorld::announceData()
{
    if (CNodeBase* const node = anyNode())
        node->onDataUpdated(m_input.choice(4) - 1);
}

void CWorld::saveScene()
{
    if (const CNodeScene* const scene = anyScene())
        m_saved = scene->saveToMemory();
}

void CWorld::loadScene()
{
    CNodeScene* const scene = anyScene();
    if (hasRoom(scene))
        scene->loadFromMemory(m_saved);
}

void CWorld::importDocument()
{
    static const QString chain = QStringLiteral(
        R"([{"name": "f", "model": {"name": "Filter"}, "unique_sources": [["camera"]], "connection": [["m", "d"]]},
            {"name": "m", "model": {"name": "Mixer"}, "unique_sources": [["f"], ["camera"], ["d"]]},
            {"name": "d", "model": {"name": "DecouplerT"}}])");
    if (!hasRoom(m_service->getActiveScene()))
        return;
    if (m_input.choice(2) == 0) {
        m_service->importDocument(chain);
        return;
    }
    m_service->addStoredDocument(chain);
    m_service->importStoredDocuments();
}

void CWorld::iterate()
{
    if (CNodeScene* const scene = anyScene())
        scene->iterateOverNodes([this](CNodeBase*) { onForeignCode(); });
}

void CWorld::keepConnection()
{
    if (auto connection = anyConnection(anyScene()))
        m_kept.push_back(std::move(connection));
}

void CWorld::dropKept()
{
    m_kept.clear();
}

void CWorld::deleteScene()
{
    CNodeScene* const scene = anyScene();
    if (!scene || m_leavingScenes.contains(scene))
        return;
    m_leavingScenes.insert(scene);
    delete scene;
    m_leavingScenes.remove(scene);
}

void CWorld::deleteService()
{
    m_isServiceLeaving = true;
    delete m_service;
    m_service = nullptr;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    StableIds::restart();
    CWorld(CFuzzInput(data, size)).run();
    requireNothingLeft();
    return 0;
}
