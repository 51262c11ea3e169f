// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CImageDocks.h"

#include "host/viewer/images/CImageDock.h"
#include "host/viewer/images/CViewModel.h"

#include <Halvex/scene/CNodeScene.h>

#include <QMainWindow>

#include <algorithm>

namespace Host {

using namespace Plugin::Halvex;

CImageDocks::CImageDocks(QMainWindow& window)
    : QObject(&window)
    , m_window(window)
{
}

void CImageDocks::watch(CNodeScene& scene)
{
    connect(&scene, &CNodeScene::nodeCreated, this, &CImageDocks::addDock);
    for (const auto& node : scene.nodes())
        addDock(*node.second);
}

void CImageDocks::addDock(CNodeBase& node)
{
    auto* const model = qobject_cast<CViewModel*>(node.nodeDataModel());
    if (!model)
        return;
    auto* const dock = new CImageDock(*model, &m_window);
    dock->setObjectName(freeName());
    if (!m_window.restoreDockWidget(dock))
        place(dock);
    m_docks.append(dock);
    dock->show();
    connect(model, &QObject::destroyed, dock, [this, dock] {
        m_docks.removeOne(dock);
        dock->deleteLater(); // it may be drawing
        dock->hide();
        Q_EMIT changed();
    });
    Q_EMIT changed();
}

void CImageDocks::place(CImageDock* dock)
{
    constexpr int inSquare = 4;
    QList<CImageDock*> placed;
    std::copy_if(m_docks.begin(), m_docks.end(), std::back_inserter(placed),
                 [](const CImageDock* each) { return !each->isFloating(); });
    const int number = placed.size();
    if (number == 0)
        m_window.addDockWidget(Qt::RightDockWidgetArea, dock);
    else if (number == 1)
        m_window.splitDockWidget(placed.first(), dock, Qt::Vertical);
    else if (number < inSquare)
        m_window.splitDockWidget(placed.at(number - 2), dock, Qt::Horizontal);
    else
        m_window.tabifyDockWidget(placed.at(number % inSquare), dock);
}

// Small numbers again and again, so that the window finds the places that it remembers.
QString CImageDocks::freeName() const
{
    for (int number = 1;; ++number) {
        const QString name = QStringLiteral("image-%1").arg(number);
        if (std::none_of(m_docks.begin(), m_docks.end(),
                         [&name](const CImageDock* dock) { return dock->objectName() == name; }))
            return name;
    }
}

} // namespace Host
