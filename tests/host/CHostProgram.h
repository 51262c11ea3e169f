// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <map>
#include <vector>

/// The program as a user runs it, with a folder of its own for what it writes.
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
        int pending = 0;
    };

    CHostProgram() = default;

    /// Ends a program that still runs.
    ~CHostProgram();
    Q_DISABLE_COPY(CHostProgram)

    /// Starts it with these arguments; a run writes into outputFolder() unless they say where.
    void start(QStringList arguments);

    /// False if it does not end in time, or crashed.
    bool waitForEnd();

    /// Starts it and waits for its end. The exit code, or -1 if it does not end in time or crashed.
    int exec(const QStringList& arguments);
    int run(const QStringList& arguments) { return exec(QStringList("run") + arguments); }

    /// Runs it for 100000 frames and sends it \a signal as soon as it counts some. The exit code, as exec() has it.
    int interrupt(const QStringList& arguments, int signal);

    /// Waits until it counts the frames of so many; false if it never does.
    bool waitForFramesOf(int all);

    /// Waits until its standard error has \a text; false if it never does.
    bool waitForError(const QString& text);

    /// What it says, without its name, when it refuses to run: several lines are joined. Text on standard output and
    /// an exit code other than 2 are told instead.
    QString refusal(const QStringList& arguments);

    /// In a folder that goes with this object.
    QString file(const QString& name) const { return m_folder.filePath(name); }
    QString outputFolder() const { return file(QStringLiteral("out")); }

    /// In the output folder.
    QString written(const QString& name) const { return outputFolder() + QLatin1Char('/') + name; }

    QProcess& process() { return m_process; }
    QString output() const { return m_output; }
    QStringList errorLines() const;

    /// What of the output is about that camera; what follows then reads nothing else. False when there is no such part.
    bool choose(const QString& camera);

    /// The number behind "complete" in the table's line of frames, or -1 when there is no line that adds up.
    int completeFrames() const { return frames(2); }
    int incompleteFrames() const { return frames(3); }
    double framesPerSecond() const;
    std::map<QString, SSink> sinks() const;
    std::vector<SDecoupler> decouplers() const;

    /// Whether the default chain lost nothing unaccounted for: every complete frame at the sink "frames" and in the
    /// decoupler's counts, and all that the decoupler emitted at the three sinks behind it.
    bool addsUp() const;

private:
    std::vector<QStringList> rows(const char* pattern) const;
    int frames(int column) const;

    QTemporaryDir m_folder;
    QProcess m_process;
    QString m_output;
    QString m_chosen;
    QString m_errors;
};
