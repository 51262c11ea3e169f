// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sources/CCameraSourceModel.h"

#include <Halvex/service/CVeltraGrabResultData.h>

namespace Host {

using namespace Plugin::Halvex;

QString CCameraSourceModel::modelName()
{
    return QString::fromLatin1("Camera Source");
}

QString CCameraSourceModel::caption()
{
    return hasUniqueName() ? QStringLiteral("Camera: %1").arg(uniqueName()) : QStringLiteral("Camera");
}

unsigned int CCameraSourceModel::nPorts(ENodePortType portType) const
{
    return portType == ENodePortType::Out ? 1 : 0;
}

SNodeDataType CCameraSourceModel::dataType(ENodePortType, NodePortIndex) const
{
    return CVeltraGrabResultData().type();
}

void CCameraSourceModel::setInData(CNodeDataPtr, NodePortIndex)
{
    // There is no input port.
}

} // namespace Host
