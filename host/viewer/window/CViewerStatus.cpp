// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CViewerStatus.h"

#include "host/base/Shown.h"
#include "host/viewer/base/ModelText.h"
#include "host/viewer/base/Theme.h"
#include "host/viewer/cameras/CCameraSession.h"
#include "host/viewer/cameras/CCameraSessions.h"

#include <QLabel>
#include <QStatusBar>

namespace Host {

namespace {

constexpr int shownFor = 12000; // milliseconds

} // namespace

CViewerStatus::CViewerStatus(QStatusBar& bar, CCameraSessions& sessions)
    : QObject(&bar)
    , m_sessions(sessions)
    , m_message(new QLabel(&bar))
    , m_cameras(new QLabel(&bar))
{
    m_message->setObjectName(QStringLiteral("statusMessage"));
    m_message->setTextFormat(Qt::PlainText);
    // A long one is not to make the window wider.
    m_message->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    bar.addWidget(m_message, 1);
    bar.addPermanentWidget(m_cameras);
    bar.setContentsMargins(gridStep, 0, gridStep, 0);
    m_clearTimer.setSingleShot(true);
    m_clearTimer.setInterval(shownFor);
    connect(&m_clearTimer, &QTimer::timeout, m_message, &QLabel::clear);
    connect(&sessions, &CCameraSessions::added, this, &CViewerStatus::showCameras);
    connect(&sessions, &CCameraSessions::removed, this, &CViewerStatus::showCameras);
    connect(&sessions, &CCameraSessions::changed, this, &CViewerStatus::showCameras);
    showCameras();
}

void CViewerStatus::show(EKind kind, const QString& text)
{
    if (kind == EKind::Warning && m_shown == EKind::Error && m_clearTimer.isActive())
        return; // it answers what somebody has just asked for
    m_shown = kind;
    QPalette palette = m_message->parentWidget()->palette();
    if (kind != EKind::Done)
        palette.setColor(QPalette::WindowText,
                         accentColor(kind == EKind::Error ? EAccent::Error : EAccent::Warning, palette));
    m_message->setPalette(palette);
    QString line = asSentence(text.section(QLatin1Char('\n'), 0, 0));
    constexpr QChar wideColon(0xFF1A); // of Chinese
    if (line.endsWith(QLatin1Char(':')) || line.endsWith(wideColon))
        line.chop(1); // what follows is in the tool tip
    m_message->setText(line);
    m_message->setToolTip(asToolTip(text));
    m_message->setAccessibleName(text);
    m_clearTimer.start();
}

void CViewerStatus::tell(const QString& text)
{
    show(EKind::Done, text);
}

void CViewerStatus::tellError(const QString& text)
{
    show(EKind::Error, text);
}

void CViewerStatus::tellHeldUp(const QString& who, int milliseconds)
{
    show(EKind::Warning, who.isEmpty() ? tr("The window was held up for %1 ms").arg(milliseconds)
                                       : tr("%1 held up the window for %2 ms").arg(shown(who)).arg(milliseconds));
}

QString CViewerStatus::message() const
{
    return m_message->text();
}

QString CViewerStatus::cameras() const
{
    return m_cameras->text();
}

void CViewerStatus::showCameras()
{
    int streaming = 0;
    double framesPerSecond = 0.0;
    for (const CCameraSession* const session : m_sessions.all()) {
        streaming += session->state() == CCameraSession::EState::Streaming ? 1 : 0;
        framesPerSecond += session->framesPerSecond();
    }
    const int connected = m_sessions.all().size();
    m_cameras->setText(connected == 0 ? tr("No camera connected")
                                      : tr("Cameras streaming: %1 of %2 · %3 frames/s")
                                            .arg(streaming)
                                            .arg(connected)
                                            .arg(framesPerSecond, 0, 'f', 0));
}

} // namespace Host
