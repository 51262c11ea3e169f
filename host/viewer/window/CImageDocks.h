// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/images/CImageFolders.h"

#include <QList>
#include <QObject>

class QMainWindow;

namespace Plugin::Halvex {
class CNodeBase;
class CNodeScene;
} // namespace Plugin::Halvex

namespace Host {

class CImageDock;
class CViewerSettings;

/**
 * A dock for each node that shows images, in all scenes: it comes and goes with its node, by the scenes' signals.
 *
 * A new one goes where the window remembers it, else beside the others above the graph: four in a row, more as tabs.
 *
 * When the program's last window is closed, recordings end; the program goes on without a window until all is written,
 * as long as CViewerWindow lets it.
 *
 * Ownership: the window owns the docks. Threads: the main thread.
 */
class CImageDocks : public QObject
{
    Q_OBJECT

public:
    /// Suggests the folders of \a settings, which outlives this object, and keeps there what a person chooses.
    CImageDocks(QMainWindow& window, CViewerSettings& settings);

    void watch(Plugin::Halvex::CNodeScene& scene);

    /// In the order in which they came.
    const QList<CImageDock*>& docks() const { return m_docks; }

Q_SIGNALS:
    /// One has come or gone.
    void changed();

private:
    void addDock(Plugin::Halvex::CNodeBase& node);
    void place(CImageDock* dock);
    QString freeName() const;
    void endRecordings();

    QMainWindow& m_window;
    QList<CImageDock*> m_docks;
    CImageFolders m_folders;
};

} // namespace Host
