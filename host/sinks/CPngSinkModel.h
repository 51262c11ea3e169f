// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/sinks/AFileSinkModel.h"

namespace Host {

/// Writes images as "frame-000000.png", "frame-000030.png"..., 16 bits as 16 bits. Otherwise as AFileSinkModel says.
class CPngSinkModel : public AFileSinkModel
{
    Q_OBJECT

public:
    explicit CPngSinkModel(QString sinkName = {});

    static QString modelName();

    QString name() override { return modelName(); }
    Plugin::Halvex::SNodeDataType dataType(Plugin::Halvex::ENodePortType portType,
                                           Plugin::Halvex::NodePortIndex index) const override;

protected:
    QString kind() const override { return QStringLiteral("PNG files"); }
    bool takes(const Plugin::Halvex::CNodeData& data) const override;
    QString fileName() const override { return QStringLiteral("frame-*.png"); }
    CFileWriter::Save makeSave() const override;
};

} // namespace Host
