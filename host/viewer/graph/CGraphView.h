// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/edit/SPort.h"

#include <QGraphicsView>
#include <QPointer>

#include <vector>

namespace Host {

class CGraphActions;
class CGraphCanvas;
class CGraphEditor;
class CGraphOverview;
class CGraphSearch;

/**
 * Shows the drawing of a scene and lets a person edit it.
 *
 * \code
 * auto* const view = new CGraphView(editor, window);
 * menu->addActions(view->graphActions());
 * connect(view, &CGraphView::nodeSelected, panel, [=, &editor](const Core::CId& id) { panel->show(&editor, id); });
 * \endcode
 *
 * Mouse: the wheel zooms at the pointer, the middle button moves the drawing, the left button selects, moves nodes and
 * draws connections. Keyboard: the arrows go from node to node, with Shift they choose one more, with Ctrl they move
 * the chosen ones; Tab goes through all nodes and then on to the next widget; Enter activates a node. While a
 * connection is being drawn Tab and the arrows go through the ports that fit, Enter makes it, Escape gives it up.
 *
 * Ownership: the editor is not owned and may go; the view is empty then. Threads: the window's.
 */
class CGraphView : public QGraphicsView
{
    Q_OBJECT

public:
    explicit CGraphView(CGraphEditor& editor, QWidget* parent = nullptr);
    ~CGraphView() override;

    CGraphCanvas& canvas() const { return *m_canvas; }
    CGraphEditor* editor() const; ///< Null once it is gone.

    /// For menus and the command palette. They work while the view has the focus.
    QList<QAction*> graphActions() const;

    /// Shows all nodes, at most in their own size, and goes on to when the view changes its size, until it is zoomed or
    /// moved.
    void fit();
    void zoom(double factor);
    void lookAt(QPointF point);
    void setActualSize();

    /// Chooses that node and brings it into view. One that is not there changes nothing.
    void goTo(const Core::CId& node);

    /// Chooses a connection, as nextConnection() says, and brings it into view.
    void goToNextConnection();

    void search();
    CGraphSearch& searchBar() const { return *m_search; }

    /// Adds a node of that model behind the chosen one, or in the middle of the view if none is, and chooses it.
    /// Connect CModelPalette::placeRequested() to it.
    void place(const QString& modelName);

    /// The overview is there while the view does not show all nodes and is much larger; it can be switched off.
    void setOverviewEnabled(bool enabled);

    /// Begins a connection at the next output of the chosen node, or at its inputs if it has no outputs.
    void connectSelected();

Q_SIGNALS:
    /// That node alone is chosen; no id if it is none or several.
    void nodeSelected(Core::CId id);

    /// Enter was pressed, or the node was clicked twice.
    void nodeActivated(Core::CId id);

protected:
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void drawBackground(QPainter* painter, const QRectF& area) override;
    bool focusNextPrevChild(bool next) override;

private:
    bool steerConnection(int key);
    bool goInDirection(int key, Qt::KeyboardModifiers modifiers);
    void chooseOneMore(QPointF direction);
    void moveSelected(QPointF by);
    void bringIntoView(const QGraphicsItem& item);
    void onSelectionChanged();
    void placeOverlays();
    void updateOverview();
    void retranslate();

    const QPointer<CGraphEditor> m_editor;
    CGraphCanvas* m_canvas = nullptr;
    CGraphActions* m_actions = nullptr;
    CGraphOverview* m_overview = nullptr;
    CGraphSearch* m_search = nullptr;
    SPort m_lastSource;     // of a connection that was begun with the keyboard
    Core::CId m_lastChosen; // by goTo() or chooseOneMore()
    QPoint m_panFrom;
    bool m_isPanning = false;
    bool m_isFitted = true;
    bool m_isOverviewEnabled = true;
};

} // namespace Host
