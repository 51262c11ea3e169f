// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CViewerWindow.h"

#include "host/models/IHostModels.h"
#include "host/viewer/base/CLanguage.h"
#include "host/viewer/base/Theme.h"
#include "host/viewer/cameras/CCameraPanel.h"
#include "host/viewer/cameras/CCameraSession.h"
#include "host/viewer/cameras/CCameraSessions.h"
#include "host/viewer/edit/CFaultPanel.h"
#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/edit/CModelPalette.h"
#include "host/viewer/edit/CSettingsPanel.h"
#include "host/viewer/graph/CGraphCanvas.h"
#include "host/viewer/graph/CGraphView.h"
#include "host/viewer/images/CViewModel.h"
#include "host/viewer/window/CCommandPalette.h"
#include "host/viewer/window/CImageDocks.h"
#include "host/viewer/window/CScenePage.h"
#include "host/viewer/window/CSceneTabs.h"
#include "host/viewer/window/CThreadWatch.h"
#include "host/viewer/window/CViewerDocks.h"
#include "host/viewer/window/CViewerMenus.h"
#include "host/viewer/window/CViewerStatus.h"

#include <Halvex/service/INodeService.h>

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QStatusBar>

namespace Host {

using namespace Plugin::Halvex;

CViewerWindow::CViewerWindow(const SParts& parts, QWidget* parent)
    : QMainWindow(parent)
    , m_parts(parts)
    , m_files(parts.service, parts.models, parts.positions)
    , m_sessions(new CCameraSessions(parts.service, parts.models, this))
    , m_tabs(new CSceneTabs(parts.service, this))
{
    setObjectName(QStringLiteral("viewer"));
    setDockNestingEnabled(true);
    setDockOptions(dockOptions() | QMainWindow::GroupedDragging);
    setCentralWidget(m_tabs);
    resize(180 * gridStep, 112 * gridStep);
    m_docks = new CViewerDocks(*this, *m_sessions, parts.service, parts.models, m_history);
    m_images = new CImageDocks(*this, parts.settings);
    m_status = new CViewerStatus(*statusBar(), *m_sessions);
    m_menus = new CViewerMenus(*this, m_history, parts.settings);
    m_palette = new CCommandPalette(this);
    m_watch = new CThreadWatch(std::chrono::milliseconds(100), this);
    m_checkTimer.setSingleShot(true);
    m_checkTimer.setInterval(300);
    connectParts();
    const auto allPages = m_tabs->pages();
    for (CScenePage* const page : allPages)
        onPageAdded(page);
    onPageChanged(m_tabs->current());
    restoreLayout();
    retranslate();
}

CViewerWindow::~CViewerWindow()
{
    // What goes now tells of itself, and later there is no window to hear of it.
    m_sessions->disconnect(this);
    m_tabs->disconnect(this);
    delete m_tabs;
}

void CViewerWindow::connectParts()
{
    connect(m_tabs, &CSceneTabs::pageAdded, this, &CViewerWindow::onPageAdded);
    connect(m_tabs, &CSceneTabs::currentPageChanged, this, &CViewerWindow::onPageChanged);
    connect(m_tabs, &CSceneTabs::closeRequested, this, &CViewerWindow::askToClose);
    connect(m_sessions, &CCameraSessions::opened, this, &CViewerWindow::onOpened);
    connect(m_images, &CImageDocks::changed, m_menus, &CViewerMenus::update);
    connect(m_watch, &CThreadWatch::heldUp, m_status, &CViewerStatus::tellHeldUp);
    connect(qGuiApp, &QGuiApplication::lastWindowClosed, this, [] {
        constexpr std::chrono::seconds longestWait{30}; // a disk or a camera may never answer
        QTimer::singleShot(longestWait, qGuiApp, &QCoreApplication::quit);
    });
    connect(&m_checkTimer, &QTimer::timeout, this, &CViewerWindow::check);
    connect(&m_docks->palette(), &CModelPalette::placeRequested, this, [this](const QString& model) {
        if (const CScenePage* const page = m_tabs->current())
            page->view().place(model);
    });
    connect(&m_docks->faults(), &CFaultPanel::nodeChosen, this, [this](const Core::CId& node) {
        if (const CScenePage* const page = m_tabs->current())
            page->view().goTo(node);
    });
    connect(&m_docks->cameras(), &CCameraPanel::disconnectRequested, this, &CViewerWindow::askToDisconnect);
    connect(&m_docks->cameras(), &CCameraPanel::currentChanged, this, [this](const CCameraSession* session) {
        if (CScenePage* const page = session ? m_tabs->page(session->scene()) : nullptr)
            m_tabs->setCurrentWidget(page);
    });
}

void CViewerWindow::onPageAdded(CScenePage* page)
{
    m_history.addStack(&page->editor().undoStack());
    m_images->watch(*page->scene());
    m_watch->watch(*page->scene());
    connect(&page->editor(), &CGraphEditor::refused, m_status, &CViewerStatus::tellError);
    connect(&page->view(), &CGraphView::nodeSelected, this,
            [this, page](const Core::CId& node) { m_docks->settings().show(&page->editor(), node); });
    connect(&page->view(), &CGraphView::nodeActivated, this, [this] { CViewerDocks::bringUp(m_docks->settings()); });
    for (const auto change : {&CNodeScene::nodeCreated, &CNodeScene::nodeDeleted})
        connect(page->scene(), change, this, &CViewerWindow::checkSoon);
    for (const auto change : {&CNodeScene::connectionCreated, &CNodeScene::connectionDeleted})
        connect(page->scene(), change, this, &CViewerWindow::checkSoon);
    connect(&page->editor().undoStack(), &QUndoStack::indexChanged, this, &CViewerWindow::checkSoon);
}

void CViewerWindow::onPageChanged(CScenePage* page)
{
    m_history.setActiveStack(page ? &page->editor().undoStack() : nullptr);
    m_docks->settings().show(page ? &page->editor() : nullptr, {});
    if (const CCameraSession* const session = page ? m_sessions->findByScene(page->scene()) : nullptr)
        m_docks->cameras().choose(session->name());
    m_menus->update();
    checkSoon();
}

void CViewerWindow::onOpened(const CCameraSession* session)
{
    CScenePage* const page = m_tabs->page(session->scene());
    if (!page)
        return;
    m_tabs->setCurrentWidget(page);
    m_docks->cameras().choose(session->name());
    addImageView();
    page->view().canvas().placeAll();
    page->view().fit();
    // A camera's scene begins with its image: there is nothing to undo yet.
    page->editor().undoStack().clear();
}

void CViewerWindow::addImageView()
{
    const CScenePage* const page = m_tabs->current();
    const CNodeBase* const camera = page ? page->camera() : nullptr;
    if (!camera)
        return;
    CGraphEditor& editor = page->editor();
    const QPointF beside = editor.positions().value(camera->id().toString()) + QPointF(48 * gridStep, 0);
    editor.addConnectedNode(CViewModel::modelName(), beside, {camera->id(), ENodePortType::Out, 0},
                            {{QStringLiteral("viewName"), page->cameraName()}},
                            [] { return tr("Show the camera's image"); });
}

CScenePage* CViewerWindow::newScene(const QString& name)
{
    const auto info = Core::AppCoreComponents::BaseInfoPtr::create();
    m_parts.service.addNode(m_parts.models.createCameraSource(name), info);
    return m_tabs->page(m_parts.service.findSceneByInfo(info));
}

void CViewerWindow::addScene()
{
    QStringList names;
    const auto allPages = m_tabs->pages();
    for (const CScenePage* const page : allPages)
        names << page->cameraName();
    QString name;
    for (int number = 1; name.isEmpty() || names.contains(name); ++number)
        name = tr("Scene %1").arg(number);
    newScene(name);
}

bool CViewerWindow::openScene(const QString& file)
{
    return openScene(file, m_tabs->current());
}

bool CViewerWindow::saveScene(const QString& file)
{
    return saveScene(file, m_tabs->current());
}

bool CViewerWindow::importChain(const QString& file)
{
    return importChain(file, m_tabs->current());
}

bool CViewerWindow::openScene(const QString& file, CScenePage* page)
{
    const bool isNew = !page;
    if (isNew)
        page = newScene(QFileInfo(file).completeBaseName());
    if (!page)
        return report(tr("There is no scene to open it in."), {});
    const QString error = m_files.open(*page, file);
    if (error.isEmpty())
        m_parts.settings.addRecentFile(file);
    else if (isNew && page->scene())
        closeScene(page->scene());
    return report(error, tr("Opened %1").arg(QFileInfo(file).fileName()));
}

bool CViewerWindow::saveScene(const QString& file, CScenePage* page)
{
    if (!page)
        return report(tr("There is no scene to save."), {});
    const QString error = m_files.save(*page, file);
    if (error.isEmpty())
        m_parts.settings.addRecentFile(file);
    return report(error, tr("Saved %1").arg(QFileInfo(file).fileName()));
}

bool CViewerWindow::importChain(const QString& file, CScenePage* page)
{
    if (!page)
        return report(tr("A chain needs a scene: connect a camera first."), {});
    constexpr std::size_t givenNodes = 2; // the camera and its view, which nobody has put anywhere
    const bool isFresh = page->editor().undoStack().index() == 0 && page->scene()->nodes().size() <= givenNodes;
    const QString error = m_files.importChain(*page, file);
    if (error.isEmpty() && isFresh) {
        page->view().canvas().placeAll();
        page->view().fit();
    }
    return report(error, tr("Imported %1").arg(QFileInfo(file).fileName()));
}

bool CViewerWindow::report(const QString& error, const QString& done)
{
    m_menus->update();
    if (error.isEmpty()) {
        m_status->tell(done);
        return true;
    }
    m_status->tellError(error);
    const QByteArray refused = m_files.takeRefusedText();
    if (!refused.isEmpty()) {
        m_checkTimer.stop(); // the list is the document's until the graph changes
        m_docks->faults().checkText(refused);
        CViewerDocks::bringUp(m_docks->faults());
    }
    return false;
}

void CViewerWindow::checkSoon()
{
    m_checkTimer.start();
}

void CViewerWindow::check()
{
    const CScenePage* const page = m_tabs->current();
    if (page && page->scene())
        m_docks->faults().checkScene(*page->scene());
}

void CViewerWindow::closeScene(const CNodeScene* scene)
{
    const CScenePage* const page = m_tabs->page(scene);
    if (!page)
        return;
    if (const CCameraSession* const session = m_sessions->findByScene(scene))
        m_sessions->disconnectCamera(session->name());
    else if (CNodeBase* const camera = page->camera())
        m_parts.service.removeSceneOfNode(camera);
}

} // namespace Host
