// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/check/SFault.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace Host {

/// The faults of one document. A plain value.
struct SCheckedFile
{
    QString file; ///< As it is told.
    std::vector<SFault> faults;

    int errors() const;
    int warnings() const;
};

/// As compilers write it: "chain.json:3:14: error: $[2].name: no element is named 'blurr'". Without an end of line; a
/// long path is cut.
QString faultLine(const QString& file, const SFault& fault);

/// What a run says when it refuses the document: the lines of its errors. Empty if it has none.
QStringList errorLines(const SCheckedFile& file);

/// A line for each fault, and one for each file that says how many there are.
QByteArray faultText(const std::vector<SCheckedFile>& files);

/// One JSON object: "files", each with its "file", "errors", "warnings" and "faults", and the sums.
QByteArray faultJson(const std::vector<SCheckedFile>& files);

/// SARIF 2.1.0, which editors and code hosts read. \a version: the program's.
QByteArray faultSarif(const std::vector<SCheckedFile>& files, const QString& version);

} // namespace Host
