// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/sources/OpenSource.h"

#include <QLatin1String>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>
#include <vector>

namespace Host {

/// A setting of a model: that of every graph of the run whose nodes include such a one.
struct SNodeSetting
{
    QString node; ///< The label of a chain's element, the number in the graph's text, or a caption.
    QString key;
    QString value;

    /// Reads "NODE.key=value"; the node's name may have dots. Blanks around each do not count. What has no such form
    /// has an empty key.
    static SNodeSetting read(const QString& text);
    QString text() const { return QStringLiteral("%1.%2=%3").arg(node, key, value); }
};

/// What one run does. A plain value.
struct SRunOptions
{
    std::vector<SCameraOptions> cameras{SCameraOptions()}; ///< With the files at least one, each with its own name.
    std::vector<SFileOptions> files;                       ///< What stands in for cameras.
    int frames = 300;                                 ///< Complete frames of each camera, up to maxFrames; 0: no end.
    std::chrono::milliseconds duration{0};            ///< How long frames are grabbed; 0: no end.
    int writeEvery = 30;                              ///< Each sink writes every so many frames, at least 1.
    QString output = QStringLiteral("halvex-output"); ///< Folder for everything that is written.
    bool isKept = false;                              ///< In a folder of its own in that.
    QString plugins;                                  ///< Folder with plugins; empty for that of the program.
    QStringList chains; ///< To import, each for each camera; "-" is standard input; none for the default one.
    QString load;       ///< Scene document instead of a chain, for one camera, "-" for standard input; empty for none.
    QString save;       ///< File for the scene document of one camera, "-" for standard output; empty for none.
    QString json;       ///< File for the report, "-" for standard output instead of the table; empty for none.
    QString trace;      ///< File for a trace, "-" for standard output instead of the table; empty for none.
    std::vector<SNodeSetting> settings;
    std::optional<double> askedForPerSecond;  ///< The rate that was asked for and not only assumed.
    bool isStrict = false;                    ///< A remark in the report is a failure.
    std::chrono::milliseconds silence{5000};  ///< A camera without any frame for so long has gone.
    std::chrono::milliseconds timeout{10000}; ///< One that gives only incomplete frames for so long is of no use.

    /// Whether a document goes to standard output, which then has no table.
    bool hasStandardOutput() const { return documents().contains(QStringLiteral("-")); }

    static constexpr int maxFrames = 1000000000;

    /// The cameras, and then what stands in for some.
    std::vector<SourceOptions> sources() const;

    /// What is written beside the files of the run's folder, as it was asked for: scene, report, trace.
    QStringList documents() const { return {save, json, trace}; }

    /// Those of them that are no standard output.
    QStringList writtenFiles() const;

    /// The files that the run reads while frames stream, and those that it writes outside its folder.
    QStringList filesInUse() const;

    /// A file that is written to, and is read or written as something else, too; empty if there is none. A scene may be
    /// saved into the file that it was loaded from.
    QString sharedFile() const;

    /// Whether a document comes on standard input, which then takes no commands.
    bool readsStandardInput() const { return load == QLatin1String("-") || chains.contains(QStringLiteral("-")); }
};

} // namespace Host
