// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/CPngSinkModel.h"

#include "host/models/CImageData.h"
#include "host/sinks/WriteFile.h"

#include <opencv2/imgcodecs.hpp>

#include <utility>
#include <vector>

namespace Host {

using namespace Plugin::Halvex;

namespace {

// The image as a PNG, lightly compressed: speed counts for more than size. Empty when the encoder refuses the image.
std::vector<uchar> encode(const cv::Mat& image)
{
    std::vector<uchar> png;
    try {
        if (!cv::imencode(".png", image, png, {cv::IMWRITE_PNG_COMPRESSION, 1}))
            png.clear();
    } catch (const cv::Exception&) {
        png.clear();
    }
    return png;
}

// The encoder could write the file itself, but it does not notice a full disk.
QString writePng(const CNodeDataPtr& frame, QString* file)
{
    if (!frame)
        return {};
    const std::vector<uchar> png = encode(frame.staticCast<CImageData>()->image());
    return png.empty() ? QStringLiteral("the image has no PNG form") : writeFile(*file, png.data(), png.size());
}

} // namespace

CPngSinkModel::CPngSinkModel(QString sinkName)
    : AFileSinkModel(std::move(sinkName), 0)
{
}

QString CPngSinkModel::modelName()
{
    return QStringLiteral("PNG Sink");
}

SNodeDataType CPngSinkModel::dataType(ENodePortType, NodePortIndex) const
{
    return CImageData::dataType();
}

bool CPngSinkModel::takes(const CNodeData& data) const
{
    return dynamic_cast<const CImageData*>(&data) != nullptr;
}

CFileWriter::Save CPngSinkModel::makeSave() const
{
    return &writePng;
}

} // namespace Host
