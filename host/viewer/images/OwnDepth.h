// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/CImageData.h"

#include <QPoint>

#include <vector>

namespace Host {

/// How many bits a value of \a image has for people: 12 for an image of a Mono12 camera, though the image has 16.
int ownBits(const CImageData& image);

/// By what a value of \a image is divided to be one of so many bits: 16 for Mono12.
double ownScale(const CImageData& image);

/// The values of one pixel with so many bits, in the order of the channels; none outside of the image.
std::vector<int> ownValues(const CImageData& image, const QPoint& pixel);

} // namespace Host
