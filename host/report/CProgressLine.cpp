// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/CProgressLine.h"

#include "host/report/Terminal.h"

#include <unistd.h>

namespace Host {

CProgressLine::CProgressLine(std::FILE* stream, std::chrono::milliseconds quietTime)
    : m_stream(stream)
    , m_isTerminal(isatty(fileno(stream)) == 1)
    , m_quietTime(quietTime)
{
}

void CProgressLine::show(const QString& text)
{
    // A line that goes on in the next one cannot be drawn anew.
    if (m_isTerminal)
        return draw(text.left(columnsOf(m_stream) - 1));
    const auto now = std::chrono::steady_clock::now();
    if (now < m_next)
        return;
    m_next = now + m_quietTime;
    std::fprintf(m_stream, "%s\n", qPrintable(text));
    std::fflush(m_stream);
}

void CProgressLine::showLast(const QString& text)
{
    if (m_isTerminal)
        return draw(text);
    m_next = {};
    show(text);
}

void CProgressLine::draw(const QString& text)
{
    // Blanks cover what is left of a longer line.
    std::fprintf(m_stream, "\r%s", qPrintable(text.leftJustified(m_width)));
    std::fflush(m_stream);
    m_width = text.size();
}

void CProgressLine::finish()
{
    if (m_width > 0)
        std::fputc('\n', m_stream);
    m_width = 0;
}

} // namespace Host
