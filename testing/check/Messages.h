// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/testing/SReport.h>
#include <Halvex/testing/SRuleInfo.h>

#include <QJsonObject>
#include <QString>

namespace Plugin::Halvex::Testing {

/**
 * What a process that checks tells the one that started it, on standard output: a line of JSON each, behind the byte
 * that separates records, since what is checked may print there too.
 *
 *   {"rule": "ports-stay-the-same"}  this rule is tried next
 *   {"models": ["Blur", "Sum"]}      the plugin has registered these models
 *   {"report": {...}}                the check has come to its end
 *   {"error": "..."}                 nothing could be checked
 */
constexpr char recordSeparator = '\x1e';

/// A rule of models or plugins. Its texts come from here, not from the other process.
SRuleInfo ruleNamed(const QString& name);

/// Writes a line at once.
void sendMessage(const QJsonObject& message);

QJsonObject toJson(const SReport& report);
SReport reportFrom(const QJsonObject& json);

} // namespace Plugin::Halvex::Testing
