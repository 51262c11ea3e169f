// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/base/CRateMeter.h"
#include "host/viewer/edit/SPort.h"
#include "host/viewer/graph/CNodeActivity.h"
#include "host/viewer/graph/SNodeLook.h"

#include <QGraphicsItem>
#include <QPointer>

#include <memory>
#include <set>
#include <utility>
#include <vector>

namespace Plugin::Halvex {
class CNodeBase;
}

namespace Host {

class CConnectionItem;

/// Which ports of a node can be connected while a connection is being drawn: their side and index.
using LitPorts = std::set<std::pair<Plugin::Halvex::ENodePortType, int>>;

/**
 * A node as it is drawn: what it is called, its ports, its state, and, of decouplers and workers, what became of their
 * data. Its position is that of its top left corner.
 *
 * What it shows is read by refresh() alone. It glows while the model computes for longer than glowAfter, and while its
 * work takes longer than the interval between its frames.
 *
 * Ownership: the canvas. The node is watched, not owned.
 */
class CNodeItem : public QGraphicsItem
{
public:
    enum
    {
        Type = UserType + 1
    };
    static constexpr std::chrono::milliseconds glowAfter{100};

    CNodeItem(Plugin::Halvex::CNodeBase& node, const Plugin::Halvex::CNodeDataModelRegistry* registry);

    Core::CId id() const { return m_id; }
    Plugin::Halvex::CNodeBase* node() const; ///< Null once it is gone.
    const SNodeLook& look() const { return m_look; }
    QSizeF size() const { return m_size; }
    bool isGlowing() const { return m_isGlowing; }
    CNodeActivity& activity() { return m_activity; }

    /// Reads anew what is shown. Repaints only if something has changed.
    void refresh();

    /// Works out the rates of the outputs up to \a now.
    void measure(CRateMeter::Clock::time_point now);
    double rate(int port) const { return m_rates[std::size_t(port)].rate(); }
    bool hasFlowed(int port) const { return m_activity.updates(port) > 0; }

    /// Checks whether it glows; \a framesPerSecond come to it.
    void updateGlow(double framesPerSecond);

    /// The middle of a port, in the item's coordinates.
    QPointF portPosition(Plugin::Halvex::ENodePortType side, int index) const;

    /// The port at \a point, in the item's coordinates; one of no side if there is none near.
    SPort portAt(QPointF point) const;

    /// Lights these ports and dims all others, until null is set.
    void setLitPorts(const LitPorts* ports);
    bool isLit(Plugin::Halvex::ENodePortType side, int index) const;

    void attach(CConnectionItem* connection) { m_connections.insert(connection); }
    void detach(CConnectionItem* connection) { m_connections.erase(connection); }
    const std::set<CConnectionItem*>& connections() const { return m_connections; }

    int type() const override { return Type; }
    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;

private:
    void layOut();
    void setGlowing(bool on);

    const Core::CId m_id;
    const QPointer<Plugin::Halvex::CNodeBase> m_node;
    const Plugin::Halvex::CNodeDataModelRegistry* const m_registry;
    CNodeActivity m_activity;
    SNodeLook m_look;
    std::vector<CRateMeter> m_rates; // of the outputs
    QSizeF m_size;
    std::unique_ptr<LitPorts> m_litPorts; // null while no connection is being drawn
    std::set<CConnectionItem*> m_connections;
    bool m_isGlowing = false;
};

} // namespace Host
