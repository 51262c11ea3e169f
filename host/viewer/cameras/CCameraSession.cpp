// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CCameraSession.h"

#include "host/camera/CGrabThread.h"
#include "host/camera/Device.h"
#include "host/models/IHostModels.h"
#include "host/sources/IFrameSource.h"
#include "host/viewer/cameras/CFrameFeed.h"
#include "host/viewer/cameras/CSharedCamera.h"
#include "host/viewer/cameras/Preview.h"

#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/service/INodeService.h>

#include <utility>

namespace Host {

using namespace Plugin::Halvex;

namespace {

constexpr int tickInterval = 400;  // milliseconds
constexpr int lookInterval = 1000; // the same
constexpr int waitInterval = 4000; // while an attempt is under way, no other camera is opened
constexpr QSize previewSize(96, 72);
// A camera that sends nothing is shown with a rate of 0, not ended.
constexpr std::chrono::hours forEver(24 * 365);

} // namespace

// What starting gives: a source that has begun, or the reason why there is none.
struct CCameraSession::SStarted
{
    std::shared_ptr<IFrameSource> source;
    QString error;
};

CCameraSession::CCameraSession(SourceOptions options, INodeService& service, const IHostModels& models, QObject* parent)
    : QObject(parent)
    , m_options(std::move(options))
    , m_service(service)
    , m_models(models)
{
    m_timer.setInterval(tickInterval);
    connect(&m_timer, &QTimer::timeout, this, &CCameraSession::onTick);
    m_lookTimer.setInterval(lookInterval);
    connect(&m_lookTimer, &QTimer::timeout, this, &CCameraSession::lookForCamera);
}

CCameraSession::~CCameraSession() = default;

quint64 CCameraSession::frames() const
{
    return m_feed ? m_feed->frames() : 0;
}

void CCameraSession::open()
{
    if (m_isBusy || isOpen())
        return;
    m_error.clear();
    setState(EState::Opening);
    setBusy(true);
    if (isFile()) {
        // The files are opened to see whether they can be, and again at each start: from the first image on.
        m_work.run(
            [options = m_options] {
                QString error;
                const auto source = openSource(options, &error);
                return std::make_pair(source ? source->description() : QString(), error);
            },
            this,
            [this](const auto& opened) {
                m_description = opened.first;
                onOpened(nullptr, opened.second, false);
            });
        return;
    }
    struct SOpened
    {
        std::shared_ptr<CSharedCamera> camera;
        QString error;
        bool isInUse;
    };
    m_work.run(
        [options = std::get<SCameraOptions>(m_options)] {
            QString error;
            const auto camera = CSharedCamera::open(options, &error);
            return SOpened{camera, error, !camera && isInUse(options.address)};
        },
        this,
        [this](SOpened opened) {
            if (opened.camera)
                m_description = opened.camera->description();
            onOpened(std::move(opened.camera), opened.error, opened.isInUse);
        });
}

void CCameraSession::onOpened(std::shared_ptr<CSharedCamera> camera, const QString& error, bool isInUse)
{
    m_camera = std::move(camera);
    m_error = error;
    setBusy(false);
    if (m_isClosing) {
        release();
        return;
    }
    if (!error.isEmpty()) {
        setState(isInUse ? EState::InUse : EState::Failed);
        return;
    }
    makeNode();
    if (!m_node) {
        m_error = tr("The graph has no place for this camera: its node was removed.");
        setState(EState::Failed);
        return;
    }
    if (m_camera)
        m_lookTimer.start();
    setState(EState::Ready);
    Q_EMIT opened();
}

void CCameraSession::makeNode()
{
    const auto info = Core::AppCoreComponents::BaseInfoPtr::create();
    const Core::CId id = m_service.addNode(m_models.createCameraSource(name()), info);
    m_scene = m_service.findSceneByInfo(info);
    m_node = m_service.findNode(id);
    auto* const source = m_node ? qobject_cast<ASourceNodeDataModel*>(m_node->nodeDataModel()) : nullptr;
    if (!source) {
        m_node = nullptr;
        return;
    }
    m_feed = std::make_shared<CFrameFeed>(source->dataEntry());
    // Queued: whoever removes it is not done with that, and may do more before this object goes.
    connect(m_node, &QObject::destroyed, this, &CCameraSession::nodeLost, Qt::QueuedConnection);
}

void CCameraSession::start()
{
    startGrabbing(0);
}

void CCameraSession::grabSingle()
{
    startGrabbing(1);
}

void CCameraSession::startGrabbing(quint64 frames)
{
    if (m_isBusy || m_state != EState::Ready)
        return;
    m_error.clear();
    setBusy(true);
    m_work.run(
        [camera = m_camera, options = m_options] {
            SStarted started;
            started.source = camera ? camera->makeSource(&started.error) : openSource(options, &started.error);
            if (started.source && !started.source->start(&started.error))
                started.source.reset();
            return started;
        },
        this, [this, frames](SStarted started) { onStarted(std::move(started), frames); });
}

void CCameraSession::onStarted(SStarted started, quint64 frames)
{
    m_source = std::move(started.source);
    setBusy(false);
    if (m_isClosing) {
        release();
        return;
    }
    if (!m_source) {
        fail(started.error);
        return;
    }
    m_description = m_source->description();
    const QString format = m_source->pixelFormat();
    m_formatProblem =
        m_models.supports(format) ? QString() : tr("Images of the format %1 cannot be shown.").arg(format);
    m_thread = std::make_unique<CGrabThread>(*m_source, frames, forEver,
                                             [feed = m_feed](const CGrabThread::SFrame& frame) { feed->take(frame); });
    connect(m_thread.get(), &CGrabThread::ended, this, &CCameraSession::onGrabEnded, Qt::QueuedConnection);
    m_rate = CRateMeter();
    m_rate.add(m_feed->frames(), CRateMeter::Clock::now());
    m_timer.start();
    m_thread->start();
    setState(EState::Streaming);
}

void CCameraSession::stop()
{
    if (m_isBusy || !m_thread)
        return;
    setBusy(true);
    m_thread->requestInterruption();
}

void CCameraSession::onGrabEnded(const QString& error)
{
    m_timer.stop();
    onTick(); // the last picture
    m_thread.reset();
    m_error = error;
    setBusy(true);
    // The camera is stopped by the end of its source.
    m_work.run(
        [source = std::exchange(m_source, nullptr)]() mutable {
            source.reset();
            return true;
        },
        this, [this](bool) { onStopped(); });
}

void CCameraSession::onStopped()
{
    m_rate = CRateMeter();
    setBusy(false);
    if (m_state != EState::Away)
        setState(EState::Ready);
    if (m_isClosing)
        release();
}

void CCameraSession::onTick()
{
    m_rate.add(frames(), CRateMeter::Clock::now());
    const bool isAway = m_source && m_source->absences().isAway;
    if (m_source)
        setState(isAway ? EState::Away : EState::Streaming);
    makePreview();
    Q_EMIT ticked();
}

// While it streams, its source does so.
void CCameraSession::lookForCamera()
{
    if (m_isBusy || m_isLooking || m_thread)
        return;
    m_isLooking = true;
    const bool isAway = m_state == EState::Away;
    m_work.run([camera = m_camera, isAway] { return isAway ? camera->reopen() : !camera->isLost(); }, this,
               [this](bool isThere) { onLooked(isThere); });
}

void CCameraSession::onLooked(bool isThere)
{
    m_isLooking = false;
    if (m_isBusy || m_thread)
        return;
    m_lookTimer.setInterval(isThere ? lookInterval : waitInterval);
    const bool isBack = isThere && m_state == EState::Away;
    setState(isThere ? EState::Ready : EState::Away);
    if (!isBack)
        return;
    fail({}); // that it had gone is no longer so
    readFeatures();
}

// One at a time: they would pile up behind work that takes longer than a tick.
void CCameraSession::makePreview()
{
    if (m_isMakingPreview || m_framesAtPreview == frames())
        return;
    m_isMakingPreview = true;
    m_framesAtPreview = frames();
    m_work.run([feed = m_feed] { return previewOf(feed->newest(), previewSize); }, this,
               [this](const QImage& preview) {
                   m_isMakingPreview = false;
                   m_preview = preview;
                   if (!m_timer.isActive())
                       makePreview(); // no tick comes for the last frame any more
                   Q_EMIT ticked();
               });
}

void CCameraSession::close()
{
    if (m_isClosing)
        return;
    m_isClosing = true;
    m_programLock = std::make_unique<QEventLoopLocker>();
    if (m_thread)
        m_thread->requestInterruption();
    else if (!m_isBusy)
        release();
}

// To stop a camera and to close its device takes long. It is the last work, so the destructor finds nothing to wait
// for.
void CCameraSession::release()
{
    m_isBusy = true; // or the camera would be opened anew
    m_lookTimer.stop();
    m_work.run(
        [camera = std::exchange(m_camera, nullptr), source = std::exchange(m_source, nullptr)]() mutable {
            source.reset();
            camera.reset();
            return true;
        },
        this, [this](bool) { deleteLater(); });
}

void CCameraSession::setState(EState state)
{
    if (m_state == state)
        return;
    m_state = state;
    Q_EMIT changed();
}

void CCameraSession::setBusy(bool isBusy)
{
    m_isBusy = isBusy;
    Q_EMIT changed();
}

void CCameraSession::fail(const QString& error)
{
    m_error = error;
    Q_EMIT changed();
}

} // namespace Host
