// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "matrix/CMatrixWorld.h"

#include "support/ServiceConsistency.h"

#include <Halvex/models/CGenericNodeDecouplerDataModel.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

using namespace Plugin::Halvex;

namespace {

using TestDecoupler = CGenericNodeDecouplerDataModel<CTestData>;

CStepModel* stepOf(const CNodeBase& node)
{
    return dynamic_cast<CStepModel*>(node.nodeDataModel());
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
                if (connection.getNode(ENodePortType::Out) == out && in && stepOf(*in) && reached.insert(in).second)
                    open.push_back(in);
            }
        }
    }
    return reached;
}

} // namespace

bool SPlace::has(EPart part, const CNodeService& service) const
{
    switch (part) {
    case EPart::Connection:
        return scene && connection;
    case EPart::Node:
        return scene && node;
    case EPart::Decoupler:
        return scene && decoupler;
    case EPart::Scene:
        return scene;
    case EPart::OwnedScene:
        return scene && service.scenes().contains(scene);
    }
    return false;
}

CNodeDecouplerDataModelBase& SPlace::decouplerModel() const
{
    return *static_cast<CNodeDecouplerDataModelBase*>(decoupler->nodeDataModel());
}

void SPlace::feedDecoupler(CNodeDataPtr data) const
{
    decouplerModel().setFramesPerSecond(1000);
    decouplerModel().setInData(std::move(data), 0);
}

CMatrixWorld::CMatrixWorld(ELayout layout, bool hasDecouplers)
    : m_service(std::make_unique<CNodeService>(nullptr))
{
    m_service->registry()->registerModel<CStepModel>(
        [this] {
            auto model = std::make_unique<CStepModel>();
            if (onMade)
                onMade(*model);
            return model;
        },
        QStringLiteral("Test"));

    SPlace& up = at(ETarget::Upstream);
    // The node at hand is the last, which makes it likely to be the first in its scene's table.
    for (const ETarget target : {ETarget::Upstream, ETarget::Downstream, ETarget::Unrelated, ETarget::AtHand}) {
        SPlace& place = at(target);
        if (layout == ELayout::SceneEach || target == ETarget::Upstream) {
            addScene(place, QStringLiteral("source %1").arg(int(target)));
        } else {
            place = up;
            place.feeder = &addStep(*place.scene);
        }
        if (hasDecouplers)
            place.decoupler = &place.scene->createNode(std::make_unique<TestDecoupler>());
        place.node = &addStep(*place.scene);
    }
    hand().feeder = up.node;
    at(ETarget::Downstream).feeder = hand().node;

    for (auto& entry : m_places) {
        SPlace& place = entry.second;
        place.connection = connectPlace(place).get();
        if (hasDecouplers)
            place.scene->createConnection(*place.decoupler, 0, *place.node, 0, {});
    }
    feed(up);
}

bool CMatrixWorld::startDecouplers()
{
    for (auto& entry : m_places)
        entry.second.feedDecoupler(CTestData::make(0));
    const bool areRunning = QTest::qWaitFor([this] {
        return std::all_of(m_places.begin(), m_places.end(),
                           [](const auto& entry) { return entry.second.decouplerModel().outData(0); });
    });

    for (auto& entry : m_places) {
        entry.second.decouplerModel().setFramesPerSecond(0.001);
        feed(entry.second);
    }
    return areRunning;
}

bool CMatrixWorld::isHandFirst()
{
    return hand().scene->nodes().begin()->second.get() == hand().node;
}

void CMatrixWorld::fire()
{
    if (!std::exchange(m_hasFired, true))
        m_handler();
}

std::shared_ptr<CNodeConnection> CMatrixWorld::connectPlace(const SPlace& place)
{
    return place.scene->createConnection(*place.node, 0, *place.feeder, 0, {});
}

CStepModel& CMatrixWorld::addBehindDecoupler(const SPlace& place)
{
    CNodeBase& behind = addStep(*place.scene);
    place.scene->createConnection(behind, 0, *place.decoupler, 0, {});
    return *stepOf(behind);
}

void CMatrixWorld::feed(const SPlace& place)
{
    if (place.node)
        place.model().getDataFlowProxy()->setData(CTestData::make(++m_lastNumber));
}

void CMatrixWorld::addWitnesses()
{
    const auto onScene = [this](CNodeScene* scene) { witness(scene); };
    const auto onNode = [this](const CNodeBase& node) { witness(node); };
    const auto onConnection = [this](const CNodeConnection& connection) { witness(connection); };

    QObject::connect(m_service.get(), &INodeService::sceneAdded, onScene);
    QObject::connect(m_service.get(), &INodeService::sceneRemoving, onScene);
    QObject::connect(m_service.get(), &INodeService::activeSceneChanged, onScene);
    const QList<CNodeScene*> scenes = m_service->scenes();
    for (const CNodeScene* scene : scenes) {
        QObject::connect(scene, &CNodeScene::nodeCreated, onNode);
        QObject::connect(scene, &CNodeScene::nodeDeleted, onNode);
        QObject::connect(scene, &CNodeScene::connectionCreated, onConnection);
        QObject::connect(scene, &CNodeScene::connectionDeleted, onConnection);
    }
}

void CMatrixWorld::witness(const CNodeBase& node)
{
    if (!node.nodeDataModel() || node.nodeDataModel()->name().isEmpty())
        m_complaint = QStringLiteral("a handler was given a node that is not whole");
}

void CMatrixWorld::witness(const CNodeConnection& connection)
{
    static_cast<void>(connection.save()); // looks at both ends
    if (connection.id() == Core::CId())
        m_complaint = QStringLiteral("a handler was given a connection that is not whole");
}

void CMatrixWorld::witness(CNodeScene* scene)
{
    if (scene && !m_hasHostDestroyedScene && !m_service->scenes().contains(scene))
        m_complaint = QStringLiteral("a handler was given a scene that is gone");
}

void CMatrixWorld::destroyScene(CNodeScene* scene)
{
    m_hasHostDestroyedScene = true;
    delete scene;
}

QByteArray CMatrixWorld::sceneDocument(const SPlace& place)
{
    const QString id = (place.node ? place.node->id() : Core::CId::createId()).toString();
    const QString feeder = (place.feeder ? place.feeder->id() : Core::CId()).toString();
    const QJsonObject node{{"id", id}, {"model", QJsonObject{{"name", CStepModel::modelName()}}}};
    const QJsonObject connection{{"in_id", id}, {"in_index", 0}, {"out_id", feeder}, {"out_index", 0}};
    return QJsonDocument(QJsonObject{{"nodes", QJsonArray{node}}, {"connections", QJsonArray{connection}}}).toJson();
}

QString CMatrixWorld::importDocument(const SPlace& place)
{
    const QJsonObject element{{"name", "imported"},
                              {"model", QJsonObject{{"name", CStepModel::modelName()}}},
                              {"unique_sources", QJsonArray{QJsonValue(QJsonArray{place.sourceName})}}};
    return QString::fromUtf8(QJsonDocument(QJsonArray{element}).toJson());
}

QString CMatrixWorld::inconsistency() const
{
    return m_complaint.isEmpty() ? inconsistencyOfScenes(*m_service) : m_complaint;
}

QString CMatrixWorld::inconsistencyOfWalks()
{
    const SceneWorld world = scenesOf(*m_service);
    std::vector<std::pair<const CNodeBase*, CStepModel*>> steps;
    for (const CNodeScene* scene : world) {
        for (const auto& entry : scene->nodes()) {
            if (CStepModel* const model = stepOf(*entry.second))
                steps.emplace_back(entry.second.get(), model);
        }
    }

    for (const auto& step : steps)
        step.second->isDeaf = false;
    for (const auto& first : steps) {
        const int number = ++m_lastNumber;
        first.second->getDataFlowProxy()->setData(CTestData::make(number));
        const auto reached = reachedFrom(*first.first, world);
        for (const auto& step : steps) {
            if ((step.second->value() == number) != (reached.count(step.first) != 0))
                return QStringLiteral("a walk has not gone where the connections lead");
        }
    }
    return QString();
}

void CMatrixWorld::addScene(SPlace& place, const QString& name)
{
    const auto info = QSharedPointer<CMatrixInfo>::create();
    const Core::CId id = m_service->addNode(std::make_unique<CStepModel>(name), info);
    place.scene = m_service->getActiveScene();
    place.source = m_service->findNode(id);
    place.feeder = place.source;
    place.sourceName = name;
    place.info = info;
}

CNodeBase& CMatrixWorld::addStep(CNodeScene& scene)
{
    return scene.createNode(std::make_unique<CStepModel>());
}
