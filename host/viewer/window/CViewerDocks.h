// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QList>
#include <QObject>

class QAction;
class QDockWidget;
class QMainWindow;
class QUndoGroup;
class QUndoView;
class QWidget;

namespace Plugin::Halvex {
class INodeService;
}

namespace Host {

class CCameraList;
class CCameraPanel;
class CCameraSessions;
class CFaultPanel;
class CFeaturePanel;
class CModelPalette;
class CSettingsPanel;
class IHostModels;

/**
 * The docks of a window that are always there, beside those of images: cameras and their features, models and their
 * settings, what the checker finds, and the history of changes.
 *
 * Ownership: the window owns the docks. Threads: the main thread.
 */
class CViewerDocks : public QObject
{
    Q_OBJECT

public:
    CViewerDocks(QMainWindow& window, CCameraSessions& sessions, Plugin::Halvex::INodeService& service,
                 const IHostModels& models, QUndoGroup& history);

    CCameraPanel& cameras() const { return *m_cameras; }
    CFeaturePanel& features() const { return *m_features; }
    CModelPalette& palette() const { return *m_palette; }
    CSettingsPanel& settings() const { return *m_settings; }
    CFaultPanel& faults() const { return *m_faults; }

    /// To show and hide each.
    QList<QAction*> toggleActions() const;

    /// Shows the dock that \a panel is in, in front of others.
    static void bringUp(const QWidget& panel);

    void retranslate();

private:
    QDockWidget* addDock(const char* name, QWidget* content);
    void arrange();

    QMainWindow& m_window;
    CCameraList* const m_list;
    CCameraPanel* const m_cameras;
    CFeaturePanel* const m_features;
    CModelPalette* const m_palette;
    CSettingsPanel* const m_settings;
    CFaultPanel* const m_faults;
    QUndoView* const m_history;
    QList<QDockWidget*> m_docks; // in the order of the panels above
};

} // namespace Host
