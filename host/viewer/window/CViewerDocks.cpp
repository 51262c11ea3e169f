// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CViewerDocks.h"

#include "host/viewer/base/Theme.h"
#include "host/viewer/cameras/CCameraList.h"
#include "host/viewer/cameras/CCameraPanel.h"
#include "host/viewer/cameras/CCameraSession.h"
#include "host/viewer/cameras/CCameraSessions.h"
#include "host/viewer/cameras/CFeaturePanel.h"
#include "host/viewer/edit/CFaultPanel.h"
#include "host/viewer/edit/CModelPalette.h"
#include "host/viewer/edit/CSettingsPanel.h"

#include <Halvex/service/INodeService.h>

#include <QAction>
#include <QDockWidget>
#include <QMainWindow>
#include <QUndoView>
#include <QVBoxLayout>

namespace Host {

using namespace Plugin::Halvex;

namespace {

// With the margin that the other panels have.
QWidget* padded(QWidget* panel)
{
    auto* const content = new QWidget;
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(gridStep, gridStep, gridStep, gridStep);
    column->addWidget(panel);
    return content;
}

enum EDock
{
    Cameras,
    Features,
    Models,
    Settings,
    Faults,
    History
};

} // namespace

CViewerDocks::CViewerDocks(QMainWindow& window, CCameraSessions& sessions, INodeService& service,
                           const IHostModels& models, QUndoGroup& history)
    : QObject(&window)
    , m_window(window)
    , m_list(new CCameraList(sessions, this))
    , m_cameras(new CCameraPanel(sessions, *m_list))
    , m_features(new CFeaturePanel)
    , m_palette(new CModelPalette(service.registry()))
    , m_settings(new CSettingsPanel)
    , m_faults(new CFaultPanel(service, models))
    , m_history(new QUndoView(&history))
{
    m_docks << addDock("cameras", m_cameras) << addDock("features", m_features) << addDock("models", m_palette)
            << addDock("settings", m_settings) << addDock("faults", m_faults) << addDock("history", padded(m_history));
    arrange();
    connect(m_cameras, &CCameraPanel::currentChanged, m_features, &CFeaturePanel::setSession);
    retranslate();
}

QDockWidget* CViewerDocks::addDock(const char* name, QWidget* content)
{
    auto* const dock = new QDockWidget(&m_window);
    dock->setObjectName(QLatin1String(name));
    dock->setWidget(content);
    return dock;
}

void CViewerDocks::arrange()
{
    for (const Qt::Corner corner : {Qt::TopLeftCorner, Qt::BottomLeftCorner})
        m_window.setCorner(corner, Qt::LeftDockWidgetArea);
    for (const Qt::Corner corner : {Qt::TopRightCorner, Qt::BottomRightCorner})
        m_window.setCorner(corner, Qt::RightDockWidgetArea);
    m_window.addDockWidget(Qt::LeftDockWidgetArea, m_docks[Cameras]);
    m_window.splitDockWidget(m_docks[Cameras], m_docks[Models], Qt::Vertical);
    m_window.tabifyDockWidget(m_docks[Models], m_docks[Settings]);
    m_window.tabifyDockWidget(m_docks[Settings], m_docks[Features]);
    m_window.addDockWidget(Qt::BottomDockWidgetArea, m_docks[Faults]);
    m_window.tabifyDockWidget(m_docks[Faults], m_docks[History]);
    m_docks[Models]->raise();
    m_docks[Faults]->raise();
    // They take room from the graph, and are wanted now and then.
    m_docks[Faults]->hide();
    m_docks[History]->hide();
    m_window.resizeDocks({m_docks[Cameras]}, {44 * gridStep}, Qt::Horizontal);
    m_window.resizeDocks({m_docks[Faults]}, {20 * gridStep}, Qt::Vertical);
}

QList<QAction*> CViewerDocks::toggleActions() const
{
    QList<QAction*> actions;
    for (QDockWidget* const dock : m_docks)
        actions << dock->toggleViewAction();
    return actions;
}

void CViewerDocks::bringUp(const QWidget& panel)
{
    auto* const dock = qobject_cast<QDockWidget*>(panel.parentWidget());
    if (!dock)
        return;
    dock->show();
    dock->raise();
}

void CViewerDocks::retranslate()
{
    m_docks[Cameras]->setWindowTitle(tr("Cameras"));
    m_docks[Features]->setWindowTitle(tr("Features"));
    m_docks[Models]->setWindowTitle(tr("Models"));
    m_docks[Settings]->setWindowTitle(tr("Settings"));
    m_docks[Faults]->setWindowTitle(tr("Faults"));
    m_docks[History]->setWindowTitle(tr("History"));
    m_history->setEmptyLabel(tr("Before the first change"));
    m_history->setAccessibleName(tr("History of changes"));
}

} // namespace Host
