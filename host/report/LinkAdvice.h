// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <vector>

namespace Host {

struct SLinkReport;

/// Something to change, and the command that does it.
struct SLinkAdvice
{
    QString reason; ///< What was measured, in whole sentences.
    QString command;
};

/// What to change, the most likely first; nothing when every frame came whole.
std::vector<SLinkAdvice> linkAdvice(const SLinkReport& report);

} // namespace Host
