// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CheckFiles.h"

#include "host/base/InputFile.h"
#include "host/check/CDocumentCheck.h"
#include "host/check/FaultReport.h"

#include <algorithm>

namespace Host {

namespace {

SCheckedFile checkFile(const QString& name, CDocumentCheck& check)
{
    SCheckedFile checked{inputName(name), {}};
    QString error;
    const QByteArray text = readInput(name, &error);
    if (error.isEmpty())
        checked.faults = check.check(text);
    else
        checked.faults.push_back(
            {true, EFaultRule::Unreadable, 0, 0, {}, QStringLiteral("cannot read: %1").arg(error)});
    return checked;
}

int exitCodeOf(const SCheckedFile& file, bool isStrict)
{
    if (!file.faults.empty() && file.faults.front().rule == EFaultRule::Unreadable)
        return Refused;
    return file.errors() > 0 || (isStrict && file.warnings() > 0) ? Failed : Done;
}

QByteArray report(const std::vector<SCheckedFile>& files, const SReportOptions& options)
{
    switch (options.format) {
    case EReportFormat::Json:
        return faultJson(files);
    case EReportFormat::Sarif:
        return faultSarif(files, options.version);
    case EReportFormat::Text:
        break;
    }
    return faultText(files);
}

} // namespace

SCheckOutcome checkFiles(const QStringList& files, CDocumentCheck& check, const SReportOptions& options)
{
    SCheckOutcome outcome;
    std::vector<SCheckedFile> checked;
    for (const QString& file : files) {
        checked.push_back(checkFile(file, check));
        outcome.exitCode = std::max(outcome.exitCode, exitCodeOf(checked.back(), options.isStrict));
    }
    outcome.report = report(checked, options);
    return outcome;
}

} // namespace Host
