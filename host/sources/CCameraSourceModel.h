// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/models/ASourceNodeDataModel.h>

namespace Host {

/**
 * Where the frames of a camera enter the graph: one output of camera frames, fed through an entry or the data
 * flow proxy.
 *
 * A source that stands for a certain camera has that camera's name as its unique name, and a scene document then
 * does not make it anew; one without is any camera.
 *
 * Threads: as every source: an entry from any thread at any time, the proxy as long as the model exists.
 */
class CCameraSourceModel : public Plugin::Halvex::ASourceNodeDataModel
{
    Q_OBJECT

public:
    using ASourceNodeDataModel::ASourceNodeDataModel;

    static QString modelName();

    QString caption() override;
    QString name() override { return modelName(); }
    unsigned int nPorts(Plugin::Halvex::ENodePortType portType) const override;
    Plugin::Halvex::SNodeDataType dataType(Plugin::Halvex::ENodePortType portType,
                                           Plugin::Halvex::NodePortIndex index) const override;
    void setInData(Plugin::Halvex::CNodeDataPtr data, Plugin::Halvex::NodePortIndex index) override;
    bool isUnique() override { return hasUniqueName(); }
};

} // namespace Host
