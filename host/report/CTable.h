// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace Host {

/**
 * A table of text: columns as wide as what stands in them, numbers to the right, words to the left.
 *
 * \code
 * CTable table({"Node", ">in", ">out"}); // ">": to the right
 * table.addRow({"[1] Blur", "300", "39"});
 * printText(table.text(80));
 * \endcode
 *
 * An empty cell is shown as a dash. In a table that is too wide the first column is cut, down to 16 characters. If that
 * is not enough, the columns that do not fit come in a second table below it, with the first column again. But a last
 * column of words may be too wide: a file name that is cut is of no use.
 */
class CTable
{
public:
    explicit CTable(const QStringList& headings);

    void addRow(const QStringList& cells);
    bool isEmpty() const { return m_rows.empty(); }

    /// The lines, each with its end. \a isBold: the headings in bold.
    QString text(int width, bool isBold = false) const;

private:
    using Columns = std::vector<int>;

    std::vector<int> widths(int width) const;
    std::vector<Columns> split(const std::vector<int>& widths, int width) const;
    QString line(const QStringList& cells, const Columns& columns, const std::vector<int>& widths) const;

    QStringList m_headings;
    std::vector<bool> m_isRight;
    std::vector<QStringList> m_rows;
};

} // namespace Host
