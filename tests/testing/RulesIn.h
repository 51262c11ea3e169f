// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/testing/SReport.h>

#include <QStringList>

/// The rules that \a report says were broken, finding by finding.
inline QStringList rulesIn(const Plugin::Halvex::Testing::SReport& report)
{
    QStringList rules;
    for (const Plugin::Halvex::Testing::SFinding& finding : report.findings)
        rules << finding.rule;
    return rules;
}
