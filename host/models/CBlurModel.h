// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/AImageFilterModel.h"

namespace Host {

/// Smooths with a Gaussian of 7 x 7 pixels, grey and colour alike.
class CBlurModel : public AImageFilterModel
{
    Q_OBJECT

public:
    static QString modelName();

    QString caption() override { return QStringLiteral("Blur"); }
    QString name() override { return modelName(); }

protected:
    Filter makeFilter() const override;
};

} // namespace Host
