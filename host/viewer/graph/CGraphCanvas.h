// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/edit/GraphPart.h"
#include "host/viewer/edit/SPort.h"

#include <QElapsedTimer>
#include <QGraphicsScene>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace Plugin::Halvex {
class CNodeBase;
class CNodeConnection;
class CNodeDataModelRegistry;
class CNodeScene;
} // namespace Plugin::Halvex

namespace Host {

class CConnectionItem;
class CGraphEditor;
class CNodeItem;
class CPortDrag;

/**
 * The drawing of a scene, made from the scene's signals alone, whoever changes it.
 *
 * An item goes at once when its node or connection does, by whatever way. What is new is drawn by sync(), a moment
 * later: a scene that changes a hundred times in a row is read once. Where nodes are drawn stands in the editor. Nodes
 * that have no place get one: the first of a scene by a layout of all, those that come later near the middle of the
 * view.
 *
 * States are read ten times a second where data flows and twice a second elsewhere, rates twice a second, and only
 * while a view shows the drawing. What has not changed is not painted.
 *
 * The mouse draws connections from port to port and moves nodes; both are steps of the editor.
 *
 * Ownership: items are the canvas's. Scene and editor may go at any time; the drawing is empty then. Threads: the
 * scene's.
 */
class CGraphCanvas : public QGraphicsScene
{
    Q_OBJECT

public:
    explicit CGraphCanvas(CGraphEditor& editor, QObject* parent = nullptr);
    ~CGraphCanvas() override;

    CGraphEditor* editor() const; ///< Null once it is gone.

    /// Draws what is there now.
    void sync();

    /// Reads states and rates now.
    void measure();

    CNodeItem* nodeItem(const Core::CId& node) const;
    const std::map<Core::CId, CNodeItem*>& nodeItems() const { return m_nodes; }
    const std::map<Core::CId, CConnectionItem*>& connectionItems() const { return m_connections; }

    /// What all nodes fill.
    QRectF nodesRect() const;

    std::vector<Core::CId> selectedNodes() const;
    std::vector<Core::CId> selectedConnections() const;

    /// Makes these nodes the selection. Draws what is there now, before.
    void select(const std::vector<Core::CId>& nodes);

    /// Makes that connection the selection; one that is not there changes nothing.
    void selectConnection(const Core::CId& connection);

    /// The port near \a point of the drawing; one of no side if there is none.
    SPort portAt(QPointF point) const;

    /// Lays all nodes out anew: one step of the editor.
    void arrange();

    /// The same without a step, for nodes that nobody has put anywhere.
    void placeAll();

    /// Begins to draw a connection from \a port, to be led by the mouse or the keyboard.
    void startConnection(const SPort& port);

    /// The connection that is being drawn; null if there is none.
    CPortDrag* connectionInProgress() const { return m_drag.get(); }

    /// Makes the connection that is being drawn, if it leads to a port that fits.
    void finishConnection();
    void cancelConnection();

Q_SIGNALS:
    /// sync() has changed what is drawn.
    void drawn();

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    void dragEnterEvent(QGraphicsSceneDragDropEvent* event) override;
    void dragMoveEvent(QGraphicsSceneDragDropEvent* event) override;
    void dropEvent(QGraphicsSceneDragDropEvent* event) override;

private:
    void watch(Plugin::Halvex::CNodeScene& scene);
    void syncNodes(const Plugin::Halvex::CNodeScene& scene);
    void syncConnections(const Plugin::Halvex::CNodeScene& scene);
    void addNode(Plugin::Halvex::CNodeBase& node);
    void dropNode(const Core::CId& id);
    void dropAll();
    void dropConnection(const Core::CId& id);
    void placeNewNodes();
    NodePositions layoutOfAll() const;
    // Most often the only one is the camera, and a chain has just been added behind it.
    void arrangeAroundTheOnlyOne();
    std::vector<QPointF> layoutOf(const std::vector<CNodeItem*>& items) const;
    void applyPositions();
    void commitMoves();
    void fitSceneRect();
    // Tells of it at its end: who hears of it may remove what is being selected.
    void changeSelection(const std::function<void()>& change);
    void pulse();
    double rateInto(const CNodeItem& item) const;
    bool isShown() const;
    QPointF viewCentre() const;

    const QPointer<CGraphEditor> m_editor;
    const std::shared_ptr<Plugin::Halvex::CNodeDataModelRegistry> m_registry;
    std::map<Core::CId, CNodeItem*> m_nodes;
    std::map<Core::CId, CConnectionItem*> m_connections;
    std::unique_ptr<CPortDrag> m_drag;
    QTimer m_syncTimer;
    QTimer m_pulseTimer{this};
    QElapsedTimer m_sinceMeasured;
};

} // namespace Host
