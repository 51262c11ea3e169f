// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/scene/CNodeDataModelRegistry.h>
#include <Halvex/testing/SCheckOptions.h>
#include <Halvex/testing/SReport.h>

namespace Plugin::Halvex::Testing {

/**
 * Takes models that \a creator makes through what a graph will do to them, and tells which rules of the contract they
 * break.
 *
 * \code
 * const SReport report = checkModel([] { return std::make_unique<CBlurModel>(); }, options);
 * if (!report.findings.empty())
 *     qWarning("%s", qPrintable(toText(report)));
 * \endcode
 *
 * Each rule gets models of its own. A model that crashes takes the process with it: the program halvex-check checks
 * each model in a process of its own, and tells the rule in which it ended.
 *
 * Threads: the one that is to be the graph's, which has an event loop: a QCoreApplication must be there. Events of the
 * thread are delivered meanwhile. Errors: nothing that a model throws comes out.
 */
SReport checkModel(const ModelCreator& creator, const SCheckOptions& options = {});

} // namespace Plugin::Halvex::Testing
