// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/testing/SReport.h>

#include <QJsonObject>
#include <QString>

namespace Plugin::Halvex::Testing {

/**
 * What a process that checks tells the one that started it, on standard output: a line of JSON each, behind the byte
 * that separates records, since what is checked may print there too.
 *
 *   {"rule": "ports-stay-the-same"}  this rule is tried next
 *   {"model": "Blur"}                the plugin has registered this model
 *   {"report": {...}}                the check has come to its end
 *   {"error": "..."}                 nothing could be checked
 */
constexpr char recordSeparator = '\x1e';

/// Writes a line at once.
void sendMessage(const QJsonObject& message);

QJsonObject toJson(const SReport& report);
SReport reportFrom(const QJsonObject& json);

} // namespace Plugin::Halvex::Testing
