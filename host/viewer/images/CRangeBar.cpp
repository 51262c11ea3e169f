// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CRangeBar.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>

#include <cmath>

namespace Host {

CRangeBar::CRangeBar(QWidget* parent)
    : QWidget(parent)
    , m_blackLabel(new QLabel(this))
    , m_black(new QSpinBox(this))
    , m_whiteLabel(new QLabel(this))
    , m_white(new QSpinBox(this))
{
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 0, 8, 4);
    layout->setSpacing(8);
    layout->addWidget(m_blackLabel);
    layout->addWidget(m_black);
    layout->addWidget(m_whiteLabel);
    layout->addWidget(m_white);
    layout->addStretch(1);
    m_blackLabel->setBuddy(m_black);
    m_whiteLabel->setBuddy(m_white);
    m_black->setObjectName(QStringLiteral("black"));
    m_white->setObjectName(QStringLiteral("white"));
    // The first digit of a number that is typed must not move the other value.
    m_black->setKeyboardTracking(false);
    m_white->setKeyboardTracking(false);
    setBits(8);
    m_white->setValue(m_white->maximum());
    connect(m_black, QOverload<int>::of(&QSpinBox::valueChanged), this, &CRangeBar::onBlackChanged);
    connect(m_white, QOverload<int>::of(&QSpinBox::valueChanged), this, &CRangeBar::onWhiteChanged);
    retranslate();
}

void CRangeBar::retranslate()
{
    setAccessibleName(tr("Black and white"));
    m_blackLabel->setText(tr("&Black"));
    m_whiteLabel->setText(tr("&White"));
    m_black->setAccessibleName(tr("Value shown as black"));
    m_white->setAccessibleName(tr("Value shown as white"));
}

void CRangeBar::setBits(int bits)
{
    const int most = (1 << bits) - 1;
    m_black->setRange(0, most - 1);
    m_white->setRange(1, most);
    // Keys move by a 256th of all values.
    m_black->setSingleStep(1 << (bits - 8));
    m_white->setSingleStep(1 << (bits - 8));
}

SValueRange CRangeBar::range() const
{
    return {double(m_black->value()), double(m_white->value())};
}

void CRangeBar::setRange(const SValueRange& range)
{
    if (range == this->range())
        return;
    {
        const QSignalBlocker blackIsQuiet(m_black);
        const QSignalBlocker whiteIsQuiet(m_white);
        m_black->setValue(int(std::lround(range.black)));
        m_white->setValue(int(std::lround(range.white)));
    }
    onBlackChanged();
}

void CRangeBar::onBlackChanged()
{
    const QSignalBlocker whiteIsQuiet(m_white);
    if (m_white->value() <= m_black->value())
        m_white->setValue(m_black->value() + 1);
    Q_EMIT rangeChanged();
}

void CRangeBar::onWhiteChanged()
{
    const QSignalBlocker blackIsQuiet(m_black);
    if (m_black->value() >= m_white->value())
        m_black->setValue(m_white->value() - 1);
    Q_EMIT rangeChanged();
}

void CRangeBar::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

} // namespace Host
