// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/scene/CNodeDataModelRegistry.h>
#include <Halvex/testing/SCheckOptions.h>

#include <vector>

/// A model that breaks one rule, on purpose.
struct SWrongModel
{
    const char* name = ""; ///< Of its report in golden/.
    const char* rule = ""; ///< The one that it breaks.
    Plugin::Halvex::ModelCreator creator;
    Plugin::Halvex::Testing::SCheckOptions options; ///< numberOptions(), unless this one needs others.
};

std::vector<SWrongModel> wrongModels();
