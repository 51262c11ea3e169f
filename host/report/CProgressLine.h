// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <chrono>
#include <cstdio>

namespace Host {

/**
 * Tells how far a run is: on a terminal one line that is drawn anew, cut where the terminal ends, but for the last one;
 * elsewhere a line now and then, so that a log stays readable.
 *
 * Threads: one.
 */
class CProgressLine
{
public:
    /// \a stream must outlive this object. \a quietTime lies between two lines that are not on a terminal.
    explicit CProgressLine(std::FILE* stream, std::chrono::milliseconds quietTime = std::chrono::seconds(5));

    /// Ends the line.
    ~CProgressLine() { finish(); }
    Q_DISABLE_COPY(CProgressLine)

    /// \a text is one line, of which a terminal shows what fits. The first one is always shown, an
    /// empty one never, nor, where there is no terminal, the same one twice.
    void show(const QString& text);

    /// The same, however little time has passed, and all of it: the last one.
    void showLast(const QString& text);

    /// Ends the line, so that something else can be printed.
    void finish();

private:
    void draw(const QString& text);
    void drawWhole(const QString& text);

    std::FILE* const m_stream;
    const bool m_isTerminal;
    const std::chrono::milliseconds m_quietTime;
    std::chrono::steady_clock::time_point m_next;
    QString m_printed; // the last one where there is no terminal
    int m_width = 0;   // characters on the terminal's line; 0: nothing is drawn
};

} // namespace Host
