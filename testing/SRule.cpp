// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "testing/SRule_p.h"

#include <algorithm>

namespace Plugin::Halvex::Testing {

namespace {

/// Whether a finding has told of what was \a thrown. Exceptions are known by their texts: one without may be another.
bool isTold(const QString& thrown, const SReport& report)
{
    return thrown != textlessThrown() &&
           std::any_of(report.findings.begin(), report.findings.end(),
                       [&thrown](const SFinding& finding) { return finding.seen.contains(thrown); });
}

} // namespace

SFinding makeFinding(const SRuleInfo& rule, const QString& seen)
{
    return {rule.name, seen, rule.why, rule.how,
            QStringLiteral("share/doc/halvex/manual/docs/model-contract.html#%1").arg(rule.name)};
}

bool enterOutcome(const SRuleInfo& rule, const SOutcome& outcome, bool isBasic, SReport* report)
{
    switch (outcome.kind) {
    case SOutcome::EKind::Kept:
        ++report->kept;
        return true;
    case SOutcome::EKind::LeftOut:
        report->leftOut.push_back({rule.name, outcome.text});
        return true;
    case SOutcome::EKind::Broken:
        report->findings.push_back(makeFinding(rule, outcome.text));
        break;
    }
    if (isBasic)
        leaveOutTheRest(rule, report);
    return !isBasic;
}

bool enterThrown(SRuleInfo rule, const QString& thrown, bool isBasic, SReport* report)
{
    const QString seen = QStringLiteral("what had to be done for it %1").arg(thrown);
    if (isTold(thrown, *report))
        return enterOutcome(rule, leftOut(seen), isBasic, report);
    rule.why = QStringLiteral("Hosts and the graph expect no exception from anything that they call.");
    rule.how = QStringLiteral("Find the call that throws, and catch there what can fail.");
    return enterOutcome(rule, broken(seen), isBasic, report);
}

void leaveOutTheRest(const SRuleInfo& basic, SReport* report)
{
    report->leftOut.push_back({QStringLiteral("all rules behind it"), QStringLiteral("they need %1").arg(basic.name)});
}

} // namespace Plugin::Halvex::Testing
