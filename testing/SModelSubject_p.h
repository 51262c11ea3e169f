// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "testing/SRule_p.h"

#include <Halvex/scene/CNodeDataModelRegistry.h>
#include <Halvex/testing/SCheckOptions.h>
#include <Halvex/testing/SReport.h>

namespace Plugin::Halvex::Testing {

/// A kind of model, and what is known of it.
struct SModelSubject
{
    const ModelCreator& creator;
    const SCheckOptions& options;
    std::vector<SCallTimes>* times; ///< Where a rule enters what it measured.
};

/// What a report calls the model of that name.
inline QString subjectNamed(const QString& name)
{
    return name.isEmpty() ? QStringLiteral("A model without a name") : name;
}

/// All rules of models.
const std::vector<SRule<SModelSubject>>& modelRuleTable();

} // namespace Plugin::Halvex::Testing
