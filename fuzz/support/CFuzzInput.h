// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>

/// Reads choices off the bytes that a fuzzer made up. When they have run out, every choice is the first.
class CFuzzInput
{
public:
    CFuzzInput(const uint8_t* data, std::size_t size)
        : m_bytes(QByteArray::fromRawData(reinterpret_cast<const char*>(data), int(size)))
    {
    }

    bool isEmpty() const { return m_position == m_bytes.size(); }

    /// One of 0 … \a count - 1, of at most 256; takes one byte.
    int choice(int count) { return isEmpty() ? 0 : uchar(m_bytes.at(m_position++)) % count; }

    /// What is left.
    QByteArray rest()
    {
        const QByteArray bytes(m_bytes.constData() + m_position, m_bytes.size() - m_position);
        m_position = m_bytes.size();
        return bytes;
    }

private:
    QByteArray m_bytes;
    int m_position = 0;
};
