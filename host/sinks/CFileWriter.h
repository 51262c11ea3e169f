// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/models/AWorkerNodeDataModel.h>

#include <QString>

#include <functional>

namespace Host {

/**
 * Writes what a sink gives it into files, in a thread pool, one frame at a time, in the order in which they were given,
 * and a line about each into the folder's CFrameTable. How a file is written is a function.
 *
 * \code
 * connect(&m_writer, &CFileWriter::written, this, [this](const QString& file) { m_files.push_back(file); });
 * m_writer.write(image, folder + "/frame-000000.png");
 * \endcode
 *
 * A worker model that is in no graph: a sink owns one. What it promises of pools, order, counts and removal holds here.
 * Frames that wait when it is destroyed are not written.
 *
 * 32 frames may wait; one that comes then is not written, and statistics() counts it as dropped. A frame is shared
 * until it is written, not copied.
 *
 * When a file cannot be written failed() tells why. From then on nothing is written; a file that is still open, since
 * it holds several frames, is complete by then, with those that it has.
 *
 * Threads: the graph's, but for statistics(). Signals come from its event loop.
 */
class CFileWriter : public Plugin::Halvex::AWorkerNodeDataModel
{
    Q_OBJECT

public:
    /// Writes \a frame into \a file, or, with null, completes the file that it has open. A function that writes
    /// several frames into one file changes the name to that. Returns why not, without the name; empty on success.
    /// Called in a pool's threads, one call after the other; may be destroyed in any thread.
    using Save = std::function<QString(const Plugin::Halvex::CNodeDataPtr& frame, QString* file)>;

    /// \a makeSave is called in the graph's thread, when the first frame is given, as long as this object lives.
    explicit CFileWriter(std::function<Save()> makeSave);

    /// \a file is a full name in a folder that exists and that nobody else writes to. A file of that name is replaced.
    void write(const Plugin::Halvex::CNodeDataPtr& frame, const QString& file);

    /// Completes a file that is still open. To be called when nothing is pending; then this is, until it is done.
    void finish();

    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("File Writer"); }
    unsigned int nPorts(Plugin::Halvex::ENodePortType portType) const override;
    Plugin::Halvex::SNodeDataType dataType(Plugin::Halvex::ENodePortType portType,
                                           Plugin::Halvex::NodePortIndex index) const override;
    bool isUnique() override { return false; }

Q_SIGNALS:
    /// Once for each frame, in the order in which they were given, with the file that it is in.
    void written(const QString& file);

    /// A file could not be written; \a error names it and says why. Once at most.
    void failed(const QString& error);

protected:
    Work makeWork() const override;

private:
    void onEnded();

    const std::function<Save()> m_makeSave;
};

} // namespace Host
