// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/CGraphCanvas.h"

#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/graph/CConnectionItem.h"
#include "host/viewer/graph/CNodeItem.h"
#include "host/viewer/graph/CPortDrag.h"
#include "host/viewer/graph/GraphLayout.h"

#include <Halvex/scene/CNodeScene.h>

#include <QGraphicsView>

#include <algorithm>
#include <set>

namespace Host {

using namespace Plugin::Halvex;

namespace {

constexpr int framePeriod = 16;    // of the screen, in milliseconds
constexpr int pulsePeriod = 100;   // how often states are read
constexpr int measurePeriod = 500; // how often rates are

} // namespace

CGraphCanvas::CGraphCanvas(CGraphEditor& editor, QObject* parent)
    : QGraphicsScene(parent)
    , m_editor(&editor)
    , m_registry(editor.registry())
{
    m_syncTimer.setSingleShot(true);
    m_syncTimer.setInterval(framePeriod);
    connect(&m_syncTimer, &QTimer::timeout, this, &CGraphCanvas::sync);
    m_pulseTimer.setObjectName(QStringLiteral("pulse"));
    m_pulseTimer.setInterval(pulsePeriod);
    connect(&m_pulseTimer, &QTimer::timeout, this, &CGraphCanvas::pulse);
    m_pulseTimer.start();
    m_sinceMeasured.start();
    connect(&editor, &CGraphEditor::positionsChanged, this, &CGraphCanvas::applyPositions);
    if (editor.scene())
        watch(*editor.scene());
    sync();
}

CGraphCanvas::~CGraphCanvas()
{
    // Who hears of the selection may ask for what is there.
    dropAll();
}

CGraphEditor* CGraphCanvas::editor() const
{
    return m_editor;
}

void CGraphCanvas::sync()
{
    const CNodeScene* const scene = m_editor ? m_editor->scene() : nullptr;
    m_syncTimer.stop();
    if (!scene) {
        dropAll();
        return;
    }
    syncNodes(*scene);
    syncConnections(*scene);
    placeNewNodes();
    fitSceneRect();
    Q_EMIT drawn();
}

void CGraphCanvas::measure()
{
    m_sinceMeasured.restart();
    const auto now = CRateMeter::Clock::now();
    for (const auto& entry : m_nodes) {
        entry.second->measure(now);
        entry.second->refresh();
    }
    for (const auto& entry : m_connections)
        entry.second->refresh();
}

CNodeItem* CGraphCanvas::nodeItem(const Core::CId& node) const
{
    const auto found = m_nodes.find(node);
    return found == m_nodes.end() ? nullptr : found->second;
}

SPort CGraphCanvas::portAt(QPointF point) const
{
    constexpr double reach = 14;
    const auto near =
        items(QRectF(point - QPointF(reach, reach), QSizeF(2 * reach, 2 * reach)), Qt::IntersectsItemBoundingRect);
    for (QGraphicsItem* each : near) {
        const auto* const item = qgraphicsitem_cast<CNodeItem*>(each);
        const SPort port = item ? item->portAt(item->mapFromScene(point)) : SPort();
        if (port.side != ENodePortType::None)
            return port;
    }
    return {};
}

void CGraphCanvas::startConnection(const SPort& port)
{
    m_drag.reset();
    if (m_editor && m_editor->scene() && nodeItem(port.node))
        m_drag = std::make_unique<CPortDrag>(*this, port);
}

void CGraphCanvas::finishConnection()
{
    if (!m_drag)
        return;
    const SPort one = m_drag->source();
    const SPort other = m_drag->target();
    m_drag.reset();
    if (other.side == ENodePortType::None || !m_editor)
        return;
    m_editor->connectPorts(one.side == ENodePortType::Out ? one : other, one.side == ENodePortType::Out ? other : one);
}

void CGraphCanvas::cancelConnection()
{
    m_drag.reset();
}

void CGraphCanvas::watch(CNodeScene& scene)
{
    const auto syncSoon = [this] {
        if (!m_syncTimer.isActive())
            m_syncTimer.start();
    };
    connect(&scene, &CNodeScene::nodeCreated, this, syncSoon);
    // A handler of these that throws keeps what was to be deleted: it is drawn again then.
    connect(&scene, &CNodeScene::nodeDeleted, this, [this, syncSoon](CNodeBase& node) {
        dropNode(node.id());
        syncSoon();
    });
    connect(&scene, &CNodeScene::connectionCreated, this, [this, syncSoon](CNodeConnection& connection) {
        connect(&connection, &CNodeConnection::updated, this, syncSoon);
        syncSoon();
    });
    connect(&scene, &CNodeScene::connectionDeleted, this, [this, syncSoon](CNodeConnection& connection) {
        dropConnection(connection.id());
        syncSoon();
    });
    connect(&scene, &QObject::destroyed, this, &CGraphCanvas::sync);
}

void CGraphCanvas::syncNodes(const CNodeScene& scene)
{
    std::vector<Core::CId> gone;
    for (const auto& entry : m_nodes) {
        const auto found = scene.nodes().find(entry.first);
        if (found == scene.nodes().end() || found->second.get() != entry.second->node())
            gone.push_back(entry.first);
    }
    for (const Core::CId& id : gone)
        dropNode(id);
    for (const auto& entry : scene.nodes()) {
        if (!nodeItem(entry.first))
            addNode(*entry.second);
    }
}

void CGraphCanvas::syncConnections(const CNodeScene& scene)
{
    std::vector<Core::CId> gone;
    for (const auto& entry : m_connections) {
        const auto found = scene.connections().find(entry.first);
        if (found == scene.connections().end() || !entry.second->shows(*found->second))
            gone.push_back(entry.first);
    }
    for (const Core::CId& id : gone)
        dropConnection(id);
    for (const auto& entry : scene.connections()) {
        const CNodeConnection& connection = *entry.second;
        const CNodeBase* const out = connection.getNode(ENodePortType::Out);
        const CNodeBase* const in = connection.getNode(ENodePortType::In);
        CNodeItem* const from = out ? nodeItem(out->id()) : nullptr;
        CNodeItem* const to = in ? nodeItem(in->id()) : nullptr;
        if (!from || !to || m_connections.count(entry.first) > 0)
            continue;
        m_connections[entry.first] = new CConnectionItem(connection, *from, *to);
        addItem(m_connections[entry.first]);
    }
}

void CGraphCanvas::addNode(CNodeBase& node)
{
    const Core::CId id = node.id();
    auto* const item = new CNodeItem(node, m_registry.get());
    m_nodes[id] = item;
    addItem(item);
    // A document that has the same id replaces a node without a word.
    connect(&node, &QObject::destroyed, this, [this, id, item] {
        if (nodeItem(id) == item)
            dropNode(id);
    });
    const NodePositions positions = m_editor->positions();
    if (positions.contains(id.toString()))
        item->setPos(positions.value(id.toString()));
}

void CGraphCanvas::dropNode(const Core::CId& id)
{
    CNodeItem* const item = nodeItem(id);
    if (!item)
        return;
    if (m_drag)
        m_drag->forget(id);
    while (!item->connections().empty())
        dropConnection((*item->connections().begin())->id());
    m_nodes.erase(id);
    delete item;
    if (m_drag && m_drag->source().node == id)
        cancelConnection();
}

void CGraphCanvas::dropAll()
{
    while (!m_nodes.empty())
        dropNode(m_nodes.begin()->first);
}

void CGraphCanvas::dropConnection(const Core::CId& id)
{
    const auto found = m_connections.find(id);
    if (found == m_connections.end())
        return;
    const std::unique_ptr<CConnectionItem> item(found->second);
    m_connections.erase(found);
}

void CGraphCanvas::pulse()
{
    if (!isShown())
        return;
    for (const auto& entry : m_nodes) {
        if (entry.second->activity().takeChanged())
            entry.second->refresh();
        entry.second->updateGlow(rateInto(*entry.second));
    }
    if (m_sinceMeasured.elapsed() >= measurePeriod)
        measure();
}

double CGraphCanvas::rateInto(const CNodeItem& item) const
{
    double rate = 0;
    for (const CConnectionItem* connection : item.connections()) {
        if (&connection->to() == &item)
            rate = std::max(rate, connection->rate());
    }
    return rate;
}

bool CGraphCanvas::isShown() const
{
    const QList<QGraphicsView*> shown = views();
    return std::any_of(shown.begin(), shown.end(), [](const QGraphicsView* view) { return view->isVisible(); });
}

} // namespace Host
