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
 * An empty cell is shown as a dash. In a table that is too wide the first column is cut in the middle, down to
 * 16 characters. What is
 * still too wide comes in several parts, one below the other, each with the first columns, by which rows are known.
 * Words in the last column go on in the next line. Nothing else is cut: a part of a file's name is of no use.
 */
class CTable
{
public:
    /// \a keys: how many of the first columns a row is known by.
    explicit CTable(const QStringList& headings, int keys = 1);

    void addRow(const QStringList& cells);
    bool isEmpty() const { return m_rows.empty(); }

    /// The lines, each with its end. \a isBold: the headings in bold.
    QString text(int width, bool isBold = false) const;

private:
    using Columns = std::vector<std::size_t>; // numbers of columns, in their order

    std::vector<int> widths(int width) const;
    bool isOpenEnd(std::size_t column) const;
    std::vector<Columns> parts(int width, const std::vector<int>& widths) const;
    QString line(const QStringList& cells, const std::vector<int>& widths, const Columns& columns, int width) const;

    const std::size_t m_keys;
    QStringList m_headings;
    std::vector<bool> m_isRight;
    std::vector<QStringList> m_rows;
};

} // namespace Host
