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

namespace Plugin::Halvex::Testing {

namespace {

constexpr int frameWidth = 16;
constexpr int frameHeight = 12;
constexpr int betweenRows = 4; // bytes, for who takes rows to follow one another

template <typename Handle>
using ResultOf = std::decay_t<decltype(*std::declval<const Handle&>())>;

/// Whether a member can be set and read as if it were an \a Ours.
template <typename Member, typename Ours>
constexpr bool isLike = std::is_assignable_v<Member&, Ours>&& std::is_convertible_v<const Member&, Ours>;

/// Another platform may make frames in another way, or tell other things of them: there are none then.
template <typename Handle, typename = void>
struct SFrames
{
    static Handle make(int, const char*, int) { return {}; }
    static QString shown(const Handle&) { return QStringLiteral("a grab result"); }
    static QByteArray checksum(const Handle&) { return {}; }
};

/// Where a grab result has all that is set and read here, and becomes a handle.
template <typename Handle>
struct SFrames<
    Handle,
    std::enable_if_t<
        std::is_default_constructible_v<ResultOf<Handle>> && std::is_constructible_v<Handle, ResultOf<Handle>> &&
        isLike<decltype(ResultOf<Handle>::pixels), const std::byte*> &&
        isLike<decltype(ResultOf<Handle>::size), std::size_t> && isLike<decltype(ResultOf<Handle>::width), int> &&
        isLike<decltype(ResultOf<Handle>::height), int> && isLike<decltype(ResultOf<Handle>::stride), int> &&
        isLike<decltype(ResultOf<Handle>::pixelFormat), QString> &&
        isLike<decltype(ResultOf<Handle>::frameNumber), quint64> &&
        isLike<decltype(ResultOf<Handle>::timestampNs), quint64> &&
        isLike<decltype(ResultOf<Handle>::complete), bool> &&
        isLike<decltype(ResultOf<Handle>::owner), std::shared_ptr<const void>>>>
{
    using Result = ResultOf<Handle>;

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
        const int width = frame.width;
        const int height = frame.height;
        const QString pixelFormat = frame.pixelFormat;
        return QStringLiteral("a frame of %1 x %2, %3").arg(width).arg(height).arg(pixelFormat);
    }
    static QByteArray checksum(const Handle& handle)
    {
        const Result& frame = *handle;
        const int stride = frame.stride;
        QCryptographicHash hash(QCryptographicHash::Md5);
        hash.addData(QStringLiteral("%1, rows of %2 bytes").arg(shown(handle)).arg(stride).toUtf8());
        if (const std::byte* const pixels = frame.pixels)
            hash.addData(QByteArray::fromRawData(reinterpret_cast<const char*>(pixels), int(frame.size)));
        return hash.result();
    }
};

using Frames = SFrames<Veltra::CGrabResultPtr>;

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
