// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CViewerMenus.h"

#include "host/viewer/base/Actions.h"
#include "host/viewer/base/CLanguage.h"
#include "host/viewer/cameras/CCameraPanel.h"
#include "host/viewer/cameras/CFeaturePanel.h"
#include "host/viewer/graph/CGraphView.h"
#include "host/viewer/images/CImageDock.h"
#include "host/viewer/window/CImageDocks.h"
#include "host/viewer/window/CScenePage.h"
#include "host/viewer/window/CSceneTabs.h"
#include "host/viewer/window/CViewerDocks.h"
#include "host/viewer/window/CViewerWindow.h"

#include <QActionGroup>
#include <QMenuBar>
#include <QUndoGroup>

namespace Host {

CViewerMenus::CViewerMenus(CViewerWindow& window, QUndoGroup& history, const CViewerSettings& settings)
    : QObject(&window)
    , m_window(window)
    , m_history(history)
    , m_settings(settings)
    , m_file(window.menuBar()->addMenu(QString()))
    , m_edit(window.menuBar()->addMenu(QString()))
    , m_cameras(window.menuBar()->addMenu(QString()))
    , m_graph(window.menuBar()->addMenu(QString()))
    , m_images(window.menuBar()->addMenu(QString()))
    , m_view(window.menuBar()->addMenu(QString()))
{
    makeFileMenu();
    makeEditMenu();
    m_cameras->addActions(window.docks().cameras().cameraActions());
    m_cameras->addSeparator();
    m_cameras->addActions(window.docks().features().featureActions());
    makeViewMenu();
    for (QMenu* const menu : {m_file, m_edit, m_graph, m_images})
        connect(menu, &QMenu::aboutToShow, this, &CViewerMenus::update);
    retranslate();
    update();
}

QAction* CViewerMenus::add(QMenu* menu, const char* name, const QKeySequence& keys, void (CViewerWindow::*slot)())
{
    QAction* const action = makeAction(&m_window, name, keys, slot);
    menu->addAction(action);
    return action;
}

void CViewerMenus::makeFileMenu()
{
    m_new = add(m_file, "newScene", QKeySequence::New, &CViewerWindow::addScene);
    m_open = add(m_file, "openScene", QKeySequence::Open, &CViewerWindow::askForScene);
    m_recent = m_file->addMenu(QString());
    m_file->addSeparator();
    m_save = add(m_file, "saveScene", QKeySequence::Save, &CViewerWindow::saveCurrent);
    m_saveAs = add(m_file, "saveSceneAs", QKeySequence(QStringLiteral("Ctrl+Shift+S")), &CViewerWindow::saveCurrentAs);
    m_file->addSeparator();
    m_import = add(m_file, "importChain", QKeySequence(QStringLiteral("Ctrl+I")), &CViewerWindow::askForChain);
    m_file->addSeparator();
    m_next = add(m_file, "nextScene", QKeySequence(QStringLiteral("Ctrl+PgDown")), &CViewerWindow::showNextScene);
    m_previous =
        add(m_file, "previousScene", QKeySequence(QStringLiteral("Ctrl+PgUp")), &CViewerWindow::showPreviousScene);
    m_close = add(m_file, "closeScene", QKeySequence::Close, &CViewerWindow::closeCurrent);
    m_quit = makeAction(&m_window, "quit", QKeySequence(QStringLiteral("Ctrl+Q")), [this] { m_window.close(); });
    m_file->addAction(m_quit);
}

void CViewerMenus::makeEditMenu()
{
    m_undo = makeAction(&m_window, "undo", QKeySequence::Undo, [this] { m_history.undo(); });
    m_redo = makeAction(&m_window, "redo", QKeySequence::Redo, [this] { m_history.redo(); });
    m_edit->addActions({m_undo, m_redo});
    m_edit->addSeparator();
    m_addView = add(m_edit, "addImageView", QKeySequence(QStringLiteral("Ctrl+E")), &CViewerWindow::addImageView);
    connect(&m_history, &QUndoGroup::canUndoChanged, m_undo, &QAction::setEnabled);
    connect(&m_history, &QUndoGroup::canRedoChanged, m_redo, &QAction::setEnabled);
    m_undo->setEnabled(m_history.canUndo());
    m_redo->setEnabled(m_history.canRedo());
    connect(&m_history, &QUndoGroup::undoTextChanged, this, &CViewerMenus::showSteps);
    connect(&m_history, &QUndoGroup::redoTextChanged, this, &CViewerMenus::showSteps);
}

void CViewerMenus::showSteps()
{
    const QString undo = m_history.undoText();
    const QString redo = m_history.redoText();
    m_undo->setText(undo.isEmpty() ? tr("Undo") : tr("Undo: %1").arg(undo));
    m_redo->setText(redo.isEmpty() ? tr("Redo") : tr("Redo: %1").arg(redo));
}

QAction* CViewerMenus::addChoice(QMenu* menu, QActionGroup* group, const QString& name, bool isChosen)
{
    auto* const action = new QAction(&m_window);
    action->setObjectName(name);
    action->setCheckable(true);
    action->setChecked(isChosen);
    action->setActionGroup(group);
    menu->addAction(action);
    return action;
}

void CViewerMenus::makeViewMenu()
{
    m_commands = add(m_view, "commands", QKeySequence(QStringLiteral("Ctrl+K")), &CViewerWindow::showCommands);
    m_view->addSeparator();
    m_view->addActions(m_window.docks().toggleActions());
    m_view->addSeparator();

    m_colors = m_view->addMenu(QString());
    auto* const colors = new QActionGroup(this);
    for (const auto choice :
         {CViewerSettings::EColors::AsDesktop, CViewerSettings::EColors::Light, CViewerSettings::EColors::Dark}) {
        m_colorChoices << addChoice(m_colors, colors, QStringLiteral("colors-%1").arg(int(choice)),
                                    choice == m_settings.colors());
        connect(m_colorChoices.last(), &QAction::triggered, &m_window,
                [this, choice] { m_window.chooseColors(choice); });
    }

    m_languages = m_view->addMenu(QString());
    auto* const languages = new QActionGroup(this);
    m_systemLanguage =
        addChoice(m_languages, languages, QStringLiteral("language-system"), m_settings.language().isEmpty());
    connect(m_systemLanguage, &QAction::triggered, &m_window, [this] { m_window.chooseLanguage({}); });
    const QStringList codes = CLanguage::codes();
    for (const QString& code : codes) {
        QAction* const action =
            addChoice(m_languages, languages, QStringLiteral("language-%1").arg(code), m_settings.language() == code);
        action->setText(CLanguage::nativeName(code));
        connect(action, &QAction::triggered, &m_window, [this, code] { m_window.chooseLanguage(code); });
    }
    m_view->addSeparator();
    m_fullScreen = makeAction(&m_window, "fullScreen", Qt::Key_F11,
                              [this] { m_window.setWindowState(m_window.windowState() ^ Qt::WindowFullScreen); });
    m_view->addAction(m_fullScreen);
}

void CViewerMenus::update()
{
    const CScenePage* const page = m_window.tabs().current();
    for (QAction* const action : {m_save, m_saveAs, m_import, m_next, m_previous, m_close, m_addView})
        action->setEnabled(page != nullptr);
    m_graph->clear();
    if (page)
        m_graph->addActions(page->view().graphActions());
    m_graph->setEnabled(page != nullptr);
    fillRecent();
    fillImages();
}

void CViewerMenus::fillRecent()
{
    m_recent->clear();
    const QStringList files = m_settings.recentFiles();
    for (const QString& file : files)
        m_recent->addAction(file, &m_window, [this, file] { m_window.askToOpen(file); });
    m_recent->setEnabled(!files.isEmpty());
}

void CViewerMenus::fillImages()
{
    m_images->clear(); // which leaves submenus
    const auto submenus = m_images->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
    for (QMenu* const submenu : submenus)
        submenu->deleteLater(); // its own action may be at work
    for (CImageDock* const dock : m_window.imageDocks().docks()) {
        QMenu* const menu = m_images->addMenu(dock->windowTitle());
        menu->addAction(dock->toggleViewAction());
        menu->addSeparator();
        menu->addActions(dock->imageActions());
    }
    m_images->setEnabled(!m_images->isEmpty());
}

QList<QAction*> CViewerMenus::menus() const
{
    return m_window.menuBar()->actions();
}

void CViewerMenus::retranslate()
{
    m_file->setTitle(tr("&File"));
    m_edit->setTitle(tr("&Edit"));
    m_cameras->setTitle(tr("&Cameras"));
    m_graph->setTitle(tr("&Graph"));
    m_images->setTitle(tr("&Images"));
    m_view->setTitle(tr("&View"));
    m_recent->setTitle(tr("Open recent"));
    m_colors->setTitle(tr("Colours"));
    m_languages->setTitle(tr("Language"));
    m_new->setText(tr("New scene"));
    m_open->setText(tr("Open scene…"));
    m_save->setText(tr("Save scene"));
    m_saveAs->setText(tr("Save scene as…"));
    m_import->setText(tr("Import chain…"));
    m_next->setText(tr("Next scene"));
    m_previous->setText(tr("Previous scene"));
    m_close->setText(tr("Close scene"));
    m_quit->setText(tr("Quit"));
    showSteps();
    m_addView->setText(tr("Show the camera's image"));
    m_commands->setText(tr("Commands…"));
    m_fullScreen->setText(tr("Full screen"));
    m_systemLanguage->setText(tr("As the desktop"));
    m_colorChoices[int(CViewerSettings::EColors::AsDesktop)]->setText(tr("As the desktop"));
    m_colorChoices[int(CViewerSettings::EColors::Light)]->setText(tr("Light"));
    m_colorChoices[int(CViewerSettings::EColors::Dark)]->setText(tr("Dark"));
}

} // namespace Host
