// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CGrabResultConverter.h"

#include "host/models/CImageData.h"
#include "host/models/FrameInfo.h"

#include <Halvex/service/CVeltraGrabResultData.h>

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <iterator>

namespace Host {

namespace {

constexpr int noCode = -1;

// How one pixel format becomes an image: what its memory is, and then either a colour conversion or none.
struct SRecipe
{
    const char* pixelFormat;
    int matType;
    int colorCode;
    int bits; // of a value, from the lowest one up
};

const SRecipe recipes[] = {
    {"Mono8", CV_8UC1, noCode, 8},
    {"Mono10", CV_16UC1, noCode, 10},
    {"Mono12", CV_16UC1, noCode, 12},
    {"Mono14", CV_16UC1, noCode, 14},
    {"Mono16", CV_16UC1, noCode, 16},
    {"BGR8", CV_8UC3, noCode, 8},
    {"BGR16", CV_16UC3, noCode, 16},
    {"RGB8", CV_8UC3, cv::COLOR_RGB2BGR, 8},
    {"BayerRG8", CV_8UC1, cv::COLOR_BayerRGGB2BGR, 8},
    {"BayerGR8", CV_8UC1, cv::COLOR_BayerGRBG2BGR, 8},
    {"BayerGB8", CV_8UC1, cv::COLOR_BayerGBRG2BGR, 8},
    {"BayerBG8", CV_8UC1, cv::COLOR_BayerBGGR2BGR, 8},
};

const SRecipe* findRecipe(const QString& pixelFormat)
{
    const auto* found = std::find_if(std::begin(recipes), std::end(recipes), [&](const SRecipe& recipe) {
        return pixelFormat == QLatin1String(recipe.pixelFormat);
    });
    return found == std::end(recipes) ? nullptr : found;
}

// The frame's pixels as a matrix over the same memory. cv::Mat has no form for memory that is only read; it is
// read only from here on, which CImageData promises.
cv::Mat view(const Veltra::SGrabResult& frame, int matType)
{
    return cv::Mat(frame.height, frame.width, matType, const_cast<std::byte*>(frame.pixels), std::size_t(frame.stride));
}

} // namespace

bool CGrabResultConverter::supports(const QString& pixelFormat)
{
    return findRecipe(pixelFormat) != nullptr;
}

Plugin::Halvex::CNodeDataPtr CGrabResultConverter::operator()(const Plugin::Halvex::CNodeDataPtr& data) const
{
    const auto grab = data.dynamicCast<Plugin::Halvex::CVeltraGrabResultData>();
    if (!grab || !grab->grabResult())
        return {};
    const Veltra::SGrabResult& frame = *grab->grabResult();
    const SRecipe* recipe = findRecipe(frame.pixelFormat);
    if (!recipe)
        return {};
    // Rows must begin at whole values.
    if (std::size_t(frame.stride) % CV_ELEM_SIZE1(recipe->matType) != 0)
        return {};

    SFrameInfo info = frameInfo(*grab);
    info.bits = recipe->bits;
    const int shift = 8 * CV_ELEM_SIZE1(recipe->matType) - recipe->bits;
    const cv::Mat pixels = view(frame, recipe->matType);
    cv::Mat image;
    if (recipe->colorCode != noCode)
        cv::cvtColor(pixels, image, recipe->colorCode);
    else if (shift > 0)
        pixels.convertTo(image, recipe->matType, double(1 << shift));
    else
        return QSharedPointer<CImageData>::create(pixels, info, grab->grabResult());
    return QSharedPointer<CImageData>::create(image, info);
}

} // namespace Host
