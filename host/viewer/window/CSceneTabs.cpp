// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CSceneTabs.h"

#include "host/viewer/window/CScenePage.h"

#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/INodeService.h>

namespace Host {

using namespace Plugin::Halvex;

CSceneTabs::CSceneTabs(INodeService& service, QWidget* parent)
    : QTabWidget(parent)
    , m_service(service)
{
    setDocumentMode(true);
    setMovable(true);
    setTabsClosable(true);
    connect(&service, &INodeService::sceneAdded, this, &CSceneTabs::addScene);
    connect(&service, &INodeService::sceneRemoving, this, &CSceneTabs::removeScene);
    connect(&service, &INodeService::activeSceneChanged, this, &CSceneTabs::showScene);
    connect(this, &QTabWidget::currentChanged, this, &CSceneTabs::onCurrentChanged);
    connect(this, &QTabWidget::tabCloseRequested, this, [this](int index) {
        const auto* const page = static_cast<CScenePage*>(widget(index));
        if (page->scene())
            Q_EMIT closeRequested(page->scene());
    });
    if (CNodeScene* const active = service.getActiveScene())
        addScene(active);
}

CSceneTabs::~CSceneTabs()
{
    // The pages tell of themselves when they go, and the tabs would tell of the page that is shown then.
    disconnect();
    qDeleteAll(pages());
}

CScenePage* CSceneTabs::current() const
{
    return static_cast<CScenePage*>(currentWidget());
}

CScenePage* CSceneTabs::page(const CNodeScene* scene) const
{
    for (CScenePage* const page : pages()) {
        if (scene && page->scene() == scene)
            return page;
    }
    return nullptr;
}

QList<CScenePage*> CSceneTabs::pages() const
{
    QList<CScenePage*> pages;
    for (int i = 0; i < count(); ++i)
        pages << static_cast<CScenePage*>(widget(i));
    return pages;
}

void CSceneTabs::addScene(CNodeScene* scene)
{
    if (page(scene))
        return;
    auto* const added = new CScenePage(*scene, m_service, this);
    connect(added, &CScenePage::titleChanged, this, &CSceneTabs::updateTitles);
    // For one that somebody destroys without the service.
    connect(scene, &QObject::destroyed, this, &CSceneTabs::removeScene);
    addTab(added, added->title());
    Q_EMIT pageAdded(added);
}

// By address: a scene that is being destroyed is no CNodeScene any more.
void CSceneTabs::removeScene(const QObject* scene)
{
    for (CScenePage* const page : pages()) {
        if (page->address() != scene)
            continue;
        removeTab(indexOf(page));
        delete page;
        return;
    }
}

void CSceneTabs::showScene(CNodeScene* scene)
{
    // Signals wait for one another: another scene may be active by now, and its signal comes, too.
    CScenePage* const shown = page(scene);
    if (shown && m_service.getActiveScene() == scene)
        setCurrentWidget(shown);
}

void CSceneTabs::onCurrentChanged()
{
    CScenePage* const shown = current();
    if (shown && shown->scene() && m_service.getActiveScene() != shown->scene())
        m_service.setActiveScene(shown->scene());
    Q_EMIT currentPageChanged(shown);
}

void CSceneTabs::updateTitles()
{
    for (CScenePage* const page : pages()) {
        setTabText(indexOf(page), page->title());
        setTabToolTip(indexOf(page), page->toolTip());
    }
}

} // namespace Host
