// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/window/CViewerSettings.h"

#include <QList>
#include <QObject>

class QAction;
class QActionGroup;
class QMenu;
class QUndoGroup;

namespace Host {

class CViewerWindow;

/**
 * The menu bar of a viewer's window, and so what its command palette offers. Menus of what comes and goes, such as the
 * images, are filled when they are to be seen.
 *
 * Ownership: the window owns this object and the actions. Threads: the main thread.
 */
class CViewerMenus : public QObject
{
    Q_OBJECT

public:
    CViewerMenus(CViewerWindow& window, QUndoGroup& history, const CViewerSettings& settings);

    /// Fills what comes and goes, and enables what can be done now.
    void update();

    void retranslate();

    /// Of the menu bar.
    QList<QAction*> menus() const;

private:
    void makeFileMenu();
    void makeEditMenu();
    void showSteps();
    void makeViewMenu();
    void fillRecent();
    void fillImages();
    QAction* add(QMenu* menu, const char* name, const QKeySequence& keys, void (CViewerWindow::*slot)());
    QAction* addChoice(QMenu* menu, QActionGroup* group, const QString& name, bool isChosen);

    CViewerWindow& m_window;
    QUndoGroup& m_history;
    const CViewerSettings& m_settings;
    QMenu* const m_file;
    QMenu* const m_edit;
    QMenu* const m_cameras;
    QMenu* const m_graph;
    QMenu* const m_images;
    QMenu* const m_view;
    QMenu* m_recent = nullptr;
    QMenu* m_colors = nullptr;
    QMenu* m_languages = nullptr;
    QAction* m_new = nullptr;
    QAction* m_open = nullptr;
    QAction* m_save = nullptr;
    QAction* m_saveAs = nullptr;
    QAction* m_import = nullptr;
    QAction* m_next = nullptr;
    QAction* m_previous = nullptr;
    QAction* m_close = nullptr;
    QAction* m_quit = nullptr;
    QAction* m_undo = nullptr;
    QAction* m_redo = nullptr;
    QAction* m_addView = nullptr;
    QAction* m_commands = nullptr;
    QAction* m_fullScreen = nullptr;
    QAction* m_systemLanguage = nullptr;
    QList<QAction*> m_colorChoices; // in the order of CViewerSettings::EColors
};

} // namespace Host
