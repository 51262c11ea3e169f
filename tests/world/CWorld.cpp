// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "world/CWorld.h"

#include "support/SceneContent.h"
#include "support/ServiceConsistency.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <set>
#include <utility>

using namespace Plugin::Halvex;

namespace {

/// The model of a node that passes data on; null for others.
CWorldModel* passingModelOf(const CNodeBase& node)
{
    auto* const model = dynamic_cast<CWorldModel*>(node.nodeDataModel());
    return model && model->isPassing() ? model : nullptr;
}

/// Where data that enters \a first gets to, itself included; decouplers pass it on later.
std::set<const CNodeBase*> reachedFrom(const CNodeBase& first, const SceneWorld& world)
{
    std::set<const CNodeBase*> reached{&first};
    std::vector<const CNodeBase*> open{&first};
    while (!open.empty()) {
        const CNodeBase* const out = open.back();
        open.pop_back();
        for (const CNodeScene* scene : world) {
            for (const auto& entry : scene->connections()) {
                const CNodeConnection& connection = *entry.second;
                const CNodeBase* const in = connection.getNode(ENodePortType::In);
                const bool leads = connection.getNode(ENodePortType::Out) == out && in &&
                                   connection.getPortIndex(ENodePortType::Out) == 0;
                // A half connection that leads somewhere else may have two ends as well.
                if (leads && out->nodeState().connections(ENodePortType::Out, 0).count(connection.id()) != 0 &&
                    passingModelOf(*in) && reached.insert(in).second)
                    open.push_back(in);
            }
        }
    }
    return reached;
}

} // namespace

const char* nameOf(EKind kind)
{
    static constexpr const char* names[]{"Step", "View", "Camera", "Named", "Screen", "Plain", "DecouplerT", "Worker"};
    return names[int(kind)];
}

CWorld::CWorld()
    : m_service(new CNodeService(nullptr))
    , m_witness(*m_service)
{
    const auto registry = m_service->registry();
    for (const EKind kind : {EKind::Step, EKind::View, EKind::Named}) {
        const auto create = [kind] {
            auto model = std::make_unique<CWorldModel>(kind);
            call(EHook::Creator, model.get());
            return model;
        };
        registry->registerModel(create, QStringLiteral("Test"));
    }
    const auto createPlain = [] {
        auto model = std::make_unique<CTestModel>(2, 2, QString::fromLatin1(nameOf(EKind::Plain)));
        hookUp(*model);
        return model;
    };
    registry->registerModel(createPlain, QStringLiteral("Test"));
    registry->registerModel<TestDecoupler>(QStringLiteral("Test"));
    registry->registerModel([this] { return makeWorker(); }, QStringLiteral("Test"));
    // Output ports give another type than input ports take, but for a decoupler's.
    registry->registerTypeConverter({otherType(), CTestData::defaultType()}, converter());
    registry->registerTypeConverter({CTestData::defaultType(), CTestData::defaultType()}, converter());
    s_current = this;
}

CWorld::~CWorld()
{
    s_current = nullptr;
    destroyService();
}

bool CWorld::staysInScene(const CNodeScene& scene, const CNodeConnection& connection)
{
    const auto isOfScene = [&scene](const CNodeBase* node) {
        const auto found = node ? scene.nodes().find(node->id()) : scene.nodes().end();
        return !node || (found != scene.nodes().end() && found->second.get() == node);
    };
    return isOfScene(connection.getNode(ENodePortType::In)) && isOfScene(connection.getNode(ENodePortType::Out));
}

std::vector<CNodeScene*> CWorld::scenes() const
{
    if (!hasService())
        return {};
    const QList<CNodeScene*> all = m_service->scenes();
    return {all.begin(), all.end()};
}

bool CWorld::has(EPart part, const SPlace& place) const
{
    if (part == EPart::Nothing)
        return true;
    if (!hasService() || part == EPart::Service)
        return hasService();
    switch (part) {
    case EPart::Connection:
        return place.scene && place.connection;
    case EPart::Node:
        return place.scene && place.node;
    case EPart::Decoupler:
        return place.scene && place.decoupler;
    case EPart::Worker:
        return place.scene && place.worker;
    case EPart::OwnedScene:
        return place.scene && m_service->scenes().contains(place.scene) && !place.scene->isBeingDestroyed();
    default:
        return place.scene;
    }
}

std::unique_ptr<CWorldModel> CWorld::makeSource(QString* name)
{
    const QString uniqueName = QStringLiteral("source %1").arg(++m_lastSource);
    if (name)
        *name = uniqueName;
    return std::make_unique<CWorldModel>(EKind::Camera, uniqueName);
}

NodeDataConverter CWorld::converter()
{
    return [this](CNodeDataPtr data) {
        call(EHook::Converter, this);
        if (!data)
            return data;
        ++m_conversions;
        return CNodeDataPtr(makeData(CTestData::valueOf(data) + 1));
    };
}

CNodeBase* CWorld::addNode(std::unique_ptr<ANodeDataModel> model, const QSharedPointer<CWorldInfo>& info)
{
    const Core::CId id = m_service->addNode(std::move(model), info);
    if (!hasService() || id == Core::CId())
        return nullptr;
    CNodeBase* const node = m_service->findNode(id);
    if (!node)
        m_witness.complain("a node that was added is there");
    return node;
}

void CWorld::destroyScene(CNodeScene* scene)
{
    m_witness.onSceneDestroyedByHost();
    delete scene;
}

void CWorld::destroyService()
{
    m_isServiceLeaving = true;
    kept.clear();
    delete std::exchange(m_service, nullptr);
    m_pool.endWork(); // which keeps data
}

QByteArray CWorld::sceneDocument(const SPlace& place)
{
    const QString id = (place.node ? place.node->id() : Core::CId::createId()).toString();
    const QString feeder = (place.feeder ? place.feeder->id() : Core::CId()).toString();
    const QJsonObject node{{"id", id}, {"model", QJsonObject{{"name", nameOf(EKind::Step)}}}};
    const QJsonObject connection{{"in_id", id}, {"in_index", 0}, {"out_id", feeder}, {"out_index", 0}};
    return QJsonDocument(QJsonObject{{"nodes", QJsonArray{node}}, {"connections", QJsonArray{connection}}}).toJson();
}

void CWorld::onReceived(const void* model, int value, int port)
{
    for (const CNodeScene* const scene : scenes()) {
        for (const auto& entry : scene->nodes()) {
            const CNodeBase& node = *entry.second;
            if (!node.nodeDataModel() || dynamic_cast<const void*>(node.nodeDataModel()) != model)
                continue;
            m_received.push_back({m_witness.numberOf(&node), port, value});
            // One that was taken out, but is kept alive, is served to the end of the walk that it stood in.
            const auto leadsHere = [&node, port](const std::shared_ptr<CNodeConnection>& connection) {
                return connection->getNode(ENodePortType::In) == &node &&
                       connection->getPortIndex(ENodePortType::In) == port;
            };
            if (value != -1 && node.nodeState().connections(ENodePortType::In, port).empty() &&
                std::none_of(kept.cbegin(), kept.cend(), leadsHere))
                m_witness.complain("data comes to a port that no connection leads to");
        }
    }
}

void CWorld::beginStep()
{
    m_witness.beginStep();
    m_received.clear();
    m_conversions = 0;
    result = 0;
}

QString CWorld::inconsistency() const
{
    if (!m_witness.complaint().isEmpty() || !hasService())
        return m_witness.complaint();
    for (const CWorldWorker* const worker : workers()) {
        if (!worker->areCountsRight())
            return QStringLiteral("the counts of a worker do not add up");
    }
    return inconsistencyOfScenes(*m_service);
}

std::vector<CWorldWorker*> CWorld::workers() const
{
    std::vector<CWorldWorker*> found;
    for (const CNodeScene* const scene : scenes()) {
        for (const auto& entry : scene->nodes()) {
            if (auto* const worker = dynamic_cast<CWorldWorker*>(entry.second->nodeDataModel()))
                found.push_back(worker);
        }
    }
    return found;
}

QString CWorld::inconsistencyOfWorkers() const
{
    const CSilence silence;
    for (CWorldWorker* const worker : workers()) {
        // With each pass at least one comes out.
        for (quint64 left = worker->statistics().pending; left > 0; --left)
            worker->letResultsArrive();
        if (worker->statistics().pending != 0 || !worker->areCountsRight())
            return QStringLiteral("a worker keeps frames");
    }
    return QString();
}

QString CWorld::inconsistencyOfWalks()
{
    if (!hasService())
        return QString();
    const CSilence silence;
    const SceneWorld world = scenesOf(*m_service);
    std::vector<std::pair<const CNodeBase*, CWorldModel*>> steps;
    for (const CNodeScene* scene : world) {
        for (const auto& entry : scene->nodes()) {
            if (CWorldModel* const model = passingModelOf(*entry.second))
                steps.emplace_back(entry.second.get(), model);
        }
    }

    for (const auto& step : steps)
        step.second->isDeaf = false;
    for (const auto& first : steps) {
        first.second->send(makeNextData());
        const auto reached = reachedFrom(*first.first, world);
        for (const auto& step : steps) {
            if ((step.second->value() / perSending == m_lastSending) != (reached.count(step.first) != 0))
                return QStringLiteral("a walk has not gone where the connections lead");
        }
    }
    return QString();
}

QString CWorld::inconsistencyOfDocuments() const
{
    const CSilence silence;
    for (const CNodeScene* const scene : scenes()) {
        if (&scene->registry() != m_service->registry().get() ||
            !std::all_of(scene->connections().begin(), scene->connections().end(),
                         [&](const auto& entry) { return staysInScene(*scene, *entry.second); }))
            continue;
        CNodeScene copy(m_service->registry(), nullptr, nullptr);
        copy.loadFromMemory(scene->saveToMemory());
        if (!inconsistencyOf(copy).isEmpty() || contentOf(copy) != contentOf(*scene))
            return QStringLiteral("a document has not come back:\n") + contentOf(*scene).join('\n') +
                   QStringLiteral("\n--- became\n") + contentOf(copy).join('\n');
    }
    return QString();
}
