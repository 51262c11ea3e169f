// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CCameraPanel.h"

#include "host/viewer/base/Actions.h"
#include "host/viewer/base/ModelText.h"
#include "host/viewer/base/Theme.h"
#include "host/viewer/cameras/CCameraDelegate.h"
#include "host/viewer/cameras/CCameraList.h"
#include "host/viewer/cameras/CCameraSession.h"
#include "host/viewer/cameras/CCameraSessions.h"

#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QListView>
#include <QToolButton>
#include <QVBoxLayout>

namespace Host {

CCameraPanel::CCameraPanel(CCameraSessions& sessions, CCameraList& list, QWidget* parent)
    : QWidget(parent)
    , m_sessions(sessions)
    , m_list(list)
    , m_view(new QListView(this))
    , m_message(new QLabel(this))
{
    makeActions();
    m_view->setModel(&list);
    m_view->setItemDelegate(new CCameraDelegate(m_view));
    m_view->setUniformItemSizes(true);
    m_view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_message->hide();
    m_message->setWordWrap(true);
    m_message->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* const buttons = new QGridLayout;
    buttons->setSpacing(gridStep / 2);
    const QList<QAction*> shown{m_connect, m_start, m_stop, m_single, m_trigger, m_disconnect};
    constexpr int columns = 3;
    for (int i = 0; i < shown.size(); ++i) {
        auto* const button = new QToolButton(this);
        button->setDefaultAction(shown.at(i));
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        buttons->addWidget(button, i / columns, i % columns);
        buttons->setColumnStretch(i % columns, 1);
    }
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(gridStep, gridStep, gridStep, gridStep);
    layout->setSpacing(gridStep);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_message);
    layout->addLayout(buttons);

    connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this, &CCameraPanel::tellChosen);
    connect(m_view, &QListView::activated, this, &CCameraPanel::startOrStop);
    connect(&list, &CCameraList::dataChanged, this, &CCameraPanel::onRowsChanged);
    connect(&sessions, &CCameraSessions::changed, this, [this](const CCameraSession* session) {
        if (session == current())
            updateActions();
    });
    retranslate();
    m_view->setCurrentIndex(m_list.index(0));
}

void CCameraPanel::makeActions()
{
    const auto make = [this](const char* name, const QKeySequence& keys, void (CCameraSession::*step)()) {
        return makeAction(this, name, keys, [this, step] {
            if (CCameraSession* const session = current())
                (session->*step)();
        });
    };
    m_connect =
        makeAction(this, "connectCamera", QKeySequence(QStringLiteral("Ctrl+Shift+O")), [this] { connectChosen(); });
    m_start = make("startCamera", Qt::Key_F5, &CCameraSession::start);
    m_stop = make("stopCamera", Qt::Key_F6, &CCameraSession::stop);
    m_single = make("grabSingle", Qt::Key_F7, &CCameraSession::grabSingle);
    m_trigger = make("triggerCamera", Qt::Key_F8, &CCameraSession::trigger);
    m_disconnect = makeAction(this, "disconnectCamera", {}, [this] { Q_EMIT disconnectRequested(chosenName()); });
    m_images = makeAction(this, "openImages", {}, [this] { askForImages(); });
    m_video = makeAction(this, "openVideo", {}, [this] { askForVideo(); });
}

QList<QAction*> CCameraPanel::cameraActions() const
{
    return {m_connect, m_start, m_stop, m_single, m_trigger, m_disconnect, m_images, m_video};
}

QString CCameraPanel::chosenName() const
{
    return m_view->currentIndex().data(CCameraList::NameRole).toString();
}

CCameraSession* CCameraPanel::current() const
{
    return m_sessions.find(chosenName());
}

void CCameraPanel::choose(const QString& name)
{
    const QModelIndex index = m_list.indexOf(name);
    if (index.isValid())
        m_view->setCurrentIndex(index);
}

void CCameraPanel::connectChosen()
{
    const QString name = chosenName();
    if (name.isEmpty())
        return;
    if (CCameraSession* const failed = current()) {
        failed->open();
        return;
    }
    SCameraOptions options;
    options.address = name;
    CCameraSession* const session = m_sessions.connectCamera(options);
    connect(session, &CCameraSession::opened, session, &CCameraSession::start);
}

void CCameraPanel::startOrStop()
{
    CCameraSession* const session = current();
    if (!session || !session->isOpen())
        connectChosen();
    else if (session->state() == CCameraSession::EState::Ready)
        session->start();
    else
        session->stop();
}

void CCameraPanel::openFiles(SFileOptions::EKind kind, const QString& place, double framesPerSecond)
{
    SFileOptions options;
    options.kind = kind;
    options.name = QFileInfo(place).fileName();
    options.place = place;
    options.framesPerSecond = framesPerSecond;
    options.isLooped = true;
    CCameraSession* const session = m_sessions.connectCamera(options);
    connect(session, &CCameraSession::opened, session, &CCameraSession::start);
    choose(session->name());
}

void CCameraPanel::askForImages()
{
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Folder with images"));
    if (!folder.isEmpty())
        openFiles(SFileOptions::EKind::Images, folder);
}

void CCameraPanel::askForVideo()
{
    const QString file =
        QFileDialog::getOpenFileName(this, tr("Video"), {}, tr("Videos (*.avi *.mkv *.mp4 *.mov);;All files (*)"));
    if (!file.isEmpty())
        openFiles(SFileOptions::EKind::Video, file);
}

void CCameraPanel::tellChosen()
{
    m_shown = current();
    updateActions();
    Q_EMIT currentChanged(m_shown);
}

// The chosen row stays when its camera is connected, and when it is not any more; what it stands for does not.
void CCameraPanel::onRowsChanged()
{
    if (m_shown != current())
        tellChosen();
}

void CCameraPanel::updateActions()
{
    using EState = CCameraSession::EState;
    const CCameraSession* const session = current();
    const bool isIdle = session && !session->isBusy();
    const bool isReady = isIdle && session->state() == EState::Ready;
    m_connect->setEnabled(!session || (isIdle && !session->isOpen()));
    m_start->setEnabled(isReady);
    m_single->setEnabled(isReady);
    m_stop->setEnabled(isIdle && session->isGrabbing());
    m_trigger->setEnabled(session && session->isOpen() && !session->isFile());
    m_disconnect->setEnabled(session != nullptr);

    const QString error = session ? asSentence(session->error()) : QString();
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, accentColor(EAccent::Error, palette()));
    m_message->setPalette(colors);
    m_message->setText(error);
    if (m_message->isHidden() == error.isEmpty())
        return;
    m_message->setVisible(!error.isEmpty());
    layout()->activate(); // the message takes room from the list
    m_view->scrollTo(m_view->currentIndex());
}

void CCameraPanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_list.setActive(true);
}

void CCameraPanel::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_list.setActive(false);
}

void CCameraPanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::PaletteChange)
        updateActions();
}

void CCameraPanel::retranslate()
{
    m_connect->setText(tr("Connect"));
    m_start->setText(tr("Start"));
    m_stop->setText(tr("Stop"));
    m_single->setText(tr("Single frame"));
    m_trigger->setText(tr("Trigger"));
    m_disconnect->setText(tr("Disconnect"));
    m_images->setText(tr("Open images as a camera…"));
    m_video->setText(tr("Open a video as a camera…"));
    m_view->setAccessibleName(tr("Cameras"));
    m_message->setAccessibleName(tr("Message of the camera"));
    m_list.retranslate();
}

} // namespace Host
