// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/AImageFilterModel.h"

#include "host/models/CImageData.h"

namespace Host {

using namespace Plugin::Halvex;

unsigned int AImageFilterModel::nPorts(ENodePortType portType) const
{
    return portType == ENodePortType::None ? 0 : 1;
}

SNodeDataType AImageFilterModel::dataType(ENodePortType, NodePortIndex) const
{
    return CImageData::dataType();
}

void AImageFilterModel::setInData(CNodeDataPtr data, NodePortIndex)
{
    m_message.clear();
    m_output = processed(data);
    if (m_output)
        Q_EMIT dataUpdated(0);
    else
        Q_EMIT dataInvalidated(0);
}

CNodeDataPtr AImageFilterModel::processed(const CNodeDataPtr& data)
{
    const auto input = data.dynamicCast<CImageData>();
    if (!input || input->image().empty())
        return {};

    CNodeDataPtr output;
    Q_EMIT computingStarted();
    try {
        output = QSharedPointer<CImageData>::create(process(input->image()), input->info());
    } catch (const cv::Exception& exception) {
        m_message = QString::fromStdString(exception.err).simplified();
    }
    Q_EMIT computingFinished();
    return output;
}

CNodeDataPtr AImageFilterModel::outData(NodePortIndex index)
{
    return index == 0 ? m_output : CNodeDataPtr();
}

ENodeValidationState AImageFilterModel::validationState() const
{
    return m_message.isEmpty() ? ENodeValidationState::Valid : ENodeValidationState::Error;
}

} // namespace Host
