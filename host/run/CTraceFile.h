// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QFile>
#include <QString>

#include <chrono>
#include <map>
#include <utility>

namespace Host {

/**
 * Writes a trace in the JSON format of Chrome's trace events, which Perfetto opens: processes with rows, on which there
 * are slices of time, and flows, which lead from slice to slice.
 *
 * \code
 * CTraceFile trace(QStringLiteral("trace.json"));
 * const QString error = trace.open();
 * trace.addRow({1, 0}, QStringLiteral("graph"));
 * trace.addSlice({1, 0}, QByteArrayLiteral("frame 17"), begin, end);
 * return trace.close();
 * \endcode
 *
 * Events go to the file as they come and are not kept. The trace of a program that was killed can be opened up to
 * there. The slices of a row are within each other or one behind the other.
 *
 * Functions that may fail return the reason in one line; empty on success. What is added before open(), after close()
 * or after a failure is let go. Threads: one.
 */
class CTraceFile
{
public:
    using Time = std::chrono::steady_clock::time_point;

    struct SRow
    {
        int process = 0;
        int row = 0;
        bool operator<(const SRow& other) const
        {
            return std::make_pair(process, row) < std::make_pair(other.process, other.row);
        }
    };

    enum class EFlow : char
    {
        Start = 's',
        Step = 't',
        End = 'f'
    };

    /// "-" is standard output.
    explicit CTraceFile(const QString& file);

    QString open();

    /// Ends the slices that are still open. Tells of the first failure since open().
    QString close();

    void addProcess(int process, const QString& name);
    void addRow(SRow row, const QString& name);

    /// \a name must need no escapes in JSON, see quoted().
    void addSlice(SRow row, const QByteArray& name, Time begin, Time end);
    void beginSlice(SRow row, const QByteArray& name, Time time);
    void endSlice(SRow row, Time time);

    /// Leads on the flow that \a category, \a name and \a id have in common, at the slice of the row at that time.
    void addFlow(EFlow step, SRow row, Time time, const QByteArray& category, const QByteArray& name, quint64 id);

    /// \a text as it stands between quotes in JSON.
    static QByteArray quoted(const QString& text);

private:
    void write(const QByteArray& event);
    void writeName(const char* what, SRow row, const QString& name);
    QByteArray head(char phase, SRow row, Time time) const;
    QString failure() const;

    const QString m_name;
    QFile m_file;
    const Time m_start = std::chrono::steady_clock::now();
    std::map<SRow, int> m_open; // slices that have no end yet
    bool m_isFirst = true;
    QString m_error;
};

} // namespace Host
