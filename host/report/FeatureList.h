// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/CFeatures.h"

#include <QJsonArray>
#include <QString>

#include <vector>

namespace Host {

/// A line for each feature, below its category; what it takes goes below it when it finds no room beside it.
QString featureText(const std::vector<SFeature>& features, int width, bool isBold = false);

/// The same for programs.
QJsonArray featureJson(const std::vector<SFeature>& features);

} // namespace Host
