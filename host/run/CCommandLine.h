// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/run/SRunOptions.h"

#include <QString>
#include <QStringList>

class QCommandLineParser;

namespace Host {

/// The program's arguments, read and checked. Reads nothing but the list it is given.
class CCommandLine
{
public:
    enum class EAction
    {
        Run,     ///< Do options().
        Compare, ///< Compare the two files of files().
        Print,   ///< Print text() on standard output and succeed.
        Refuse   ///< Print text(), one line, on standard error and fail.
    };

    /// \a arguments: the program's name first.
    explicit CCommandLine(const QStringList& arguments);

    EAction action() const { return m_action; }
    const SRunOptions& options() const { return m_options; }
    QStringList files() const { return m_files; }
    QString text() const { return m_text; }

private:
    void readCommand(const QCommandLineParser& parser);
    void readCompare(const QCommandLineParser& parser);
    void readRun(const QStringList& words);
    void readOptions(const QCommandLineParser& parser);
    void readCameras(const QStringList& addresses, const SCameraOptions& common);
    double readRate(const QString& text);
    void refuse(const QString& reason);

    EAction m_action = EAction::Run;
    SRunOptions m_options;
    QStringList m_files;
    QString m_text;
};

} // namespace Host
