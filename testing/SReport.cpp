// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/testing/SReport.h>

#include <QStringList>

namespace Plugin::Halvex::Testing {

namespace {

QString counted(std::size_t count, const QString& noun)
{
    return QStringLiteral("%1 %2%3").arg(count).arg(noun, count == 1 ? QString() : QStringLiteral("s"));
}

QString headline(const SReport& report)
{
    const std::size_t broken = report.findings.size();
    if (broken == 0)
        return QStringLiteral("%1 keeps %2.\n")
            .arg(report.subject, counted(std::size_t(report.kept), QStringLiteral("rule")));
    return QStringLiteral("%1 breaks %2:\n").arg(report.subject, counted(broken, QStringLiteral("rule")));
}

QString toText(const SFinding& finding)
{
    return QStringLiteral("\n%1\n  seen  %2\n  why   %3\n  mend  %4\n  page  %5\n")
        .arg(finding.rule, finding.seen, finding.why, finding.how, finding.page);
}

QString toText(const SCallTimes& times)
{
    const auto microseconds = [](qint64 ns) { return QString::number(double(ns) / 1000.0, 'f', 1).rightJustified(10); };
    return QStringLiteral("  %1%2%3%4\n")
        .arg(times.call.leftJustified(12), microseconds(times.median), microseconds(times.percentile99),
             microseconds(times.longest));
}

} // namespace

QString toText(const SReport& report)
{
    QString text = headline(report);
    for (const SFinding& finding : report.findings)
        text += toText(finding);
    if (!report.leftOut.empty())
        text += QStringLiteral("\nNot tried:\n");
    for (const SLeftOut& left : report.leftOut)
        text += QStringLiteral("  %1: %2\n").arg(left.rule, left.reason);
    if (!report.times.empty())
        text += QStringLiteral("\nMicroseconds    median      99 %   longest\n");
    for (const SCallTimes& times : report.times)
        text += toText(times);
    return text;
}

} // namespace Plugin::Halvex::Testing
