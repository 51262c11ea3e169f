// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CWindowUser.h"

#include "graph/CGraphUser.h"
#include "host/run/SceneFile.h"
#include "host/viewer/cameras/CCameraPanel.h"
#include "host/viewer/images/CImageDock.h"
#include "host/viewer/images/CViewModel.h"
#include "host/viewer/window/CCommandPalette.h"
#include "host/viewer/window/CImageDocks.h"
#include "host/viewer/window/CSceneTabs.h"
#include "host/viewer/window/CViewerDocks.h"
#include "support/SceneConsistency.h"

#include <QAbstractButton>
#include <QAction>
#include <QFile>
#include <QMessageBox>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

constexpr int mostScenes = 5;
constexpr int mostImages = 6;

QByteArray documentOf(const CScenePage& page)
{
    return orderedScene(page.scene()->saveToMemory());
}

} // namespace

CWindowUser::CWindowUser(unsigned int seed)
    : m_random(seed)
{
    m_test.settings.setRecordFolder(m_test.folder.path());
    m_test.makeWindow();
    QApplication::setActiveWindow(&window());
}

bool CWindowUser::plugCameraIn()
{
    m_isPluggedIn = m_camera.start();
    if (m_isPluggedIn)
        m_test.connectCamera(CFakeGigECamera::address());
    return m_isPluggedIn;
}

CScenePage* CWindowUser::page() const
{
    return window().tabs().current();
}

void CWindowUser::trigger(const char* action) const
{
    auto* const found = window().findChild<QAction*>(action);
    if (!found)
        qFatal("no action %s", action);
    found->trigger();
}

const char* CWindowUser::act()
{
    rememberFirstDocument(); // a camera's scene has come since the last step
    if (answer())
        return "answer";
    const char* what = nullptr;
    const std::size_t kind = pick(40);
    if (!page() || kind == 0)
        what = beginAnew();
    else if (kind < 26)
        what = edit();
    else if (kind < 28)
        what = useFiles();
    else if (kind < 31)
        what = useScenes();
    else if (kind < 35)
        what = useCameras();
    else if (kind < 36)
        what = pullCable();
    else if (kind < 38)
        what = useImages();
    else
        what = useWindow();
    rememberFirstDocument();
    return what;
}

// A question may stay for some steps, while other things happen.
bool CWindowUser::answer()
{
    const auto* const question = window().findChild<QMessageBox*>();
    if (!question || !question->isVisible() || pick(2) == 0)
        return false;
    question->button(pick(2) == 0 ? QMessageBox::Cancel : QMessageBox::Discard)->click();
    return true;
}

const char* CWindowUser::beginAnew()
{
    if (window().tabs().count() >= mostScenes) {
        trigger("closeScene");
        return "close scene";
    }
    if (pick(2) == 0) {
        trigger("newScene");
        return "new scene";
    }
    const bool isOfTheNetwork = m_isPluggedIn && pick(2) == 0;
    CCameraSession* const session =
        m_test.connectCamera(isOfTheNetwork ? CFakeGigECamera::address() : QStringLiteral("fake-%1").arg(pick(3)));
    QObject::connect(session, &CCameraSession::opened, session, &CCameraSession::start, Qt::UniqueConnection);
    return "connect camera";
}

const char* CWindowUser::edit()
{
    CGraphUser user(page()->view(), window().docks().settings(), m_random);
    if (pick(30) == 0) {
        if (user.hasRoom())
            window().importChain(DEMO_CHAIN);
        return "import";
    }
    return user.act();
}

const char* CWindowUser::useFiles()
{
    const QString file = m_test.file("scene.json");
    if (pick(2) == 0) {
        window().saveScene(file);
        return "save";
    }
    if (QFile::exists(file))
        window().openScene(file);
    return "open";
}

const char* CWindowUser::useScenes()
{
    CSceneTabs& tabs = window().tabs();
    switch (pick(12)) {
    case 0:
        trigger("closeScene");
        return "close scene";
    case 1:
        if (CNodeBase* const camera = page()->camera())
            m_test.service.nodes.removeSceneOfNode(camera);
        return "others remove the scene";
    case 2:
        m_test.service.nodes.setActiveScene(tabs.pages().at(int(pick(std::size_t(tabs.count()))))->scene());
        return "others switch scene";
    default:
        tabs.setCurrentIndex(int(pick(std::size_t(tabs.count()))));
        return "switch scene";
    }
}

const char* CWindowUser::useCameras()
{
    const auto& all = window().sessions().all();
    if (!all.isEmpty() && pick(3) == 0)
        window().docks().cameras().choose(all.at(int(pick(std::size_t(all.size()))))->name());
    if (pick(16) == 0) {
        trigger("disconnectCamera");
        return "disconnect camera";
    }
    if (pick(6) == 0) {
        if (CCameraSession* const session = window().docks().cameras().current())
            session->setFeature(QStringLiteral("Width"), pick(2) == 0 ? QStringLiteral("256") : QStringLiteral("512"));
        return "set feature";
    }
    static const std::array<const char*, 5> actions{"startCamera", "startCamera", "stopCamera", "grabSingle",
                                                    "triggerCamera"};
    const char* const action = actions[pick(actions.size())];
    trigger(action);
    return action;
}

const char* CWindowUser::pullCable()
{
    m_isPluggedIn = !m_isPluggedIn;
    if (m_isPluggedIn)
        m_camera.putCableIn();
    else
        m_camera.pullCable();
    return m_isPluggedIn ? "plug in" : "unplug";
}

const char* CWindowUser::useImages()
{
    const auto& docks = window().imageDocks().docks();
    if (docks.isEmpty() || (docks.size() < mostImages && pick(6) == 0)) {
        trigger("addImageView");
        return "add image view";
    }
    static const QStringList names{"image.fit",          "image.oneToOne",     "image.histogram",
                                   "image.logarithmic",  "image.palette.heat", "image.range.automatic",
                                   "image.range.manual", "image.record.raw",   "image.record.stop"};
    const QString& name = names.at(int(pick(std::size_t(names.size()))));
    const auto actions = docks.at(int(pick(std::size_t(docks.size()))))->imageActions();
    for (QAction* const action : actions) {
        if (action->objectName() == name)
            action->trigger();
    }
    return "use image";
}

const char* CWindowUser::useWindow()
{
    switch (pick(6)) {
    case 0:
        window().chooseColors(CViewerSettings::EColors(pick(3)));
        return "colours";
    case 1:
        window().resize(900 + int(pick(500)), 600 + int(pick(400)));
        return "resize";
    case 2: {
        const auto toggles = window().docks().toggleActions();
        toggles.at(int(pick(std::size_t(toggles.size()))))->trigger();
        return "show or hide a dock";
    }
    case 3:
        window().showCommands();
        window().commandPalette().reject();
        return "commands";
    case 4:
        window().grab();
        return "look";
    default:
        trigger(pick(2) == 0 ? "undo" : "redo");
        return "undo or redo";
    }
}

void CWindowUser::rememberFirstDocument()
{
    const CScenePage* const shown = page();
    const CNodeScene* const scene = shown ? shown->scene() : nullptr;
    if (!scene || shown->editor().undoStack().count() > 0)
        return;
    // A new scene can reuse a freed address.
    if (!m_firstDocuments.contains(scene))
        QObject::connect(scene, &QObject::destroyed, &m_watcher, [this, scene] { m_firstDocuments.remove(scene); });
    m_firstDocuments[scene] = documentOf(*shown);
}

QString CWindowUser::wrong()
{
    const auto pages = window().tabs().pages();
    int views = 0;
    for (const CScenePage* const each : pages) {
        if (!each->scene())
            return QStringLiteral("a tab has no scene");
        const QString inconsistency = inconsistencyOf(*each->scene());
        if (!inconsistency.isEmpty())
            return inconsistency;
        views += countNodes(*each->scene(), CViewModel::modelName());
    }
    if (window().imageDocks().docks().size() != views)
        return QStringLiteral("%1 images are shown of %2").arg(window().imageDocks().docks().size()).arg(views);
    const CNodeScene* const active = m_test.service.nodes.getActiveScene();
    if ((page() ? page()->scene() : nullptr) != active)
        return QStringLiteral("the shown scene is not the active one");
    if (!page())
        return {};
    if (window().findChild<QAction*>("undo")->isEnabled() != page()->editor().undoStack().canUndo())
        return QStringLiteral("undo is not of the shown scene");
    return mismatchOf(page()->view());
}

QString CWindowUser::undoAndRedoAll()
{
    const CScenePage* const shown = page();
    if (!shown)
        return {};
    QUndoStack& steps = shown->editor().undoStack();
    const int index = steps.index();
    const QByteArray last = documentOf(*shown);
    const NodePositions positions = shown->editor().positions();
    for (int round = 0; round < 2; ++round) {
        steps.setIndex(0);
        if (m_firstDocuments.contains(shown->scene()) && documentOf(*shown) != m_firstDocuments[shown->scene()])
            return QStringLiteral("undo of all gives another document");
        steps.setIndex(index);
        if (documentOf(*shown) != last)
            return QStringLiteral("redo of all gives another document");
        if (shown->editor().positions() != positions)
            return QStringLiteral("redo of all gives other positions");
    }
    return wrong();
}
