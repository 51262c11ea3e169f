// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "world/CMatrixWorld.h"

#include <QTest>

#include <algorithm>
#include <utility>

using namespace Plugin::Halvex;

namespace {

CNodeBase& addStep(CNodeScene& scene)
{
    return scene.createNode(std::make_unique<CWorldModel>(EKind::Step));
}

} // namespace

CMatrixWorld::CMatrixWorld(ELayout layout, bool hasDecouplers, bool hasWorkers)
{
    SPlace& up = at(ETarget::Upstream);
    // The node at hand is the last, which makes it likely to be the first in its scene's table.
    for (const ETarget target : {ETarget::Upstream, ETarget::Downstream, ETarget::Unrelated, ETarget::AtHand}) {
        SPlace& place = at(target);
        if (layout == ELayout::SceneEach || target == ETarget::Upstream) {
            addScene(place);
        } else {
            place = up;
            place.feeder = &addStep(*place.scene);
        }
        if (hasDecouplers)
            place.decoupler = &place.scene->createNode(std::make_unique<TestDecoupler>());
        if (hasWorkers)
            place.worker = &place.scene->createNode(makeWorker());
        // As hosts do, so that the service knows it; it does not know the others.
        place.node = addNode(std::make_unique<CWorldModel>(EKind::Step), {});
    }
    hand().feeder = up.node;
    at(ETarget::Downstream).feeder = hand().node;

    for (auto& entry : m_places) {
        SPlace& place = entry.second;
        place.connection = connectPlace(place);
        if (hasDecouplers)
            place.scene->createConnection(*place.decoupler, 0, *place.node, 0, {});
        if (hasWorkers)
            place.scene->createConnection(*place.worker, 0, *place.node, 0, {});
    }
    feed(up);
}

bool CMatrixWorld::startDecouplers()
{
    for (auto& entry : m_places)
        feedDecoupler(entry.second, CTestData::make(0));
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

void CMatrixWorld::arm(EHook hook, const void* object, First first)
{
    m_hook = hook;
    m_object = object;
    m_first = std::move(first);
    m_isArmed = true;
}

void CMatrixWorld::onHook(EHook hook, const void* object)
{
    if (!m_isArmed || m_hasFired || hook != m_hook || (m_object && object != m_object))
        return;
    if (m_first)
        m_first(object);
    fire();
}

void CMatrixWorld::fire()
{
    if (!std::exchange(m_hasFired, true))
        m_handler();
}

CNodeConnection* CMatrixWorld::connectPlace(const SPlace& place)
{
    return place.scene->createConnection(*place.node, 0, *place.feeder, 0, {}).get();
}

CWorldModel& CMatrixWorld::addBehind(const SPlace& place, CNodeBase& feeder)
{
    CNodeBase& behind = addStep(*place.scene);
    place.scene->createConnection(behind, 0, feeder, 0, {});
    return static_cast<CWorldModel&>(*behind.nodeDataModel());
}

void CMatrixWorld::feed(const SPlace& place)
{
    if (CWorldModel* const model = place.model())
        model->send(makeNextData());
}

void CMatrixWorld::feedDecoupler(const SPlace& place, CNodeDataPtr data)
{
    place.decouplerModel().setFramesPerSecond(1000);
    place.decouplerModel().setInData(std::move(data), 0);
}

void CMatrixWorld::addScene(SPlace& place)
{
    const auto info = QSharedPointer<CWorldInfo>::create();
    place.source = addNode(makeSource(&place.sourceName), info);
    place.scene = service().getActiveScene();
    place.feeder = place.source;
    place.info = info;
}
