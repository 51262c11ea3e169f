// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CImageStatus.h"

#include "host/viewer/images/CElidedLabel.h"
#include "host/viewer/images/CMessageLabel.h"
#include "host/viewer/images/CStatisticsTable.h"
#include "host/viewer/images/OwnDepth.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLocale>
#include <QVBoxLayout>

namespace Host {

namespace {

constexpr int measureMs = 250;
constexpr int quietTurns = 5; // a rate looks back one second

QString rateText(double rate)
{
    return QLocale().toString(rate, 'f', rate > 0.0 && rate < 10.0 ? 1 : 0);
}

// Of a colour, the values are told as red, green and blue: so people say them.
QString channelsText(const std::vector<int>& values)
{
    QStringList parts;
    for (auto value = values.rbegin(); value != values.rend(); ++value)
        parts << QString::number(*value);
    return parts.join(QStringLiteral(" / "));
}

} // namespace

CImageStatus::CImageStatus(QWidget* parent)
    : QWidget(parent)
    , m_probe(new CElidedLabel(this))
    , m_statistics(new CStatisticsTable(this))
    , m_rates(new CElidedLabel(this))
    , m_message(new CMessageLabel(this))
{
    // Each has half of the width where both are there, so that a text that grows by a digit is not cut meanwhile.
    auto* const line = new QHBoxLayout;
    line->setSpacing(16);
    line->addWidget(m_probe, 1);
    line->addWidget(m_rates, 1);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->setSpacing(2);
    layout->addLayout(line);
    layout->addWidget(m_statistics);
    layout->addWidget(m_message);
    m_probe->hide();
    m_rates->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_timer.setInterval(measureMs);
    connect(&m_timer, &QTimer::timeout, this, &CImageStatus::measure);
    retranslate();
}

void CImageStatus::retranslate()
{
    setAccessibleName(tr("Image status"));
    m_probe->setAccessibleName(tr("Value under the cursor"));
    m_rates->setAccessibleName(tr("Rates"));
    m_message->setAccessibleName(tr("Message"));
    m_rates->setLine(tr("%1 of %2 frames/s shown").arg(rateText(m_shownRate.rate()), rateText(m_deliveredRate.rate())));
}

void CImageStatus::setProbe(const SRenderedImage& image, const std::optional<QPoint>& pixel)
{
    const std::vector<int> values = image.data && pixel ? ownValues(*image.data, *pixel) : std::vector<int>();
    m_probe->setVisible(!values.empty()); // otherwise the rates have its place
    if (values.empty()) {
        m_probe->setLine({});
        return;
    }
    m_probe->setLine(tr("x %1  y %2: %3").arg(pixel->x()).arg(pixel->y()).arg(channelsText(values)));
}

void CImageStatus::setStatistics(const SRenderedImage& image)
{
    m_statistics->showImage(image);
}

void CImageStatus::setCounts(quint64 shown, quint64 delivered)
{
    m_shown = shown;
    m_delivered = delivered;
    if (m_timer.isActive() || delivered == m_measured)
        return;
    measure();
    m_timer.start();
}

void CImageStatus::measure()
{
    m_quietTurns = m_delivered == m_measured ? m_quietTurns + 1 : 0;
    m_measured = m_delivered;
    if (m_quietTurns > quietTurns)
        m_timer.stop();
    const auto now = CRateMeter::Clock::now();
    m_shownRate.add(m_shown, now);
    m_deliveredRate.add(m_delivered, now);
    retranslate();
}

void CImageStatus::setMessage(const QString& message)
{
    m_message->setMessage(message);
}

QString CImageStatus::probeText() const
{
    return m_probe->text();
}

QString CImageStatus::statisticsText() const
{
    return m_statistics->text();
}

QString CImageStatus::ratesText() const
{
    return m_rates->text();
}

QString CImageStatus::messageText() const
{
    return m_message->message();
}

void CImageStatus::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

} // namespace Host
