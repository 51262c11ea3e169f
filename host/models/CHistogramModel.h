// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/AImageFilterModel.h"

namespace Host {

/// Draws a chart of how often each value occurs in each channel, see histogramChart().
class CHistogramModel : public AImageFilterModel
{
    Q_OBJECT

public:
    static QString modelName();

    QString caption() override { return QStringLiteral("Histogram"); }
    QString name() override { return modelName(); }

protected:
    Filter makeFilter() const override;
};

} // namespace Host
