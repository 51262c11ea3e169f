// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CTextPlaces.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace Host {

namespace {

constexpr int blockBytes = 1024;

// How many UTF-16 units begin with this byte of UTF-8.
int unitsOf(char byte)
{
    const auto value = static_cast<unsigned char>(byte);
    if ((value & 0xc0) == 0x80)
        return 0;
    return value >= 0xf0 ? 2 : 1;
}

} // namespace

CTextPlaces::CTextPlaces(QByteArray text)
    : m_text(std::move(text))
    , m_lineBegins{0}
{
    m_lineBegins.reserve(std::size_t(m_text.count('\n')) + 1);
    int units = 0;
    for (int i = 0; i < m_text.size(); ++i) {
        if (i % blockBytes == 0)
            m_units.push_back(units);
        units += unitsOf(m_text.at(i));
        if (m_text.at(i) == '\n')
            m_lineBegins.push_back(i + 1);
    }
    if (m_text.size() % blockBytes == 0)
        m_units.push_back(units);
}

STextPlace CTextPlaces::at(int offset) const
{
    Q_ASSERT(offset >= 0 && offset <= m_text.size());
    const auto next = std::upper_bound(m_lineBegins.begin(), m_lineBegins.end(), offset);
    const int begin = *(next - 1);
    return {int(next - m_lineBegins.begin()), unitsBefore(offset) - unitsBefore(begin) + 1};
}

int CTextPlaces::unitsBefore(int offset) const
{
    const int block = offset / blockBytes;
    int units = m_units[std::size_t(block)];
    for (int i = block * blockBytes; i < offset; ++i)
        units += unitsOf(m_text.at(i));
    return units;
}

} // namespace Host
