// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CStatisticsTable.h"

#include "host/viewer/images/CElidedLabel.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>

namespace Host {

namespace {

constexpr int mostRows = 3;

QString decimalText(double value)
{
    return QLocale().toString(value, 'f', 1);
}

// Least and most are whole numbers, unless a filter has made more bits than the camera has.
QString wholeText(double value)
{
    return QLocale().toString(value, 'f', value == double(qint64(value)) ? 0 : 1);
}

} // namespace

CStatisticsTable::CStatisticsTable(QWidget* parent)
    : QWidget(parent)
    , m_place(new CElidedLabel(this))
{
    auto* const layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setHorizontalSpacing(8);
    layout->setVerticalSpacing(2);
    layout->addWidget(m_place, 0, 0, 1, int(columns));
    for (int line = 0; line <= mostRows; ++line) {
        Row row{};
        for (std::size_t column = 0; column < columns; ++column) {
            row[column] = new QLabel(this);
            row[column]->setAlignment((column > 0 ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
            layout->addWidget(row[column], line + 1, int(column));
            layout->setColumnStretch(int(column), 1);
        }
        if (line == 0)
            m_head = row;
        else
            m_rows.push_back(row);
    }
    hide();
    retranslate();
}

void CStatisticsTable::showImage(const SRenderedImage& image)
{
    m_part = image.selection;
    m_statistics = image.statistics;
    setVisible(!m_statistics.empty());
    retranslate();
}

// Of a colour, red comes first, though blue does in the image: so people say it.
QString CStatisticsTable::channelName(std::size_t channel, std::size_t channels) const
{
    if (channels == 1)
        return tr("Grey");
    const QString names[] = {tr("Blue"), tr("Green"), tr("Red")};
    return names[channel];
}

void CStatisticsTable::fillRow(const Row& row, const QString& name, const SChannelStatistics& values)
{
    row[0]->setText(name);
    row[1]->setText(decimalText(values.mean));
    row[2]->setText(wholeText(values.least));
    row[3]->setText(wholeText(values.most));
    row[4]->setText(decimalText(values.deviation));
}

void CStatisticsTable::retranslate()
{
    setAccessibleName(tr("Statistics of the rectangle"));
    m_place->setLine(tr("%1 × %2 at %3, %4").arg(m_part.width()).arg(m_part.height()).arg(m_part.x()).arg(m_part.y()));
    const QString heads[] = {QString(), tr("Mean"), tr("Min"), tr("Max"), tr("Deviation")};
    for (std::size_t column = 0; column < columns; ++column)
        m_head[column]->setText(heads[column]);
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const bool isShown = i < m_statistics.size();
        for (QLabel* const label : m_rows[i])
            label->setVisible(isShown);
        if (!isShown)
            continue;
        const std::size_t channel = m_statistics.size() - 1 - i;
        fillRow(m_rows[i], channelName(channel, m_statistics.size()), m_statistics[channel]);
    }
}

QString CStatisticsTable::text() const
{
    if (m_statistics.empty())
        return {};
    QStringList lines{m_place->text()};
    for (std::size_t i = 0; i < m_statistics.size(); ++i) {
        QStringList line;
        for (const QLabel* const label : m_rows[i])
            line << label->text();
        lines << line.join(QLatin1Char(' '));
    }
    return lines.join(QLatin1Char('\n'));
}

void CStatisticsTable::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

} // namespace Host
