// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "testing/check/SArguments.h"

#include <Halvex/testing/SReport.h>

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace Plugin::Halvex::Testing {

/// What a process that did a part of the check has told.
struct SChildResult
{
    QStringList models;
    SReport report;
    bool hasReport = false;
    bool hasHung = false;
    QString error;    ///< What it said that it could not do.
    QString lastRule; ///< The one that was tried last.
    QString ending;   ///< How it ended, if not as it should: "the process ended by signal 11 (Segmentation fault)".
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
    void describeEnd();

    const SArguments& m_arguments;
    QProcess m_process;
    SChildResult m_result;
};

} // namespace Plugin::Halvex::Testing
