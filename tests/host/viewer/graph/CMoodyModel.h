// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/CTestModel.h"

/// A model that thinks what the test says of itself.
class CMoodyModel : public CTestModel
{
public:
    using CTestModel::CTestModelOf;

    Plugin::Halvex::ENodeValidationState validationState() const override { return state; }
    QString validationMessage() const override { return message; }

    Plugin::Halvex::ENodeValidationState state = Plugin::Halvex::ENodeValidationState::Valid;
    QString message;
};
