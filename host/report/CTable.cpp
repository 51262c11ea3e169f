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

std::vector<CTable::Columns> CTable::split(const std::vector<int>& widths, int width) const
{
    std::vector<Columns> tables{{0}};
    int used = widths.front();
    for (std::size_t i = 1; i < widths.size(); ++i) {
        const bool mayBeTooWide = i + 1 == widths.size() && !m_isRight[i];
        if (used + gap + widths[i] > width && tables.back().size() > 1 && !mayBeTooWide) {
            tables.push_back({0});
            used = widths.front();
        }
        tables.back().push_back(int(i));
        used += gap + widths[i];
    }
    return tables;
}

QString CTable::line(const QStringList& cells, const Columns& columns, const std::vector<int>& widths) const
{
    QString line;
    for (const int column : columns) {
        const int width = widths[std::size_t(column)];
        const QString cell = column == 0 ? shortened(cells.at(column), width) : cells.at(column);
        line += m_isRight[std::size_t(column)] ? cell.rightJustified(width) : cell.leftJustified(width);
        line += QString(gap, QLatin1Char(' '));
    }
    while (line.endsWith(QLatin1Char(' ')))
        line.chop(1);
    return line;
}

QString CTable::text(int width, bool isBold) const
{
    const std::vector<int> columnWidths = widths(width);
    QStringList tables;
    const std::vector<Columns> all = split(columnWidths, width);
    for (const Columns& columns : all) {
        const QString heading = line(m_headings, columns, columnWidths);
        QString table = (isBold ? QStringLiteral("\x1b[1m%1\x1b[0m").arg(heading) : heading) + QLatin1Char('\n');
        for (const QStringList& row : m_rows)
            table += line(row, columns, columnWidths) + QLatin1Char('\n');
        tables << table;
    }
    return tables.join(QLatin1Char('\n'));
}

} // namespace Host
