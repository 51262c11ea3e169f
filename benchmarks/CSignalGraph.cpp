// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CSignalGraph.h"

using Plugin::Halvex::CNodeDataPtr;

void CSignalModel::setInData(CNodeDataPtr data, int)
{
    m_data = std::move(data);
    Q_EMIT dataUpdated(0);
}

CNodeDataPtr CSignalModel::outData(int)
{
    return m_data;
}

void CJoiningSignalModel::setInData(CNodeDataPtr data, int index)
{
    if (++m_arrived < m_inputs)
        return;
    m_arrived = 0;
    CSignalModel::setInData(std::move(data), index);
}

void CStoringSignalModel::setInData(CNodeDataPtr data, int)
{
    m_data = std::move(data);
}

std::unique_ptr<CSignalModel> makeSignalModel(const SShape::SDegree& degree)
{
    if (degree.outputs == 0)
        return std::make_unique<CStoringSignalModel>();
    if (degree.inputs > 1)
        return std::make_unique<CJoiningSignalModel>(degree.inputs);
    return std::make_unique<CSignalModel>();
}
