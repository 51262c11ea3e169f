// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/AImageFilterModel.h"

#include "host/models/CImageData.h"

#include <QString>

#include <stdexcept>

namespace Host {

using namespace Plugin::Halvex;

namespace {

CNodeDataPtr filtered(const CNodeDataPtr& data, const std::function<cv::Mat(const cv::Mat&)>& filter)
{
    const auto input = data.dynamicCast<CImageData>();
    if (!input || input->image().empty())
        throw std::invalid_argument("this is no image");
    try {
        return QSharedPointer<CImageData>::create(filter(input->image()), input->info());
    } catch (const cv::Exception& exception) {
        // Without the place in the library's sources that its what() begins with.
        throw std::runtime_error(QString::fromStdString(exception.err).simplified().toStdString());
    }
}

} // namespace

AImageFilterModel::AImageFilterModel()
{
    setPolicy(EPolicy::DropOldest);
    setMostWaiting(16);
}

unsigned int AImageFilterModel::nPorts(ENodePortType portType) const
{
    return portType == ENodePortType::None ? 0 : 1;
}

SNodeDataType AImageFilterModel::dataType(ENodePortType, NodePortIndex) const
{
    return CImageData::dataType();
}

AWorkerNodeDataModel::Work AImageFilterModel::makeWork() const
{
    return [filter = makeFilter()](const Inputs& inputs) { return filtered(inputs.front(), filter); };
}

} // namespace Host
