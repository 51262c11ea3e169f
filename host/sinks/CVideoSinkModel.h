// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/sinks/AFileSinkModel.h"

namespace Host {

/**
 * Writes images into a video, see CVideoFile, "video-000000.avi": the number is that of its first image.
 *
 * It takes every image, unless its own setting says otherwise: what a run says of files is meant for those with one
 * image each. Its rate is how fast it plays, and applies until the first image is written. Otherwise as AFileSinkModel
 * says.
 */
class CVideoSinkModel : public AFileSinkModel
{
    Q_OBJECT
    Q_PROPERTY(double framesPerSecond READ framesPerSecond WRITE setFramesPerSecond NOTIFY framesPerSecondChanged)
    Q_CLASSINFO("framesPerSecond.range", "0.01..10000")
    Q_CLASSINFO("framesPerSecond.help", "How fast the video plays.")

public:
    explicit CVideoSinkModel(QString sinkName = {});

    static QString modelName();

    double framesPerSecond() const { return m_framesPerSecond; }
    void setFramesPerSecond(double rate);

    void finish() override { writer().finish(); }
    QString name() override { return modelName(); }
    Plugin::Halvex::SNodeDataType dataType(Plugin::Halvex::ENodePortType portType,
                                           Plugin::Halvex::NodePortIndex index) const override;
    QJsonObject save() const override;
    void restore(const QJsonObject& json) override;

Q_SIGNALS:
    void framesPerSecondChanged();

protected:
    QString kind() const override { return QStringLiteral("Video"); }
    bool takes(const Plugin::Halvex::CNodeData& data) const override;
    QString fileName() const override { return QStringLiteral("video-*.avi"); }
    CFileWriter::Save makeSave() const override;

private:
    double m_framesPerSecond = 25.0;
};

} // namespace Host
