// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/CTestData.h"

#include <Halvex/models/ASourceNodeDataModel.h>

/// A source with one output, which is not unique.
class CTestSource : public Plugin::Halvex::ASourceNodeDataModel
{
public:
    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("Source"); }
    unsigned int nPorts(Plugin::Halvex::ENodePortType portType) const override
    {
        return portType == Plugin::Halvex::ENodePortType::Out ? 1 : 0;
    }
    Plugin::Halvex::SNodeDataType dataType(Plugin::Halvex::ENodePortType, Plugin::Halvex::NodePortIndex) const override
    {
        return CTestData::defaultType();
    }
    void setInData(Plugin::Halvex::CNodeDataPtr, Plugin::Halvex::NodePortIndex) override {}
    bool isUnique() override { return false; }
};
