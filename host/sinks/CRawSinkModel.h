// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/sinks/AFileSinkModel.h"

namespace Host {

/**
 * Writes frames as the camera sent them, "frame-000000.raw": its bytes from the first row to the last, nothing before
 * them. "frame-000000.json" says what they are:
 *
 * \code{.json}
 * {"width": 512, "height": 512, "stride": 1024, "pixel_format": "Mono12", "bits": 12, "byte_order": "little-endian",
 *  "frame": 4711, "source": null}
 * \endcode
 *
 * "stride" is the bytes from one row to the next, "bits" those of a value that count, null where the pixel format does
 * not say, "source" the file that the frame was read from, null for a camera. Otherwise as AFileSinkModel says.
 */
class CRawSinkModel : public AFileSinkModel
{
    Q_OBJECT

public:
    explicit CRawSinkModel(QString sinkName = {});

    static QString modelName();

    QStringList fileNames() const override;
    QString name() override { return modelName(); }
    Plugin::Halvex::SNodeDataType dataType(Plugin::Halvex::ENodePortType portType,
                                           Plugin::Halvex::NodePortIndex index) const override;

protected:
    QString kind() const override { return QStringLiteral("Raw files"); }
    bool takes(const Plugin::Halvex::CNodeData& data) const override;
    QString fileName() const override { return QStringLiteral("frame-*.raw"); }
    CFileWriter::Save makeSave() const override;
};

} // namespace Host
