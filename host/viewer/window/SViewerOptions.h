// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>
#include <QStringList>

#include <chrono>

class QCommandLineParser;

namespace Host {

/// What the viewer is started with. A plain value.
struct SViewerOptions
{
    QStringList cameras;                   ///< To connect and start.
    QStringList chains;                    ///< Files, each for every camera.
    QString scene;                         ///< A file, for the first camera; empty for none.
    QString plugins;                       ///< Their folder; empty for the program's own.
    QString language;                      ///< One of CLanguage::codes(); empty for the one that is remembered.
    QString colors;                        ///< "light" or "dark"; empty for those that are remembered.
    QString screenshot;                    ///< A file; the program ends when it is written. Empty for none.
    std::chrono::milliseconds duration{0}; ///< How long the program runs; 0 for as long as its window is there.
    bool remembers = true;                 ///< Whether it reads and writes what is remembered of other starts.

    /// Adds the options to \a parser, with their help.
    static void declare(QCommandLineParser* parser);

    /// What \a parser has read. The first thing that makes no sense, in one line, goes to \a error.
    static SViewerOptions read(const QCommandLineParser& parser, QString* error);
};

} // namespace Host
