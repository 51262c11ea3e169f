// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QString>

#include <cstdio>

namespace Host {

/// Reads a stream line by line beside an event loop, until it ends. Nobody else reads it meanwhile.
class CLineReader : public QObject
{
    Q_OBJECT

public:
    explicit CLineReader(std::FILE* stream);

Q_SIGNALS:
    /// A line without its end and without blanks around it; never an empty one.
    void lineRead(const QString& line);

private:
    void read();

    QSocketNotifier m_notifier;
    QByteArray m_rest; // a line that has not ended
};

} // namespace Host
