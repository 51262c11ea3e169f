// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CSceneTabs.h"

#include "host/viewer/base/Theme.h"
#include "host/viewer/window/CScenePage.h"

#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/INodeService.h>

#include <QEvent>
#include <QPainter>
#include <QTabBar>
#include <QToolButton>

namespace Host {

using namespace Plugin::Halvex;

CSceneTabs::CSceneTabs(INodeService& service, QWidget* parent)
    : QTabWidget(parent)
    , m_service(service)
{
    setDocumentMode(true);
    setMovable(true);
    connect(&service, &INodeService::sceneAdded, this, &CSceneTabs::addScene);
    connect(&service, &INodeService::sceneRemoving, this, &CSceneTabs::removeScene);
    connect(&service, &INodeService::activeSceneChanged, this, &CSceneTabs::showScene);
    connect(this, &QTabWidget::currentChanged, this, &CSceneTabs::onCurrentChanged);
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
    const auto allPages = pages();
    for (CScenePage* const page : allPages) {
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
    // For one that somebody destroys without the service.
    connect(scene, &QObject::destroyed, this, &CSceneTabs::removeScene);
    const int index = addTab(added, added->title());
    addCloseButton(index, *added);
    connect(added, &CScenePage::titleChanged, this, &CSceneTabs::updateTitles);
    updateTitles();
    Q_EMIT pageAdded(added);
}

// Not the style's own, which cannot be told from a dark ground.
void CSceneTabs::addCloseButton(int index, const CScenePage& page)
{
    auto* const button = new QToolButton(tabBar());
    button->setText(QStringLiteral("×"));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    tabBar()->setTabButton(index, QTabBar::RightSide, button);
    connect(button, &QToolButton::clicked, &page, [this, shown = &page] {
        if (shown->scene())
            Q_EMIT closeRequested(shown->scene());
    });
}

// By address: a scene that is being destroyed is no CNodeScene any more.
void CSceneTabs::removeScene(const QObject* scene)
{
    const auto allPages = pages();
    for (CScenePage* const page : allPages) {
        if (page->address() != scene)
            continue;
        page->disconnect(this);
        page->deleteLater(); // it may be what removes the scene: a step that is undone, a mouse button
        page->hide();
        removeTab(indexOf(page));
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
    updateTitles();
    Q_EMIT currentPageChanged(shown);
}

void CSceneTabs::updateTitles()
{
    // Which one is shown is hard to see otherwise where all is dark. The style draws its tab lighter than the window.
    constexpr int tabLightness = 135;
    QPalette colors = palette();
    colors.setColor(QPalette::Base, colors.color(QPalette::Window).lighter(tabLightness));
    const QColor shown = accentColor(EAccent::Active, colors);
    const auto allPages = pages();
    for (CScenePage* const page : allPages) {
        const int index = indexOf(page);
        setTabText(index, page->title());
        setTabToolTip(index, page->toolTip());
        tabBar()->setTabTextColor(index, page == current() ? shown : colors.color(QPalette::WindowText));
        auto* const button = qobject_cast<QToolButton*>(tabBar()->tabButton(index, QTabBar::RightSide));
        if (!button)
            continue; // the first tab is shown before it is complete
        button->setAccessibleName(tr("Close %1").arg(page->title()));
        button->setToolTip(button->accessibleName());
    }
}

// Where there is nothing yet it says how to begin.
void CSceneTabs::paintEvent(QPaintEvent* event)
{
    QTabWidget::paintEvent(event);
    if (count() > 0)
        return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect().adjusted(2 * gridStep, 2 * gridStep, -2 * gridStep, -2 * gridStep),
                     Qt::AlignCenter | Qt::TextWordWrap,
                     tr("Connect a camera at the left to see it, or open a scene.\nCtrl+K finds every command."));
}

void CSceneTabs::changeEvent(QEvent* event)
{
    QTabWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::LanguageChange)
        updateTitles();
}

} // namespace Host
