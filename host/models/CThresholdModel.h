// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/AImageFilterModel.h"

namespace Host {

/// Black and white: 255 where the grey value is above the threshold that separates the image best, else 0 (Otsu).
class CThresholdModel : public AImageFilterModel
{
    Q_OBJECT

public:
    static QString modelName();

    QString caption() override { return QStringLiteral("Threshold"); }
    QString name() override { return modelName(); }

protected:
    Filter makeFilter() const override;
};

} // namespace Host
