// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/recording/CRecordBar.h"

#include "host/viewer/base/ModelText.h"
#include "host/viewer/base/Theme.h"
#include "host/viewer/images/CElidedLabel.h"
#include "host/viewer/images/CMessageLabel.h"
#include "host/viewer/recording/CRecorder.h"

#include <QDir>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QPalette>
#include <QStyle>
#include <QToolButton>

namespace Host {

namespace {

constexpr int textPaceMs = 100; // numbers that change faster cannot be read

QString numberText(quint64 number)
{
    return QLocale().toString(number);
}

} // namespace

CRecordBar::CRecordBar(CRecorder& recorder, QWidget* parent)
    : QWidget(parent)
    , m_recorder(recorder)
    , m_dot(new QLabel(QStringLiteral("●"), this))
    , m_state(new CMessageLabel(this))
    , m_counts(new CElidedLabel(this))
    , m_detail(new CMessageLabel(this))
    , m_close(new QToolButton(this))
{
    auto* const layout = new QGridLayout(this);
    layout->setContentsMargins(8, 4, 4, 0);
    layout->setHorizontalSpacing(8);
    layout->setVerticalSpacing(2);
    layout->addWidget(m_dot, 0, 0);
    layout->addWidget(m_state, 0, 1);
    layout->addWidget(m_close, 0, 2);
    layout->addWidget(m_counts, 1, 0, 1, 3);
    layout->addWidget(m_detail, 2, 0, 1, 3);
    layout->setColumnStretch(1, 1);
    m_dot->setObjectName(QStringLiteral("recordingDot"));
    takeColors();
    m_close->setAutoRaise(true);
    m_close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    m_close->setObjectName(QStringLiteral("closeRecording"));
    connect(m_close, &QToolButton::clicked, this, &QWidget::hide);
    m_pace.setInterval(textPaceMs);
    connect(&m_pace, &QTimer::timeout, this, &CRecordBar::refresh);
    connect(&recorder, &CRecorder::changed, this, &CRecordBar::onChanged);
    hide();
    retranslate();
}

void CRecordBar::takeColors()
{
    QPalette dotPalette;
    dotPalette.setColor(QPalette::WindowText, recordColor(palette()));
    m_dot->setPalette(dotPalette);
}

void CRecordBar::onChanged()
{
    m_hasChanged = true;
    if (m_pace.isActive())
        return;
    refresh();
    m_pace.start();
}

void CRecordBar::refresh()
{
    if (!m_hasChanged) {
        m_pace.stop();
        return;
    }
    m_hasChanged = false;
    retranslate();
}

QString CRecordBar::stateText() const
{
    switch (m_recorder.state()) {
    case CRecorder::EState::Recording:
        return tr("Recording");
    case CRecorder::EState::Finishing:
        return tr("Finishing, %1 waiting").arg(numberText(m_recorder.counts().pending));
    case CRecorder::EState::Finished:
        return m_recorder.error().isEmpty() ? tr("Recorded") : tr("Recording ended");
    case CRecorder::EState::Idle:
        break;
    }
    return tr("Not recorded");
}

void CRecordBar::retranslate()
{
    setAccessibleName(tr("Recording"));
    m_counts->setAccessibleName(tr("Counts of the recording"));
    m_detail->setAccessibleName(tr("Folder or error of the recording"));
    m_close->setAccessibleName(tr("Hide the recording's counts"));
    m_close->setToolTip(m_close->accessibleName());
    const CRecorder::SCounts counts = m_recorder.counts();
    m_state->setMessage(stateText());
    m_counts->setLine(tr("%1 received · %2 written · %3 dropped")
                          .arg(numberText(counts.received), numberText(counts.written), numberText(counts.dropped)));
    m_counts->setVisible(m_recorder.state() != CRecorder::EState::Idle);
    m_detail->setMessage(m_recorder.error().isEmpty() ? QDir::toNativeSeparators(m_recorder.folder())
                                                      : asSentence(m_recorder.error()));
    const bool isOn = m_recorder.state() == CRecorder::EState::Recording;
    m_dot->setVisible(isOn);
    m_close->setVisible(!isOn);
    if (isOn || !m_recorder.error().isEmpty())
        show();
}

QString CRecordBar::stateMessage() const
{
    return m_state->message();
}

QString CRecordBar::countsText() const
{
    return m_counts->text();
}

QString CRecordBar::detailText() const
{
    return m_detail->message();
}

void CRecordBar::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::PaletteChange)
        takeColors();
    QWidget::changeEvent(event);
}

} // namespace Host
