// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/AImageFilterModel.h"

namespace Host {

/// Draws how often each grey value occurs: 256 columns, one per value, the most frequent one 128 pixels high.
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
