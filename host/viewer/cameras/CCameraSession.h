// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/CFeatures.h"
#include "host/sources/OpenSource.h"
#include "host/viewer/base/CRateMeter.h"
#include "host/viewer/base/CWorkThread.h"

#include <Halvex/graph/CNodeBase.h>
#include <Halvex/scene/CNodeScene.h>

#include <QEventLoopLocker>
#include <QImage>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <memory>
#include <vector>

namespace Plugin::Halvex {
class INodeService;
}

namespace Host {

class CFrameFeed;
class CGrabThread;
class CSharedCamera;
class IFrameSource;
class IHostModels;

/**
 * A camera that a person has connected, or files that stand in for one, and its scene.
 *
 * \code
 * auto* const session = new CCameraSession(options, service, models, this);
 * connect(session, &CCameraSession::opened, session, &CCameraSession::start);
 * session->open();
 * \endcode
 *
 * When it is open its node is made, and with it, by the service, a scene, which becomes the active one. Frames that are
 * grabbed go into that node. A camera that vanishes is Away until it is there again; if it streamed, it goes on by
 * itself. When somebody removes the node or the scene, the session has lost its reason and says so.
 *
 * Whatever may take long is done in other threads. While one such thing is under way, isBusy(), what is asked for is
 * ignored; but features may be read and set at any time that it is open.
 *
 * Ownership: the service owns scene and node; the destructor leaves them, stops the camera and waits for that. close()
 * does not wait.
 *
 * Threads: the main thread.
 */
class CCameraSession : public QObject
{
    Q_OBJECT

public:
    enum class EState
    {
        Opening,
        Ready, ///< Open, and sends nothing.
        Streaming,
        Away,  ///< It does not answer any more and is waited for.
        InUse, ///< It could not be opened: another program uses it.
        Failed ///< It could not be opened for another reason, see error().
    };
    Q_ENUM(EState)

    /// Both outlive this object.
    CCameraSession(SourceOptions options, Plugin::Halvex::INodeService& service, const IHostModels& models,
                   QObject* parent = nullptr);
    ~CCameraSession() override;

    /// By which it is opened, and which its node has: a camera's address.
    QString name() const { return nameOf(m_options); }

    const SourceOptions& options() const { return m_options; }

    /// "Maker Model (fake), 512 x 512 Mono8"; empty before it is open.
    QString description() const { return m_description; }

    EState state() const { return m_state; }
    bool isOpen() const { return m_state == EState::Ready || m_state == EState::Streaming || m_state == EState::Away; }
    bool isBusy() const { return m_isBusy; }

    /// Whether it streams, or will as soon as the camera is there again.
    bool isGrabbing() const { return m_thread != nullptr; }

    bool isFile() const { return std::holds_alternative<SFileOptions>(m_options); }

    /// What went wrong last, or that images of the camera's format cannot be shown; empty if nothing is wrong.
    QString error() const { return m_error.isEmpty() ? m_formatProblem : m_error; }

    /// Complete frames since it was connected.
    quint64 frames() const;

    /// Of the last second or so; 0 while it does not stream.
    double framesPerSecond() const { return m_rate.rate(); }

    /// A small picture of the newest frame; null before the first.
    QImage preview() const { return m_preview; }

    /// Null before it is open and when they are gone.
    Plugin::Halvex::CNodeScene* scene() const { return m_scene; }
    Plugin::Halvex::CNodeBase* node() const { return m_node; }

public Q_SLOTS:
    void open();
    void start();
    void stop();

    /// Starts, and stops after one frame.
    void grabSingle();

    /// Has a camera that waits for a trigger by software take a frame.
    void trigger();

    /// Reads all features: featuresRead() follows.
    void readFeatures();

    /// Sets one, or runs a command, which has no value, and reads all of them again.
    void setFeature(const QString& name, const QString& value);

    /// Stops, and deletes this object when that is done; nothing else can be asked for meanwhile. Its scene stays. When
    /// the last window is closed the program still goes on until then, as long as CViewerWindow lets it.
    void close();

Q_SIGNALS:
    /// Once, when it is open and has its scene.
    void opened();

    /// State, description, error or isBusy() have changed.
    void changed();

    /// Frames, rate and preview are new: a few times a second while it streams.
    void ticked();

    void featuresRead(const std::vector<Host::SFeature>& features);

    /// Its node is gone, whoever removed it. Nothing comes into any graph any more.
    void nodeLost();

private:
    struct SStarted;

    void onOpened(std::shared_ptr<CSharedCamera> camera, const QString& error, bool isInUse);
    void startGrabbing(quint64 frames);
    void onStarted(SStarted started, quint64 frames);
    void onGrabEnded(const QString& error);
    void onStopped();
    void onTick();
    void lookForCamera();
    void onLooked(bool isThere);
    void makePreview();
    void release();
    void makeNode();
    void setState(EState state);
    void setBusy(bool isBusy);
    void fail(const QString& error);

    const SourceOptions m_options;
    Plugin::Halvex::INodeService& m_service;
    const IHostModels& m_models;
    QString m_description;
    QString m_error;
    QString m_formatProblem; // since the last start
    EState m_state = EState::Opening;
    bool m_isBusy = false;
    bool m_isClosing = false;
    bool m_isMakingPreview = false;
    bool m_isLooking = false;
    QPointer<Plugin::Halvex::CNodeScene> m_scene;
    QPointer<Plugin::Halvex::CNodeBase> m_node;
    QTimer m_timer;     // while it streams
    QTimer m_lookTimer; // while a camera is open
    quint64 m_framesAtPreview = 0;
    CRateMeter m_rate; // begins anew with each start
    QImage m_preview;
    // In this order: the thread ends before what it feeds and grabs from, and work before all of them.
    std::shared_ptr<CSharedCamera> m_camera; // null for files
    std::shared_ptr<CFrameFeed> m_feed;      // null before it is open
    std::shared_ptr<IFrameSource> m_source;  // while it streams
    std::unique_ptr<CGrabThread> m_thread;
    CWorkThread m_work;
    std::unique_ptr<QEventLoopLocker> m_programLock; // while it closes
};

} // namespace Host
