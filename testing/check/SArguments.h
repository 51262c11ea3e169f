// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>
#include <QStringList>

#include <chrono>

namespace Plugin::Halvex::Testing {

/// What halvex-check was told to do.
struct SArguments
{
    /// What this process does: all, by starting others; or, as one of these, a part.
    enum class ERole
    {
        Parent,
        ListRules,
        ListModels,
        CheckPlugin,
        CheckModel
    };

    ERole role = ERole::Parent;
    QString file;
    QStringList companions;
    QStringList models; ///< Empty: all.
    QStringList skip;
    int instances = 1000;
    std::chrono::microseconds longestCall{0};
    std::chrono::seconds timeout{60};
    bool withTimes = false;

    /// From the command line of this process. Ends the process after --help and --version, and with code 2 when there
    /// is a mistake.
    static SArguments parse();

    /// The command line of a process that does a part: its role, and the model if there is one.
    QStringList forChild(ERole role, const QString& model, const QStringList& skipped) const;
};

} // namespace Plugin::Halvex::Testing
