// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "testing/check/SArguments.h"

#include <Halvex/testing/SReport.h>

#include <QByteArray>
#include <QDeadlineTimer>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace Plugin::Halvex::Testing {

/// What a process that did a part of the check has told.
struct SChildResult
{
    QStringList models;
    SReport report;
    bool isDone = false; ///< It has told what it was started for: the models, or the report.
    bool hasHung = false;
    QString lastRule; ///< The one that was tried last.
    QString fault;    ///< Why it is not done, or how it ended nevertheless: "the process ended by signal 6 (Aborted)".
};

/**
 * This program, started once more to do a part of the check.
 *
 * \c run() returns when the process has ended, or was killed since it had tried one rule for longer than
 * SArguments::timeout. What the plugin prints goes to standard error.
 */
class CChildProcess
{
public:
    explicit CChildProcess(const SArguments& arguments)
        : m_arguments(arguments)
    {
    }

    SChildResult run(SArguments::ERole role, const QString& model = {}, const QStringList& skipped = {});

private:
    void readLines();
    void readMessage(const QByteArray& text);
    QString describeEnd() const;

    const SArguments& m_arguments;
    QProcess m_process;
    QDeadlineTimer m_deadline; // of the rule that is tried
    SChildResult m_result;
};

} // namespace Plugin::Halvex::Testing
