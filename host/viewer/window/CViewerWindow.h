// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/window/CSceneFiles.h"
#include "host/viewer/window/CViewerSettings.h"

#include <QMainWindow>
#include <QTimer>
#include <QUndoGroup>

#include <functional>

class QDialog;
class QFileDialog;

namespace Plugin::Halvex {
class CNodeScene;
}

namespace Host {

class CCameraSession;
class CCameraSessions;
class CCommandPalette;
class CImageDocks;
class CPositionsFile;
class CScenePage;
class CSceneTabs;
class CThreadWatch;
class CViewerDocks;
class CViewerMenus;
class CViewerStatus;

/**
 * The window of the viewer: cameras at the left, images above the graphs, of which each scene has one in a tab.
 *
 * \code
 * CViewerWindow window({services.nodes(), services.models(), settings, positions});
 * window.sessions().connectCamera(camera);
 * window.show();
 * \endcode
 *
 * It learns of scenes and nodes from the service's and the scenes' signals alone, whoever makes them. A camera that is
 * connected is shown at once: its scene gets an image view.
 *
 * Functions that take a file ask nothing; what is wrong is told in the status bar and among the faults, and they
 * return false. What a person does asks first if changes would be lost, without a nested event loop: cameras come and
 * scenes go meanwhile, and a question about a scene goes with it.
 *
 * When the program's last window is closed, recordings and cameras end; the program goes on without a window until that
 * is done, for 30 s at most.
 *
 * Threads: the main thread, in which the graphs run, too.
 */
class CViewerWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// What it works with; all of it outlives the window.
    struct SParts
    {
        Plugin::Halvex::INodeService& service; ///< With the viewer's models, see ViewModels.h.
        const IHostModels& models;
        CViewerSettings& settings;
        const CPositionsFile& positions;
    };

    explicit CViewerWindow(const SParts& parts, QWidget* parent = nullptr);
    ~CViewerWindow() override;

    CCameraSessions& sessions() const { return *m_sessions; }
    CSceneTabs& tabs() const { return *m_tabs; }
    CImageDocks& imageDocks() const { return *m_images; }
    CViewerDocks& docks() const { return *m_docks; }
    CViewerStatus& status() const { return *m_status; }
    CCommandPalette& commandPalette() const { return *m_palette; }

    /// A scene without a camera, for a graph that is to be looked at or prepared; its source is called \a name. Null
    /// if the service has none to give.
    CScenePage* newScene(const QString& name);

    /// Into the current scene, in place of what is there but its camera; into a new one if there is none.
    bool openScene(const QString& file);
    bool saveScene(const QString& file);
    bool importChain(const QString& file);

    /// An empty \a code is the desktop's language. Whoever installs languages listens to languageChosen().
    void chooseLanguage(const QString& code);
    void chooseColors(CViewerSettings::EColors colors);

    /// For the whole application.
    static void applyColors(CViewerSettings::EColors colors);

public Q_SLOTS:
    void addScene();
    void askForScene();
    /// In place of what is in the current scene. Asks first if that has changes.
    void askToOpen(const QString& file);
    void askForChain();
    void saveCurrent();
    void saveCurrentAs();
    void closeCurrent();
    void showNextScene() { showBeside(1); }
    void showPreviousScene() { showBeside(-1); }
    void addImageView();
    void showCommands();

Q_SIGNALS:
    /// \a code is one of CLanguage::codes().
    void languageChosen(const QString& code);

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void connectParts();
    void onPageAdded(CScenePage* page);
    void onPageChanged(CScenePage* page);
    void onOpened(const CCameraSession* session);
    void askToClose(const Plugin::Halvex::CNodeScene* scene);
    void askToDisconnect(const QString& camera);
    void closeScene(const Plugin::Halvex::CNodeScene* scene);
    void checkSoon();
    void check();
    bool openScene(const QString& file, CScenePage* page);
    bool saveScene(const QString& file, CScenePage* page);
    bool importChain(const QString& file, CScenePage* page);
    bool report(const QString& error, const QString& done);
    void askToReplace(CScenePage* page, const QString& file);
    void askForFile(CScenePage* page, QFileDialog* dialog, const std::function<void(const QString&)>& then);
    void ifChangesMayGo(CScenePage& page, const std::function<void(CScenePage&)>& then);
    QDialog* askToDiscard(const QString& modified, const std::function<void()>& then);
    void restoreLayout();
    void showBeside(int step);
    void retranslate();

    const SParts m_parts;
    CSceneFiles m_files;
    QUndoGroup m_history;
    QTimer m_checkTimer;
    bool m_areChangesDiscarded = false; // the person has said so, and the window closes
    CCameraSessions* const m_sessions;
    CSceneTabs* const m_tabs;
    CImageDocks* m_images = nullptr;
    CViewerDocks* m_docks = nullptr;
    CViewerStatus* m_status = nullptr;
    CViewerMenus* m_menus = nullptr;
    CCommandPalette* m_palette = nullptr;
    CThreadWatch* m_watch = nullptr;
};

} // namespace Host
