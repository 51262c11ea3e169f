// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QByteArray>

#include <vector>

namespace Host {

/// Line and column, from 1; the column in UTF-16 units, as editors count.
struct STextPlace
{
    int line = 0;
    int column = 0;
};

/// Where in a UTF-8 text its bytes stand. Asked many times, it does not read the text anew, however long its lines are.
class CTextPlaces
{
public:
    explicit CTextPlaces(QByteArray text);

    /// \a offset: in bytes, at most the size of the text.
    STextPlace at(int offset) const;

private:
    int unitsBefore(int offset) const;

    QByteArray m_text;
    std::vector<int> m_lineBegins;
    std::vector<int> m_units; // UTF-16 units before every 1024th byte
};

} // namespace Host
