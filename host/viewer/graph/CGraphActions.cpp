// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/CGraphActions.h"

#include "host/viewer/base/Actions.h"
#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/graph/CGraphCanvas.h"
#include "host/viewer/graph/CGraphView.h"
#include "host/viewer/graph/CNodeItem.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QKeySequence>
#include <QMimeData>

namespace Host {

namespace {

constexpr double graphZoomStep = 1.25;

} // namespace

CGraphActions::CGraphActions(CGraphView& view)
    : QObject(&view)
    , m_view(view)
{
    addEdits();
    addViews();
    find("graphOverview")->setCheckable(true);
    find("graphOverview")->setChecked(true);
    view.installEventFilter(this);
    CGraphCanvas* const canvas = &view.canvas();
    connect(canvas, &QGraphicsScene::selectionChanged, this, &CGraphActions::updateEnabled);
    QUndoStack* const stack = &view.editor()->undoStack();
    connect(stack, &QUndoStack::indexChanged, this, &CGraphActions::retranslate);
    retranslate();
    updateEnabled();
}

QList<QAction*> CGraphActions::actions() const
{
    return m_actions;
}

bool CGraphActions::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    return QObject::eventFilter(watched, event);
}

void CGraphActions::add(const char* name, const QKeySequence& shortcut, const std::function<void()>& run)
{
    QAction* const action = makeAction(&m_view, name, shortcut);
    // Several scenes have a view each.
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, [this, run] {
        if (m_view.editor())
            run();
    });
    m_actions << action;
}

void CGraphActions::addEdits()
{
    add("graphUndo", QKeySequence::Undo, [this] { m_view.editor()->undoStack().undo(); });
    add("graphRedo", QKeySequence::Redo, [this] { m_view.editor()->undoStack().redo(); });
    add("graphCut", QKeySequence::Cut, [this] {
        copy();
        remove();
    });
    add("graphCopy", QKeySequence::Copy, [this] { copy(); });
    add("graphPaste", QKeySequence::Paste, [this] { paste(); });
    add("graphDuplicate", QKeySequence(QStringLiteral("Ctrl+D")), [this] { duplicate(); });
    add("graphDelete", QKeySequence::Delete, [this] { remove(); });
    add("graphSelectAll", QKeySequence::SelectAll, [this] { selectAll(); });
    add("graphConnect", QKeySequence(Qt::Key_C), [this] { m_view.connectSelected(); });
    add("graphNextConnection", QKeySequence(Qt::Key_N), [this] { m_view.goToNextConnection(); });
    add("graphArrange", QKeySequence(QStringLiteral("Ctrl+L")), [this] {
        m_view.canvas().arrange();
        m_view.fit();
    });
}

void CGraphActions::addViews()
{
    add("graphFind", QKeySequence::Find, [this] { m_view.search(); });
    add("graphFit", QKeySequence(QStringLiteral("Ctrl+0")), [this] { m_view.fit(); });
    add("graphActualSize", QKeySequence(QStringLiteral("Ctrl+1")), [this] { m_view.setActualSize(); });
    add("graphZoomIn", QKeySequence::ZoomIn, [this] { m_view.zoom(graphZoomStep); });
    add("graphZoomOut", QKeySequence::ZoomOut, [this] { m_view.zoom(1 / graphZoomStep); });
    add("graphOverview", QKeySequence(Qt::Key_M),
        [this] { m_view.setOverviewEnabled(find("graphOverview")->isChecked()); });
}

void CGraphActions::updateEnabled()
{
    const bool hasNodes = !m_view.canvas().selectedNodes().empty();
    const bool hasConnections = !m_view.canvas().selectedConnections().empty();
    for (const char* name : {"graphCut", "graphCopy", "graphDuplicate", "graphConnect"})
        find(name)->setEnabled(hasNodes);
    find("graphDelete")->setEnabled(hasNodes || hasConnections);
}

void CGraphActions::remove()
{
    m_view.editor()->remove(m_view.canvas().selectedNodes(), m_view.canvas().selectedConnections());
}

void CGraphActions::copy()
{
    const QByteArray text = m_view.editor()->copied(m_view.canvas().selectedNodes());
    QApplication::clipboard()->setText(QString::fromUtf8(text));
}

void CGraphActions::paste()
{
    const QPointF middle = m_view.mapToScene(m_view.viewport()->rect().center());
    m_view.canvas().select(m_view.editor()->paste(QApplication::clipboard()->text().toUtf8(), middle));
}

void CGraphActions::duplicate()
{
    const QPointF offset(48, 48);
    const auto added = m_view.editor()->duplicate(m_view.canvas().selectedNodes(), offset);
    if (!added.empty())
        m_view.canvas().select(added);
}

void CGraphActions::selectAll()
{
    std::vector<Core::CId> all;
    m_view.canvas().sync();
    for (const auto& entry : m_view.canvas().nodeItems())
        all.push_back(entry.first);
    m_view.canvas().select(all);
}

QAction* CGraphActions::find(const char* name) const
{
    for (QAction* action : m_actions) {
        if (action->objectName() == QLatin1String(name))
            return action;
    }
    return nullptr;
}

void CGraphActions::retranslate()
{
    if (!m_view.editor())
        return;
    const QUndoStack& stack = m_view.editor()->undoStack();
    find("graphUndo")->setText(tr("Undo %1").arg(stack.undoText()).trimmed());
    find("graphUndo")->setEnabled(stack.canUndo());
    find("graphRedo")->setText(tr("Redo %1").arg(stack.redoText()).trimmed());
    find("graphRedo")->setEnabled(stack.canRedo());
    find("graphCut")->setText(tr("Cut"));
    find("graphCopy")->setText(tr("Copy"));
    find("graphPaste")->setText(tr("Paste"));
    find("graphDuplicate")->setText(tr("Duplicate"));
    find("graphDelete")->setText(tr("Delete"));
    find("graphSelectAll")->setText(tr("Select all nodes"));
    find("graphConnect")->setText(tr("Connect…"));
    find("graphNextConnection")->setText(tr("Choose the next connection"));
    find("graphArrange")->setText(tr("Arrange"));
    find("graphFind")->setText(tr("Find a node…"));
    find("graphFit")->setText(tr("Show all"));
    find("graphActualSize")->setText(tr("Actual size"));
    find("graphZoomIn")->setText(tr("Zoom in"));
    find("graphZoomOut")->setText(tr("Zoom out"));
    find("graphOverview")->setText(tr("Overview"));
}

} // namespace Host
