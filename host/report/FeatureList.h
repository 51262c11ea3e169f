// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/CFeatures.h"

#include <QJsonArray>
#include <QString>

#include <vector>

namespace Host {

/// The features below their categories, in three columns: name, value, and what it takes, which goes below the others
/// when it finds no room beside them.
QString featureText(const std::vector<SFeature>& features, int width, bool isBold = false);

/// The same for programs.
QJsonArray featureJson(const std::vector<SFeature>& features);

} // namespace Host
