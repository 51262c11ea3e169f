// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "testing/SOutcome_p.h"
#include "testing/Thrown_p.h"
#include <Halvex/testing/SCheckOptions.h>
#include <Halvex/testing/SReport.h>
#include <Halvex/testing/SRuleInfo.h>

#include <vector>

namespace Plugin::Halvex::Testing {

/// One rule: its texts, and the function that tries it. A \a Subject is what is checked, with its options.
template <typename Subject>
struct SRule
{
    const char* name;
    const char* why;
    const char* how;
    SOutcome (*check)(const Subject& subject);
    bool isBasic = false; ///< Nothing else can be tried if it is broken.
};

template <typename Subject>
std::vector<SRuleInfo> infosOf(const std::vector<SRule<Subject>>& rules)
{
    std::vector<SRuleInfo> infos;
    for (const auto& rule : rules)
        infos.push_back({QString::fromUtf8(rule.name), QString::fromUtf8(rule.why), QString::fromUtf8(rule.how)});
    return infos;
}

/// A finding for a rule.
SFinding makeFinding(const SRuleInfo& rule, const QString& seen);

/// Enters what became of a rule. Returns whether the ones behind it can be tried.
bool enterOutcome(const SRuleInfo& rule, const SOutcome& outcome, bool isBasic, SReport* report);

/// Enters that a rule could not be tried because of what was \a thrown, in the words of thrownBy(). That is a finding
/// unless one before has told of it. Returns as enterOutcome() does.
bool enterThrown(SRuleInfo rule, const QString& thrown, bool isBasic, SReport* report);

/// Enters that the rules behind \a basic are not tried.
void leaveOutTheRest(const SRuleInfo& basic, SReport* report);

/// Tries the rules, one after the other.
template <typename Subject>
void tryRules(const std::vector<SRule<Subject>>& rules, const Subject& subject, SReport* report)
{
    const std::vector<SRuleInfo> infos = infosOf(rules);
    for (std::size_t i = 0; i < rules.size(); ++i) {
        if (subject.options.skip.contains(infos[i].name)) {
            if (!rules[i].isBasic)
                continue;
            leaveOutTheRest(infos[i], report);
            return;
        }
        if (subject.options.beforeRule)
            subject.options.beforeRule(infos[i].name);
        SOutcome outcome;
        const QString thrown = thrownBy([&] { outcome = rules[i].check(subject); });
        const bool goesOn = thrown.isEmpty() ? enterOutcome(infos[i], outcome, rules[i].isBasic, report)
                                             : enterThrown(infos[i], thrown, rules[i].isBasic, report);
        if (!goesOn)
            return;
    }
}

} // namespace Plugin::Halvex::Testing
