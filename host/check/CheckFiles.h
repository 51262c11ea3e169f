// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/base/EExitCode.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace Host {

class CDocumentCheck;

enum class EReportFormat
{
    Text,
    Json,
    Sarif
};

/// How a check tells what it found. A plain value.
struct SReportOptions
{
    EReportFormat format = EReportFormat::Text;
    bool isStrict = false; ///< Warnings count as errors for the exit code.
    QString version;       ///< The program's, for SARIF.
};

/// What came of a check. A plain value.
struct SCheckOutcome
{
    QByteArray report;   ///< To be printed.
    int exitCode = Done; ///< Failed with errors, Refused when a file cannot be read.
};

/// Checks the documents in these files, each at most 64 MiB; "-" is standard input. A file that cannot be read is told
/// in the report as well.
SCheckOutcome checkFiles(const QStringList& files, CDocumentCheck& check, const SReportOptions& options = {});

} // namespace Host
