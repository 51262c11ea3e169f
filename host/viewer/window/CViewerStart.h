// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/window/SViewerOptions.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

namespace Host {

class CCameraSession;
class CViewerWindow;

/**
 * Does in a window what the program was started for: connects and starts cameras, reads chains and a scene, makes a
 * screenshot.
 *
 * \code
 * CViewerStart start(window, options);
 * connect(&start, &CViewerStart::ended, &application, &QCoreApplication::exit);
 * \endcode
 *
 * Threads: the main thread.
 */
class CViewerStart : public QObject
{
    Q_OBJECT

public:
    /// \a window outlives this object.
    CViewerStart(CViewerWindow& window, SViewerOptions options);

Q_SIGNALS:
    /// The time is up, or the screenshot is written (0) or cannot be, as when a camera is refused (1). At most once,
    /// from the event loop.
    void ended(int exitCode);

private:
    void connectNext();
    void onChanged(const CCameraSession* session);
    void onOpened(CCameraSession* session);
    void takeScreenshot();
    void endScreenshot(const QString& error);
    bool isEverythingSeen() const;

    CViewerWindow& m_window;
    const SViewerOptions m_options;
    QString m_sceneToOpen;   // with the first camera that opens
    QStringList m_waitedFor; // neither open nor refused
    QStringList m_toConnect; // one after the other, so that tabs and images are in their order
    QTimer m_poll;
    int m_seenFor = 0; // looks
};

} // namespace Host
