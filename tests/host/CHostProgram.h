// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

#include <map>
#include <vector>

/// The program as a user runs it.
class CHostProgram
{
public:
    /// How many images a sink says that it got and how many files it wrote, by its name.
    struct SSink
    {
        int delivered = 0;
        int written = 0;
    };

    /// What a decoupler's row says.
    struct SDecoupler
    {
        int received = 0;
        int emitted = 0;
        int dropped = 0;
        int cancelled = 0;
        int pending = 0;
    };

    CHostProgram() = default;

    /// Ends a program that still runs.
    ~CHostProgram();
    Q_DISABLE_COPY(CHostProgram)

    void start(const QStringList& arguments);

    /// Reads what the program printed on standard error up to now, without waiting for long.
    QString errorsUpToNow();

    /// False if it does not end in time, or crashed.
    bool waitForEnd();

    /// Starts it and waits for its end.
    bool run(const QStringList& arguments);

    QProcess& process() { return m_process; }
    int exitCode() const { return m_process.exitCode(); }
    QString output() const { return m_output; }
    QStringList errorLines() const;

    /// What of the output is about that camera; what follows then reads nothing else. False when there is no such part.
    bool choose(const QString& camera);

    /// The number behind "complete" in the table's line of frames, or -1 when there is no line that adds up.
    int completeFrames() const;
    int incompleteFrames() const;
    double framesPerSecond() const;
    std::map<QString, SSink> sinks() const;
    std::vector<SDecoupler> decouplers() const;

    /// Whether the default chain lost nothing unaccounted for: every complete frame at the sink "frames" and in the
    /// decoupler's counts, and all that the decoupler emitted at the three sinks behind it.
    bool addsUp() const;

private:
    QString table() const { return m_chosen.isEmpty() ? m_output : m_chosen; }
    QStringList frameLine() const;

    QProcess m_process;
    QString m_output;
    QString m_chosen;
    QString m_errors;
};
