// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CHistogramModel.h"

#include "host/models/HistogramChart.h"

namespace Host {

QString CHistogramModel::modelName()
{
    return QString::fromLatin1("Histogram");
}

AImageFilterModel::Filter CHistogramModel::makeFilter() const
{
    return &histogramChart;
}

} // namespace Host
