// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/sources/SFileOptions.h"

#include <QList>
#include <QPointer>
#include <QWidget>

class QAction;
class QLabel;
class QListView;
class QToolButton;

namespace Host {

class CCameraList;
class CCameraSession;
class CCameraSessions;

/**
 * The list of cameras, and what can be done with the chosen one: connect, start, stop, a single frame, a trigger,
 * disconnect. Image files and videos are connected like cameras.
 *
 * A double click connects and starts a camera, and starts or stops a connected one.
 */
class CCameraPanel : public QWidget
{
    Q_OBJECT

public:
    /// Both outlive this object.
    CCameraPanel(CCameraSessions& sessions, CCameraList& list, QWidget* parent = nullptr);

    QList<QAction*> cameraActions() const;

    /// The session of the chosen row; null if it is not connected.
    CCameraSession* current() const;

    void choose(const QString& name);

    /// Connects and starts what is in a folder or file, as fast as \a framesPerSecond, over and over.
    void openFiles(SFileOptions::EKind kind, const QString& place, double framesPerSecond = 25.0);

Q_SIGNALS:
    /// Another row was chosen, or the chosen one was connected or disconnected; null if it is not connected.
    void currentChanged(Host::CCameraSession* session);

    /// A person asks for the end of that session. Its scene goes with it: whoever hears of it asks first about changes.
    void disconnectRequested(const QString& name);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void makeActions();
    void connectChosen();
    void startOrStop();
    void askForImages();
    void askForVideo();
    QString chosenName() const;
    void tellChosen();
    void onRowsChanged();
    void updateActions();
    void retranslate();

    CCameraSessions& m_sessions;
    CCameraList& m_list;
    QListView* const m_view;
    QLabel* const m_message;
    QPointer<CCameraSession> m_shown; // that was told last
    QAction* m_connect = nullptr;
    QAction* m_start = nullptr;
    QAction* m_stop = nullptr;
    QAction* m_single = nullptr;
    QAction* m_trigger = nullptr;
    QAction* m_disconnect = nullptr;
    QAction* m_images = nullptr;
    QAction* m_video = nullptr;
};

} // namespace Host
