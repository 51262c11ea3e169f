// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <vector>

namespace Plugin::Halvex::Testing {

/// One rule of the contract that was broken.
struct SFinding
{
    QString rule; ///< "ports-stay-the-same". Names of rules do not change.
    QString seen; ///< What happened, with the numbers and texts of this very case.
    QString why;  ///< Why the rule exists.
    QString how;  ///< How to mend it.
    QString page; ///< The manual's paragraph on the rule, below the folder that Halvex is installed in.
};

/// A rule that could not be tried, or not wholly.
struct SLeftOut
{
    QString rule;   ///< Its name, as in SFinding.
    QString reason; ///< What was missing.
};

/// How long the calls of one operation took, in nanoseconds.
struct SCallTimes
{
    QString call;            ///< "setInData"
    qint64 median = 0;       ///< Half of the calls took no longer.
    qint64 percentile99 = 0; ///< 99 of 100 took no longer.
    qint64 longest = 0;      ///< The one that took longest.
};

/**
 * What a check has found. A plain value.
 *
 * \code
 * const SReport report = checkModel([] { return std::make_unique<CBlurModel>(); });
 * if (!report.findings.empty())
 *     qFatal("%s", qPrintable(toText(report)));
 * \endcode
 *
 * In Qt Test that is QFAIL() instead of qFatal(); QVERIFY2() would cut the text off. In GoogleTest it is
 * `EXPECT_TRUE(report.findings.empty()) << toText(report).toStdString()`.
 */
struct SReport
{
    QString subject;                ///< What was checked: a model's name, a data type's id, a plugin's file.
    int kept = 0;                   ///< How many rules were tried and kept.
    std::vector<SFinding> findings; ///< One for each broken rule, in the order of the rules.
    std::vector<SLeftOut> leftOut;  ///< Rules that were not tried, or not wholly.
    std::vector<SCallTimes> times;  ///< Of models alone.
};

/// The report for people: each finding with what was seen, why, how and where to read on, then what was left out, then
/// the times. Ends with a line feed.
QString toText(const SReport& report);

} // namespace Plugin::Halvex::Testing
