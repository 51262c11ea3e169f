// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <opencv2/core.hpp>

#include <QImage>

namespace Host {

/// How grey values are coloured. A colour image is shown by its brightness, unless it is Plain.
enum class EPalette
{
    Plain,    ///< As it is.
    Heat,     ///< From black over red to yellow.
    Spectrum, ///< From blue over green to red.
    Limits    ///< Grey; what is black is blue, and what is white is red.
};

/// The values that are shown as black and as white, as the image has them; white is above black. A plain value.
struct SValueRange
{
    double black = 0.0;
    double white = 255.0;

    bool operator==(const SValueRange& other) const { return black == other.black && white == other.white; }
};

/// All values that \a image can have.
SValueRange fullRange(const cv::Mat& image);

/// From the value that 1 of 1000 values of \a image do not reach to the one that as many go beyond.
SValueRange usedRange(const cv::Mat& image);

/// \a image (8 or 16 bits, grey or colour, not empty) for the screen: Format_RGB32. Threads: any.
QImage colorImage(const cv::Mat& image, const SValueRange& range, EPalette palette);

} // namespace Host
