// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/sinks/CFileWriter.h"
#include "host/sinks/IFrameSink.h"

#include <Halvex/models/ASinkNodeDataModel.h>

#include <QString>

#include <vector>

namespace Host {

/**
 * What sinks have in common that write files: they count every frame, and write every nth.
 *
 * A subclass says what it takes, what its files are called and how one is written. The number in a file's name counts
 * the frames that this sink was given, from 0. A file of that name is replaced, in one step: there is never half a
 * file under it. Each frame goes on to the listeners of the data flow proxy when it comes.
 *
 * Files are written in a thread pool, see CFileWriter, and are in files() from the graph's event loop on. Between
 * computingStarted() and computingFinished() there are frames that are to be written. Empty data takes none of them
 * back. A frame that finds 32 of them waiting is not written; writing() counts it as dropped. Those that wait
 * when the sink is destroyed are not written either.
 *
 * When a frame cannot be written failed() tells why, and from then on nothing is written, while counting goes on. What
 * there is of a file for this one frame is taken away. A file that has others before it is completed with those; if
 * that fails as well, it is taken away.
 *
 * A sink may have a name, by which a run tells it from others. A scene document keeps it as "property": {"sink_name"},
 * not as the unique name, which is no setting: nothing takes it from a document. "write_every" stands beside it if it
 * is not the sink's default.
 *
 * Threads: as every model.
 */
class AFileSinkModel : public Plugin::Halvex::ASinkNodeDataModel, public IFrameSink
{
    Q_OBJECT
    Q_INTERFACES(Host::IFrameSink)
    Q_PROPERTY(QString sinkName READ sinkName NOTIFY sinkNameChanged)
    Q_PROPERTY(int writeEvery READ writeEvery WRITE setWriteEvery NOTIFY writeEveryChanged)
    Q_CLASSINFO("sinkName.help", "The name of its folder. A chain gives it.")
    Q_CLASSINFO("writeEvery.range", "0..1000000000")
    Q_CLASSINFO("writeEvery.help", "It writes one of so many frames; 0: as the run says, with --write-every.")

public:
    QString folder() const { return m_folder; }

    /// 0: as setOutput() says.
    int writeEvery() const { return m_writeEvery; }
    void setWriteEvery(int frames);

    QString sinkName() const override { return m_sinkName; }
    void setOutput(const QString& folder, int every) override;
    QStringList fileNames() const override;
    quint64 delivered() const override { return m_delivered; }
    quint64 written() const override { return m_written; }
    const std::vector<QString>& files() const override { return m_files; }
    Plugin::Halvex::SWorkerStatistics writing() const override { return m_writer.statistics(); }
    void finish() override {} ///< A file holds a frame, and is complete when that is written.
    void notifyFailure(const QObject* context, std::function<void(const QString&)> handler) override;

    QString caption() override;
    unsigned int nPorts(Plugin::Halvex::ENodePortType portType) const override;
    void setInData(Plugin::Halvex::CNodeDataPtr data, Plugin::Halvex::NodePortIndex index) override;
    Plugin::Halvex::CNodeDataPtr outData(Plugin::Halvex::NodePortIndex index) override;
    Plugin::Halvex::ENodeValidationState validationState() const override;
    QString validationMessage() const override { return m_error; }
    bool isUnique() override { return false; }

    /// What ASinkNodeDataModel saves, and under "property" the name, for a sink with one, and "write_every".
    QJsonObject save() const override;

    /// Reads what save() writes. A name that is no text is no name. What is missing or makes no sense changes nothing.
    void restore(const QJsonObject& json) override;

Q_SIGNALS:
    /// A file could not be written; \a error names it and says why. Once at most.
    void failed(const QString& error);

    /// restore() has given it another name.
    void sinkNameChanged();

    void writeEveryChanged();

protected:
    /// \a writeEvery is the default of that setting.
    AFileSinkModel(QString sinkName, int writeEvery);

    /// "PNG files": what the caption begins with.
    virtual QString kind() const = 0;

    /// Whether \a data is something to write, and counts.
    virtual bool takes(const Plugin::Halvex::CNodeData& data) const = 0;

    /// What a file is called, without its folder; '*' stands for the number of its frame: "frame-*.png".
    virtual QString fileName() const = 0;

    /// How a file is written, with a copy of the settings.
    virtual CFileWriter::Save makeSave() const = 0;

    CFileWriter& writer() { return m_writer; }

private:
    QString numberedFile(quint64 number) const;
    void onWritten(const QString& file);
    void onFailed(const QString& error);

    const int m_defaultWriteEvery;
    int m_writeEvery;
    QString m_sinkName;
    QString m_folder;
    int m_every = 1; // of the run
    QString m_error;
    std::vector<QString> m_files;
    quint64 m_delivered = 0;
    quint64 m_written = 0;
    CFileWriter m_writer;
};

} // namespace Host
