// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/CTable.h"

#include "host/report/Terminal.h"

#include <algorithm>
#include <numeric>

namespace Host {

namespace {

constexpr int gap = 2;
constexpr int leastFirstColumn = 16;
constexpr int leastLastColumn = 16;

// Cut in the middle: "[7] PNG files: edges" is known by its number and by its end.
QString shortened(const QString& text, int width)
{
    if (text.size() <= width)
        return text;
    const int behind = width / 2;
    return text.left(width - 1 - behind) + QChar(0x2026) + text.right(behind);
}

} // namespace

CTable::CTable(const QStringList& headings, int keys)
    : m_keys(std::size_t(keys))
    , m_headings(headings)
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

// Words in the last column go on in the next line.
bool CTable::isOpenEnd(std::size_t column) const
{
    return column + 1 == m_isRight.size() && !m_isRight[column];
}

std::vector<CTable::Columns> CTable::parts(int width, const std::vector<int>& widths) const
{
    Columns keys;
    int keyWidth = 0;
    for (std::size_t column = 0; column < m_keys; ++column) {
        keys.push_back(column);
        keyWidth += widths[column] + gap;
    }
    std::vector<Columns> parts{keys};
    int used = keyWidth;
    for (std::size_t column = m_keys; column < widths.size(); ++column) {
        const int needed = isOpenEnd(column) ? std::min(widths[column], leastLastColumn) : widths[column];
        if (used + needed > width && parts.back().size() > m_keys) {
            parts.push_back(keys);
            used = keyWidth;
        }
        parts.back().push_back(column);
        used += needed + gap;
    }
    return parts;
}

QString CTable::line(const QStringList& cells, const std::vector<int>& widths, const Columns& columns, int width) const
{
    QString line;
    for (const std::size_t column : columns) {
        QString cell = column == 0 ? shortened(cells.at(0), widths[0]) : cells.at(int(column));
        if (isOpenEnd(column) && line.size() + cell.size() > width)
            cell = wrapped(cell, width, line.size()).mid(line.size()).chopped(1);
        line += m_isRight[column] ? cell.rightJustified(widths[column]) : cell.leftJustified(widths[column]);
        line += QString(gap, QLatin1Char(' '));
    }
    while (line.endsWith(QLatin1Char(' ')))
        line.chop(1);
    return line;
}

QString CTable::text(int width, bool isBold) const
{
    const std::vector<int> all = widths(width);
    QString text;
    for (const Columns& columns : parts(width, all)) {
        if (!text.isEmpty())
            text += QLatin1Char('\n');
        text += headingLine(line(m_headings, all, columns, width), isBold);
        for (const QStringList& row : m_rows)
            text += line(row, all, columns, width) + QLatin1Char('\n');
    }
    return text;
}

} // namespace Host
