// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/sources/OpenSource.h"

#include <QObject>
#include <QVector>

namespace Plugin::Halvex {
class CNodeScene;
class INodeService;
} // namespace Plugin::Halvex

namespace Host {

class CCameraSession;
class IHostModels;

/**
 * The cameras that are connected, by their names.
 *
 * A session whose node or scene somebody removes is disconnected. Ownership: owns the sessions; who keeps one keeps a
 * QPointer. Threads: the main thread.
 */
class CCameraSessions : public QObject
{
    Q_OBJECT

public:
    CCameraSessions(Plugin::Halvex::INodeService& service, const IHostModels& models, QObject* parent = nullptr);

    /// Begins to open it. One that is connected already, or that could not be opened before, is tried again. Files
    /// whose name another session has get a name of their own: "shots-1".
    CCameraSession* connectCamera(const SourceOptions& options);

    /// Stops the camera and removes its scene.
    void disconnectCamera(const QString& name);

    /// Stops all cameras, all at once; their scenes stay. Who wants nothing to wait for them keeps the event loop
    /// running: CCameraSession::close() sees to it that the program does not end before.
    void closeAll();

    /// Null if there is none of that name, or in that scene.
    CCameraSession* find(const QString& name) const;
    CCameraSession* findByScene(const Plugin::Halvex::CNodeScene* scene) const;

    /// In the order in which they were connected.
    const QVector<CCameraSession*>& all() const { return m_sessions; }

    /// A name of a simulated camera that is not connected: "fake", "fake-1", "fake-2"...
    QString freeSimulatedCamera() const;

Q_SIGNALS:
    void added(Host::CCameraSession* session);
    /// It is no longer in all(); the object still exists.
    void removed(Host::CCameraSession* session);
    /// One of them has changed, see CCameraSession::changed() and ticked().
    void changed(Host::CCameraSession* session);
    /// A session is open and has its scene.
    void opened(Host::CCameraSession* session);

private:
    void take(CCameraSession* session);
    QString freeName(const QString& first) const;

    Plugin::Halvex::INodeService& m_service;
    const IHostModels& m_models;
    QVector<CCameraSession*> m_sessions;
};

} // namespace Host
