// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/CTable.h"

#include <algorithm>
#include <numeric>

namespace Host {

namespace {

constexpr int gap = 2;
constexpr int leastFirstColumn = 16;

QString shortened(const QString& text, int width)
{
    return text.size() <= width ? text : text.left(width - 1) + QChar(0x2026);
}

QString line(const QStringList& cells, const std::vector<int>& widths, const std::vector<bool>& isRight)
{
    QString line;
    for (int i = 0; i < cells.size(); ++i) {
        const std::size_t column = std::size_t(i);
        const QString cell = i == 0 ? shortened(cells.at(i), widths[column]) : cells.at(i);
        line += isRight[column] ? cell.rightJustified(widths[column]) : cell.leftJustified(widths[column]);
        line += QString(gap, QLatin1Char(' '));
    }
    while (line.endsWith(QLatin1Char(' ')))
        line.chop(1);
    return line;
}

} // namespace

CTable::CTable(const QStringList& headings)
    : m_headings(headings)
{
    for (QString& heading : m_headings) {
        m_isRight.push_back(heading.startsWith(QLatin1Char('>')));
        if (m_isRight.back())
            heading.remove(0, 1);
    }
}

void CTable::addRow(const QStringList& cells)
{
    Q_ASSERT(cells.size() == m_headings.size());
    QStringList row = cells;
    for (QString& cell : row) {
        if (cell.isEmpty())
            cell = QStringLiteral("-");
    }
    m_rows.push_back(row);
}

std::vector<int> CTable::widths(int width) const
{
    std::vector<int> widths;
    for (int i = 0; i < m_headings.size(); ++i) {
        int most = m_headings.at(i).size();
        for (const QStringList& row : m_rows)
            most = std::max(most, row.at(i).size());
        widths.push_back(most);
    }
    const int all = std::accumulate(widths.begin(), widths.end(), 0) + gap * (m_headings.size() - 1);
    if (all > width && widths.front() > leastFirstColumn)
        widths.front() = std::max(leastFirstColumn, widths.front() - (all - width));
    return widths;
}

QString CTable::text(int width, bool isBold) const
{
    const std::vector<int> columns = widths(width);
    QString text = line(m_headings, columns, m_isRight);
    if (isBold)
        text = QStringLiteral("\x1b[1m%1\x1b[0m").arg(text);
    text += QLatin1Char('\n');
    for (const QStringList& row : m_rows)
        text += line(row, columns, m_isRight) + QLatin1Char('\n');
    return text;
}

} // namespace Host
