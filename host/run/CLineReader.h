// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QString>

#include <cstdio>

namespace Host {

/**
 * Reads a stream line by line beside an event loop, until it ends. Nobody else reads it meanwhile.
 *
 * \code
 * CLineReader reader(stdin);
 * connect(&reader, &CLineReader::lineRead, this, &CRun::obey);
 * \endcode
 *
 * The last line need not end. A terminal that another process is in front of is not read.
 *
 * Threads: one.
 */
class CLineReader : public QObject
{
    Q_OBJECT

public:
    static constexpr int mostBytes = 64 * 1024; ///< Of a line.

    explicit CLineReader(std::FILE* stream);

Q_SIGNALS:
    /// A line without its end and without blanks around it; never an empty one.
    void lineRead(const QString& line);

    /// A line has more than mostBytes and is left out; \a beginning is what was read of it. It may not have ended yet.
    void lineLeftOut(const QString& beginning);

private:
    void read();
    void takeLines();
    void takeLine(const QByteArray& bytes);

    QSocketNotifier m_notifier;
    QByteArray m_rest;        // a line that has not ended
    bool m_isSkipped = false; // the rest of a line that is too long
};

} // namespace Host
