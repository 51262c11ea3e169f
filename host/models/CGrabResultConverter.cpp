// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CGrabResultConverter.h"

#include "host/models/CImageData.h"
#include "host/models/FrameInfo.h"

#include <Halvex/service/CVeltraGrabResultData.h>

#include <opencv2/imgproc.hpp>

#include <QHash>

#include <cstddef>
#include <optional>

namespace Host {

namespace {

constexpr int noCode = -1;

struct SColors
{
    const char* name;
    int channels;
    int code; // of the conversion to BGR
};

const SColors knownColors[] = {
    {"Mono", 1, noCode},
    {"BGR", 3, noCode},
    {"RGB", 3, cv::COLOR_RGB2BGR},
    {"BayerRG", 1, cv::COLOR_BayerRGGB2BGR},
    {"BayerGR", 1, cv::COLOR_BayerGRBG2BGR},
    {"BayerGB", 1, cv::COLOR_BayerGBRG2BGR},
    {"BayerBG", 1, cv::COLOR_BayerBGGR2BGR},
};

enum class EPacking
{
    None, // a value has whole bytes, the lowest first
    Pfnc, // "p": one value behind the other, the lowest bits first
    GigE, // "Packed": two values in three bytes, the lowest bits of both in the middle one
};

// How one pixel format becomes an image.
struct SRecipe
{
    int matType; // of the image before its colours are converted
    int colorCode;
    int bits; // of a value
    EPacking packing;
};

// By GenICam's names, such as "BayerRG12Packed".
QHash<QString, SRecipe> makeRecipes()
{
    QHash<QString, SRecipe> recipes;
    for (const SColors& colors : knownColors) {
        for (const int bits : {8, 10, 12, 14, 16}) {
            const QString name = QLatin1String(colors.name) + QString::number(bits);
            const int matType = CV_MAKETYPE(bits > 8 ? CV_16U : CV_8U, colors.channels);
            recipes.insert(name, {matType, colors.code, bits, EPacking::None});
            if (colors.channels > 1 || (bits != 10 && bits != 12))
                continue;
            recipes.insert(name + QStringLiteral("p"), {matType, colors.code, bits, EPacking::Pfnc});
            recipes.insert(name + QStringLiteral("Packed"), {matType, colors.code, bits, EPacking::GigE});
        }
    }
    return recipes;
}

std::optional<SRecipe> findRecipe(const QString& pixelFormat)
{
    static const QHash<QString, SRecipe> recipes = makeRecipes();
    const auto found = recipes.find(pixelFormat);
    return found == recipes.end() ? std::nullopt : std::make_optional(*found);
}

// Whether its memory holds what is read of it. What came from another plugin may say anything.
bool isWhole(const Veltra::SGrabResult& frame, const SRecipe& recipe)
{
    if (!frame.pixels || frame.width <= 0 || frame.height <= 0)
        return false;
    const int packedBits = recipe.packing == EPacking::GigE ? 12 : recipe.bits;
    const qint64 bits = recipe.packing == EPacking::None ? 8 * qint64(CV_ELEM_SIZE(recipe.matType)) : packedBits;
    const qint64 rowBytes = (frame.width * bits + 7) / 8;
    return frame.stride >= rowBytes &&
           quint64(frame.size) >= quint64(frame.stride) * quint64(frame.height - 1) + quint64(rowBytes);
}

// The frame's pixels as a matrix over the same memory. cv::Mat has no form for memory that is only read; it is
// read only from here on, which CImageData promises.
cv::Mat view(const Veltra::SGrabResult& frame, int matType)
{
    return cv::Mat(frame.height, frame.width, matType, const_cast<std::byte*>(frame.pixels), std::size_t(frame.stride));
}

ushort pfncValue(const uchar* row, int x, int bits)
{
    const int bit = x * bits;
    const int bytes = row[bit / 8] | row[bit / 8 + 1] << 8;
    return ushort(bytes >> bit % 8 & ((1 << bits) - 1));
}

ushort gigEValue(const uchar* row, int x, int bits)
{
    const uchar* const pair = row + std::ptrdiff_t(x / 2) * 3;
    const bool isFirst = x % 2 == 0;
    const int lowBits = bits - 8;
    const int low = (isFirst ? pair[1] : pair[1] >> 4) & ((1 << lowBits) - 1);
    return ushort((isFirst ? pair[0] : pair[2]) << lowBits | low);
}

cv::Mat unpacked(const Veltra::SGrabResult& frame, const SRecipe& recipe)
{
    cv::Mat values(frame.height, frame.width, recipe.matType);
    const auto valueAt = recipe.packing == EPacking::Pfnc ? &pfncValue : &gigEValue;
    for (int y = 0; y < frame.height; ++y) {
        const auto* const row = reinterpret_cast<const uchar*>(frame.pixels) + std::ptrdiff_t(y) * frame.stride;
        auto* const out = values.ptr<ushort>(y);
        for (int x = 0; x < frame.width; ++x)
            out[x] = valueAt(row, x, recipe.bits);
    }
    return values;
}

} // namespace

bool CGrabResultConverter::supports(const QString& pixelFormat)
{
    return findRecipe(pixelFormat).has_value();
}

Plugin::Halvex::CNodeDataPtr CGrabResultConverter::operator()(const Plugin::Halvex::CNodeDataPtr& data) const
{
    const auto grab = data.dynamicCast<Plugin::Halvex::CVeltraGrabResultData>();
    if (!grab || !grab->grabResult())
        return {};
    const Veltra::SGrabResult& frame = *grab->grabResult();
    const std::optional<SRecipe> recipe = findRecipe(frame.pixelFormat);
    if (!recipe)
        return {};
    if (!isWhole(frame, *recipe))
        return {};
    const bool isPacked = recipe->packing != EPacking::None;
    // Rows must begin at whole values.
    if (!isPacked && std::size_t(frame.stride) % CV_ELEM_SIZE1(recipe->matType) != 0)
        return {};

    SFrameInfo info = frameInfo(*grab);
    info.bits = recipe->bits;
    const int shift = 8 * CV_ELEM_SIZE1(recipe->matType) - recipe->bits;
    const cv::Mat values = isPacked ? unpacked(frame, *recipe) : view(frame, recipe->matType);
    if (!isPacked && shift == 0 && recipe->colorCode == noCode)
        return QSharedPointer<CImageData>::create(values, info, grab->grabResult());

    // Each step has memory of its own: others read the frame's.
    cv::Mat shifted;
    if (shift > 0)
        values.convertTo(shifted, recipe->matType, double(1 << shift));
    const cv::Mat& whole = shift > 0 ? shifted : values;
    if (recipe->colorCode == noCode)
        return QSharedPointer<CImageData>::create(whole, info);
    cv::Mat image;
    cv::cvtColor(whole, image, recipe->colorCode);
    return QSharedPointer<CImageData>::create(image, info);
}

} // namespace Host
