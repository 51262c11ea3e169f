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

/// By reason: one that is lacking keeps several rules from being tried.
QString toText(const std::vector<SLeftOut>& leftOut)
{
    QStringList reasons;
    for (const SLeftOut& left : leftOut) {
        if (!reasons.contains(left.reason))
            reasons << left.reason;
    }
    QString text;
    for (const QString& reason : qAsConst(reasons)) {
        QStringList rules;
        for (const SLeftOut& left : leftOut) {
            if (left.reason == reason)
                rules << left.rule;
        }
        text += QStringLiteral("\nNot tried, since %1:\n  %2\n").arg(reason, rules.join(QStringLiteral("\n  ")));
    }
    return text;
}

QString tableRow(const QString& title, const QString& first, const QString& second, const QString& third)
{
    constexpr int titleWidth = 14;
    constexpr int width = 10;
    return title.leftJustified(titleWidth) + first.rightJustified(width) + second.rightJustified(width) +
           third.rightJustified(width) + QLatin1Char('\n');
}

QString toText(const std::vector<SCallTimes>& times)
{
    const auto microseconds = [](qint64 ns) { return QString::number(double(ns) / 1000.0, 'f', 1); };
    QString text = QLatin1Char('\n') + tableRow(QStringLiteral("Microseconds"), QStringLiteral("median"),
                                                QStringLiteral("99 %"), QStringLiteral("longest"));
    for (const SCallTimes& call : times)
        text += tableRow(QStringLiteral("  ") + call.call, microseconds(call.median), microseconds(call.percentile99),
                         microseconds(call.longest));
    return text;
}

} // namespace

QString toText(const SReport& report)
{
    QString text = headline(report);
    for (const SFinding& finding : report.findings)
        text += toText(finding);
    if (!report.findings.empty())
        text += QStringLiteral("\nThe pages are in the manual (package halvex-doc), below the folder where Halvex is "
                               "installed.\n");
    text += toText(report.leftOut);
    if (!report.times.empty())
        text += toText(report.times);
    return text;
}

} // namespace Plugin::Halvex::Testing
