// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "testing/Samples_p.h"

#include <Halvex/platform/CGrabResultPtr.h>
#include <Halvex/service/CVeltraGrabResultData.h>

#include <QCryptographicHash>

#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace Veltra {
struct SGrabResult; // another platform may have none
}

namespace Plugin::Halvex::Testing {

namespace {

constexpr int frameWidth = 16;
constexpr int frameHeight = 12;
constexpr int betweenRows = 4; // bytes, for who takes rows to follow one another

/// Where frames are made in another way than here: there are none.
template <typename Handle, typename Result, typename = void>
struct SFrames
{
    static Handle make(int, const char*, int) { return {}; }
    static QString shown(const Handle&) { return QStringLiteral("a grab result"); }
    static QByteArray checksum(const Handle&) { return {}; }
};

/// Where a grab result becomes a handle, as it does in the platform of this project.
template <typename Handle, typename Result>
struct SFrames<Handle, Result,
               std::void_t<decltype(sizeof(Result)), decltype(Handle(std::declval<Result>())),
                           decltype(std::declval<Result&>().owner)>>
{
    static Handle make(int number, const char* pixelFormat, int bytesPerPixel)
    {
        Result frame;
        frame.width = frameWidth;
        frame.height = frameHeight;
        frame.stride = frameWidth * bytesPerPixel + betweenRows;
        frame.pixelFormat = QString::fromLatin1(pixelFormat);
        frame.frameNumber = quint64(number);
        frame.timestampNs = quint64(number) * 10'000'000;
        frame.complete = true;
        const auto pixels = std::make_shared<std::vector<std::byte>>(std::size_t(frame.stride) * frameHeight);
        for (std::size_t i = 0; i < pixels->size(); ++i)
            (*pixels)[i] = std::byte((i + std::size_t(number)) % 256);
        frame.pixels = pixels->data();
        frame.size = pixels->size();
        frame.owner = pixels;
        return Handle(std::move(frame));
    }
    static QString shown(const Handle& handle)
    {
        const Result& frame = *handle;
        return QStringLiteral("a frame of %1 x %2, %3").arg(frame.width).arg(frame.height).arg(frame.pixelFormat);
    }
    static QByteArray checksum(const Handle& handle)
    {
        const Result& frame = *handle;
        QCryptographicHash hash(QCryptographicHash::Md5);
        hash.addData(QStringLiteral("%1 %2 %3 %4 ")
                         .arg(frame.pixelFormat)
                         .arg(frame.width)
                         .arg(frame.height)
                         .arg(frame.stride)
                         .toUtf8());
        if (frame.pixels)
            hash.addData(QByteArray::fromRawData(reinterpret_cast<const char*>(frame.pixels), int(frame.size)));
        return hash.result();
    }
};

using Frames = SFrames<Veltra::CGrabResultPtr, Veltra::SGrabResult>;

Veltra::CGrabResultPtr makeFrame(int number)
{
    switch ((number + sampleCount - 1) % sampleCount / 2) {
    case 0:
        return Frames::make(number, "Mono8", 1);
    case 1:
        return Frames::make(number, "BGR8", 3);
    default:
        return {};
    }
}

} // namespace

CNodeDataPtr makeSample(const SNodeDataType& type, int number, const SCheckOptions& options)
{
    const CNodeDataPtr data = options.makeData ? options.makeData(type, number) : CNodeDataPtr();
    if (data || type.id != CVeltraGrabResultData().type().id)
        return data;
    return CNodeDataPtr(new CVeltraGrabResultData(makeFrame(number)));
}

CNodeDataPtr makeSample(const SNodeDataType& type, int number, const SCheckOptions& options,
                        const CNodeDataModelRegistry& registry)
{
    if (const CNodeDataPtr data = makeSample(type, number, options))
        return data;
    const SNodeDataType frameType = CVeltraGrabResultData().type();
    const NodeDataConverter convert = registry.getTypeConverter(frameType, type);
    // Frames of which nothing is made are passed over: rules that need data would take it that there is none.
    for (int frame = number; convert && frame < number + sampleCount; ++frame) {
        const CNodeDataPtr data = convert(makeSample(frameType, frame, options));
        if (data && data->type().id == type.id)
            return data;
    }
    return {};
}

QString shownSample(const CNodeDataPtr& sample)
{
    if (!sample)
        return QStringLiteral("empty data");
    const auto grab = sample.dynamicCast<CVeltraGrabResultData>();
    if (!grab)
        return QStringLiteral("data of its type");
    return grab->grabResult() ? Frames::shown(grab->grabResult()) : QStringLiteral("a grab result without a frame");
}

QByteArray checksumOf(const CNodeData& data, const SCheckOptions& options)
{
    const QByteArray sum = options.checksum ? options.checksum(data) : QByteArray();
    const auto* const grab = dynamic_cast<const CVeltraGrabResultData*>(&data);
    if (!sum.isEmpty() || !grab)
        return sum;
    return grab->grabResult() ? Frames::checksum(grab->grabResult()) : QByteArrayLiteral("no frame");
}

} // namespace Plugin::Halvex::Testing
