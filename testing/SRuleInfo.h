// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <vector>

namespace Plugin::Halvex::Testing {

/// What there is to say of a rule, whatever breaks it.
struct SRuleInfo
{
    QString name; ///< "ports-stay-the-same"
    QString why;  ///< Why there is such a rule.
    QString how;  ///< How to mend what breaks it.
};

/// The rules of checkModel(), checkData(), checkConverter() and checkPlugin(), in the order in which they are tried.
std::vector<SRuleInfo> modelRules();
std::vector<SRuleInfo> dataRules();
std::vector<SRuleInfo> converterRules();
std::vector<SRuleInfo> pluginRules();

} // namespace Plugin::Halvex::Testing
