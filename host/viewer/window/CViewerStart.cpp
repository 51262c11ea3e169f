// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CViewerStart.h"

#include "host/base/Shown.h"
#include "host/run/Output.h"
#include "host/viewer/cameras/CCameraSession.h"
#include "host/viewer/cameras/CCameraSessions.h"
#include "host/viewer/graph/CGraphView.h"
#include "host/viewer/images/CImageDock.h"
#include "host/viewer/window/CImageDocks.h"
#include "host/viewer/window/CScenePage.h"
#include "host/viewer/window/CSceneTabs.h"
#include "host/viewer/window/CViewerStatus.h"
#include "host/viewer/window/CViewerWindow.h"

#include <QPixmap>

#include <algorithm>
#include <utility>

namespace Host {

namespace {

constexpr int startLookInterval = 100; // milliseconds
constexpr int looksInARow = 10;        // rates are told after a while, pictures come a moment after their frames

} // namespace

CViewerStart::CViewerStart(CViewerWindow& window, SViewerOptions options)
    : m_window(window)
    , m_options(std::move(options))
    , m_sceneToOpen(m_options.scene)
    , m_waitedFor(m_options.cameras)
    , m_toConnect(m_options.cameras)
{
    connect(&window.sessions(), &CCameraSessions::opened, this, &CViewerStart::onOpened);
    connect(&window.sessions(), &CCameraSessions::changed, this, &CViewerStart::onChanged);
    connectNext();
    if (m_options.cameras.isEmpty() && !m_options.scene.isEmpty())
        window.openScene(m_options.scene);
    if (m_options.duration.count() > 0)
        QTimer::singleShot(m_options.duration, this, [this] { Q_EMIT ended(0); });
    if (!m_options.screenshot.isEmpty()) {
        connect(&m_poll, &QTimer::timeout, this, &CViewerStart::takeScreenshot);
        m_poll.start(startLookInterval);
    }
}

void CViewerStart::connectNext()
{
    if (m_toConnect.isEmpty())
        return;
    SCameraOptions camera;
    camera.address = m_toConnect.takeFirst();
    m_window.sessions().connectCamera(camera);
}

void CViewerStart::onChanged(const CCameraSession* session)
{
    using EState = CCameraSession::EState;
    const bool isRefused = session->state() == EState::Failed || session->state() == EState::InUse;
    if (!isRefused || !m_waitedFor.removeOne(session->name()))
        return;
    m_window.status().tellError(session->error());
    if (m_poll.isActive()) {
        endScreenshot(QStringLiteral("%1: %2").arg(printable(session->name()), printable(session->error())));
        return;
    }
    connectNext();
}

void CViewerStart::onOpened(CCameraSession* session)
{
    if (!m_waitedFor.removeOne(session->name()))
        return;
    // The window, which heard of it first, shows the scene of this camera now.
    if (!m_sceneToOpen.isEmpty())
        m_window.openScene(std::exchange(m_sceneToOpen, {}));
    for (const QString& chain : m_options.chains)
        m_window.importChain(chain);
    if (const CScenePage* const page = m_window.tabs().page(session->scene()))
        page->view().fit();
    session->start();
    connectNext();
}

bool CViewerStart::isEverythingSeen() const
{
    const auto& sessions = m_window.sessions().all();
    return m_toConnect.isEmpty() && std::all_of(sessions.begin(), sessions.end(), [](const CCameraSession* session) {
               return !session->preview().isNull() && session->framesPerSecond() > 0.0;
           });
}

void CViewerStart::takeScreenshot()
{
    m_seenFor = isEverythingSeen() ? m_seenFor + 1 : 0;
    if (m_seenFor < looksInARow)
        return;
    const bool isWritten = m_window.grab().save(m_options.screenshot);
    endScreenshot(isWritten ? QString()
                            : QStringLiteral("cannot write the screenshot '%1'").arg(printable(m_options.screenshot)));
}

void CViewerStart::endScreenshot(const QString& error)
{
    m_poll.stop();
    if (!error.isEmpty())
        printErrorLine(error);
    Q_EMIT ended(error.isEmpty() ? 0 : 1);
}

} // namespace Host
