// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/sinks/IFrameSink.h"

#include <Halvex/models/ASinkNodeDataModel.h>

#include <QString>

#include <vector>

namespace cv {
class Mat;
}

namespace Host {

/**
 * Where images leave the graph: counts every one, and writes every nth as a PNG
 * file.
 *
 * The files are "frame-000000.png", "frame-000010.png"...: the number counts the images that this sink was given,
 * from 0. A file of that name is replaced. Each image goes on to the listeners of the data flow proxy, after its
 * file was written.
 *
 * The first file that cannot be written is taken away again, failed() tells why, and from then on nothing is
 * written, while counting goes on.
 *
 * A sink may have a name, by which a run tells it from others. A scene document keeps it as "property": {"sink_name"},
 * not as the unique name, which is no setting: nothing takes it from a document.
 *
 * Threads: as every model. A file is written within the walk that brings the image.
 */
class CPngSinkModel : public Plugin::Halvex::ASinkNodeDataModel, public IFrameSink
{
    Q_OBJECT
    Q_INTERFACES(Host::IFrameSink)
    Q_PROPERTY(QString sinkName READ sinkName)

public:
    explicit CPngSinkModel(QString sinkName = {});

    static QString modelName();

    QString folder() const { return m_folder; }

    QString sinkName() const override { return m_sinkName; }
    void setOutput(const QString& folder, int every) override;
    quint64 delivered() const override { return m_delivered; }
    const std::vector<QString>& files() const override { return m_files; }
    void notifyFailure(const QObject* context, std::function<void(const QString&)> handler) override;

    QString caption() override;
    QString name() override { return modelName(); }
    unsigned int nPorts(Plugin::Halvex::ENodePortType portType) const override;
    Plugin::Halvex::SNodeDataType dataType(Plugin::Halvex::ENodePortType portType,
                                           Plugin::Halvex::NodePortIndex index) const override;
    void setInData(Plugin::Halvex::CNodeDataPtr data, Plugin::Halvex::NodePortIndex index) override;
    Plugin::Halvex::CNodeDataPtr outData(Plugin::Halvex::NodePortIndex index) override;
    Plugin::Halvex::ENodeValidationState validationState() const override;
    QString validationMessage() const override { return m_error; }
    bool isUnique() override { return false; }

    /// What ASinkNodeDataModel saves and, for a sink with a name, "property": {"sink_name"}.
    QJsonObject save() const override;

    /// Takes the name from "property"."sink_name"; what is no text is no name. A missing key changes nothing.
    void restore(const QJsonObject& json) override;

Q_SIGNALS:
    /// A file could not be written; \a error names it and says why. Once at most.
    void failed(const QString& error);

private:
    void write(const cv::Mat& image, quint64 number);
    void fail(const QString& file, const QString& reason);

    QString m_sinkName;
    QString m_folder;
    quint64 m_every = 1;
    QString m_error;
    std::vector<QString> m_files;
    quint64 m_delivered = 0;
};

} // namespace Host
