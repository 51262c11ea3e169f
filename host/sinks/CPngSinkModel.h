// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/sinks/CPngWriter.h"
#include "host/sinks/IFrameSink.h"

#include <Halvex/models/ASinkNodeDataModel.h>

#include <QString>

#include <vector>

namespace Host {

/**
 * Where images leave the graph: counts every one, and writes every nth as a PNG
 * file.
 *
 * The files are "frame-000000.png", "frame-000010.png"...: the number counts the images that this sink was given,
 * from 0. A file of that name is replaced, in one step: there is never half an image under it. Each image goes on to
 * the listeners of the data flow proxy when it comes.
 *
 * Files are written in a thread pool, see CPngWriter, and are in files() from the graph's event loop on. Between
 * computingStarted() and computingFinished() there are images that are to be written. Empty data takes none of them
 * back. An image that finds 32 of them waiting is not written; writing() counts it as dropped. Those that wait
 * when the sink is destroyed are not written either.
 *
 * The first file that cannot be written is taken away again, failed() tells why, and from then on nothing is
 * written, while counting goes on.
 *
 * A sink may have a name, by which a run tells it from others. A scene document keeps it as "property": {"sink_name"},
 * not as the unique name, which is no setting: nothing takes it from a document.
 *
 * Threads: as every model.
 */
class CPngSinkModel : public Plugin::Halvex::ASinkNodeDataModel, public IFrameSink
{
    Q_OBJECT
    Q_INTERFACES(Host::IFrameSink)
    Q_PROPERTY(QString sinkName READ sinkName NOTIFY sinkNameChanged)

public:
    explicit CPngSinkModel(QString sinkName = {});

    static QString modelName();

    QString folder() const { return m_folder; }

    QString sinkName() const override { return m_sinkName; }
    void setOutput(const QString& folder, int every) override;
    quint64 delivered() const override { return m_delivered; }
    const std::vector<QString>& files() const override { return m_files; }
    Plugin::Halvex::SWorkerStatistics writing() const override { return m_writer.statistics(); }
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

    /// restore() has given it another name.
    void sinkNameChanged();

private:
    QString fileName(quint64 number) const;
    void onFailed(const QString& error);

    QString m_sinkName;
    QString m_folder;
    quint64 m_every = 1;
    QString m_error;
    std::vector<QString> m_files;
    quint64 m_delivered = 0;
    CPngWriter m_writer;
};

} // namespace Host
