// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CImageDocks.h"

#include "host/viewer/images/CImageDock.h"
#include "host/viewer/images/CViewModel.h"
#include "host/viewer/recording/CRecorder.h"
#include "host/viewer/window/CViewerSettings.h"

#include <Halvex/scene/CNodeScene.h>

#include <QGuiApplication>
#include <QMainWindow>

#include <algorithm>

namespace Host {

using namespace Plugin::Halvex;

CImageDocks::CImageDocks(QMainWindow& window, CViewerSettings& settings)
    : QObject(&window)
    , m_window(window)
{
    m_folders.setImages(settings.imageFolder());
    m_folders.setRecordings(settings.recordFolder());
    connect(&m_folders, &CImageFolders::imagesChanged, this,
            [&settings](const QString& folder) { settings.setImageFolder(folder); });
    connect(&m_folders, &CImageFolders::recordingsChanged, this,
            [&settings](const QString& folder) { settings.setRecordFolder(folder); });
    connect(qGuiApp, &QGuiApplication::lastWindowClosed, this, &CImageDocks::endRecordings);
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
    auto* const dock = new CImageDock(*model, m_folders, &m_window);
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
    constexpr int inRow = 4;
    QList<QDockWidget*> row;
    std::copy_if(m_docks.begin(), m_docks.end(), std::back_inserter(row), [this](QDockWidget* each) {
        return !each->isFloating() && m_window.dockWidgetArea(each) == Qt::TopDockWidgetArea;
    });
    const int number = row.size();
    if (number >= inRow) {
        m_window.tabifyDockWidget(row.at(number % inRow), dock);
        return;
    }
    if (number == 0)
        m_window.addDockWidget(Qt::TopDockWidgetArea, dock);
    else
        m_window.splitDockWidget(row.last(), dock, Qt::Horizontal);
    row.append(dock);
    // Each as wide as the others, and together a little more than half of the height: what is left is the graph's,
    // which is wider than high.
    QList<int> widths;
    for (int i = 0; i <= number; ++i)
        widths << m_window.width();
    m_window.resizeDocks(row, widths, Qt::Horizontal);
    if (number == 0)
        m_window.resizeDocks(row, {m_window.height() * 11 / 20}, Qt::Vertical);
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

void CImageDocks::endRecordings()
{
    for (const CImageDock* const dock : qAsConst(m_docks))
        dock->recorder().stop();
}

} // namespace Host
