// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/models/ANodeDataModel.h>

namespace Host {

/**
 * Makes images of camera frames, as CGrabResultConverter does, for graphs that come from a chain: the connections of
 * a chain carry no converter.
 *
 * Empty data and a frame that cannot be converted clear the output and announce dataInvalidated().
 *
 * Threads: as every model.
 */
class CToImageModel : public Plugin::Halvex::ANodeDataModel
{
    Q_OBJECT

public:
    CToImageModel() = default;

    static QString modelName();

    QString caption() override { return QStringLiteral("To image"); }
    QString name() override { return modelName(); }
    unsigned int nPorts(Plugin::Halvex::ENodePortType portType) const override;
    Plugin::Halvex::SNodeDataType dataType(Plugin::Halvex::ENodePortType portType,
                                           Plugin::Halvex::NodePortIndex index) const override;
    void setInData(Plugin::Halvex::CNodeDataPtr data, Plugin::Halvex::NodePortIndex index) override;
    Plugin::Halvex::CNodeDataPtr outData(Plugin::Halvex::NodePortIndex index) override;
    bool isUnique() override { return false; }

private:
    Plugin::Halvex::CNodeDataPtr m_output;
};

} // namespace Host
