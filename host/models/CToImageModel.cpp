// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CToImageModel.h"

#include "host/models/CGrabResultConverter.h"
#include "host/models/CImageData.h"

#include <Halvex/service/CVeltraGrabResultData.h>

namespace Host {

using namespace Plugin::Halvex;

QString CToImageModel::modelName()
{
    return QString::fromLatin1("To Image");
}

unsigned int CToImageModel::nPorts(ENodePortType portType) const
{
    return portType == ENodePortType::None ? 0 : 1;
}

SNodeDataType CToImageModel::dataType(ENodePortType portType, NodePortIndex) const
{
    return portType == ENodePortType::In ? CVeltraGrabResultData().type() : CImageData::dataType();
}

void CToImageModel::setInData(CNodeDataPtr data, NodePortIndex)
{
    m_output = CGrabResultConverter()(data);
    if (m_output)
        Q_EMIT dataUpdated(0);
    else
        Q_EMIT dataInvalidated(0);
}

CNodeDataPtr CToImageModel::outData(NodePortIndex index)
{
    return index == 0 ? m_output : CNodeDataPtr();
}

} // namespace Host
