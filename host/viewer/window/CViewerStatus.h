// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QObject>
#include <QTimer>

class QLabel;
class QStatusBar;

namespace Host {

class CCameraSession;
class CCameraSessions;

/**
 * What the status bar tells: at the left what has just happened, or which model held up the window and for how long; at
 * the right how many cameras stream, and how fast.
 *
 * Threads: the main thread.
 */
class CViewerStatus : public QObject
{
    Q_OBJECT

public:
    /// \a sessions outlives this object, and \a bar owns it.
    CViewerStatus(QStatusBar& bar, CCameraSessions& sessions);

    /// For some seconds.
    void tell(const QString& text);
    void tellError(const QString& text);

    /// \a who as CThreadWatch names it. An error that is shown stays.
    void tellHeldUp(const QString& who, int milliseconds);

    QString message() const;
    QString cameras() const;

    void retranslate() { showCameras(); }

private:
    enum class EKind
    {
        Done,
        Warning,
        Error
    };
    void show(EKind kind, const QString& text);
    void showCameras();

    CCameraSessions& m_sessions;
    QLabel* const m_message;
    QLabel* const m_cameras;
    QTimer m_clearTimer;
    EKind m_shown = EKind::Done; // while that timer runs
};

} // namespace Host
