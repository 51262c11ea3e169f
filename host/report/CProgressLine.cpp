// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/CProgressLine.h"

#include "host/report/Terminal.h"

#include <QStringList>

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
    if (text.isEmpty())
        return;
    // A line that the terminal breaks cannot be drawn anew. Its last column stays free, or some terminals break it.
    const int most = columnsOf(m_stream) - 1;
    if (m_isTerminal)
        return draw(text.size() <= most ? text : text.left(most - 1) + QChar(0x2026));
    const auto now = std::chrono::steady_clock::now();
    if (now < m_next || text == m_printed)
        return;
    m_printed = text;
    m_next = now + m_quietTime;
    std::fprintf(m_stream, "%s\n", qPrintable(text));
    std::fflush(m_stream);
}

void CProgressLine::showLast(const QString& text)
{
    if (m_isTerminal && !text.isEmpty())
        return drawWhole(text);
    m_next = {};
    show(text);
}

void CProgressLine::drawWhole(const QString& text)
{
    QStringList lines = wrapped(text, columnsOf(m_stream) - 1, 0).chopped(1).split(QLatin1Char('\n'));
    draw(lines.takeFirst());
    for (const QString& line : qAsConst(lines))
        std::fprintf(m_stream, "\n%s", line.toUtf8().constData());
    std::fflush(m_stream);
}

void CProgressLine::draw(const QString& text)
{
    // Blanks cover what is left of a longer line.
    std::fprintf(m_stream, "\r%s", text.leftJustified(m_width).toUtf8().constData());
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
