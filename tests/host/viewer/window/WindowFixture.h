// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "SHostService.h"
#include "host/viewer/cameras/CCameraSession.h"
#include "host/viewer/cameras/CCameraSessions.h"
#include "host/viewer/images/ViewModels.h"
#include "host/viewer/window/CPositionsFile.h"
#include "host/viewer/window/CViewerWindow.h"

#include <QTemporaryDir>

#include <memory>

/// A window with the services as the plugins publish them, that remembers nothing of other runs.
struct SWindow
{
    SWindow()
    {
        Host::registerViewModels(service.nodes, service.models);
        makeWindow();
    }

    /// Anew, with what was remembered.
    void makeWindow()
    {
        window.reset();
        window = std::make_unique<Host::CViewerWindow>(
            Host::CViewerWindow::SParts{service.nodes, service.models, settings, positions});
        window->show();
    }

    Host::CCameraSession* connectCamera(const QString& name) const
    {
        Host::SCameraOptions camera;
        camera.address = name;
        return window->sessions().connectCamera(camera);
    }

    QString file(const char* name) const { return folder.filePath(QLatin1String(name)); }

    QTemporaryDir folder;
    SHostService service;
    Host::CViewerSettings settings{folder.filePath("viewer.ini")};
    const Host::CPositionsFile positions{folder.filePath("positions.json")};
    std::unique_ptr<Host::CViewerWindow> window;
};

/// The nodes of a scene whose model has that name.
inline int countNodes(const Plugin::Halvex::CNodeScene& scene, const QString& model)
{
    int count = 0;
    for (const auto& node : scene.nodes())
        count += node.second->nodeDataModel()->name() == model ? 1 : 0;
    return count;
}
