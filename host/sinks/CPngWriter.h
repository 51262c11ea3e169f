// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/models/AWorkerNodeDataModel.h>

#include <QSharedPointer>
#include <QString>

namespace Host {

class CImageData;

/**
 * Writes images as PNG files in a thread pool, one at a time, in the order in which they were given.
 *
 * \code
 * connect(&m_writer, &CPngWriter::written, this, [this](const QString& file) { m_files.push_back(file); });
 * m_writer.write(image, folder + "/frame-000000.png");
 * \endcode
 *
 * A worker model that is in no graph: a sink owns one. What it promises of pools, order, counts and removal holds here.
 * Images that wait when it is destroyed are not written.
 *
 * 32 images may wait; one that comes then is not written, and statistics() counts it as dropped. An image is shared
 * until it is written, not copied.
 *
 * A file is written as "frame-000000.png.part" and then renamed: under its own name it is complete. If that
 * fails, the part is removed and failed() tells why. From then on nothing is written.
 *
 * Threads: the graph's, but for statistics(). Signals come from its event loop.
 */
class CPngWriter : public Plugin::Halvex::AWorkerNodeDataModel
{
    Q_OBJECT

public:
    CPngWriter();

    /// \a file is a full name in a folder that exists and that nobody else writes to. A file of that name is replaced.
    void write(const QSharedPointer<CImageData>& image, const QString& file);

    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("PNG Writer"); }
    unsigned int nPorts(Plugin::Halvex::ENodePortType portType) const override;
    Plugin::Halvex::SNodeDataType dataType(Plugin::Halvex::ENodePortType portType,
                                           Plugin::Halvex::NodePortIndex index) const override;
    bool isUnique() override { return false; }

Q_SIGNALS:
    /// Once for each file, in the order in which the images were given.
    void written(const QString& file);

    /// A file could not be written; \a error names it and says why. Once at most.
    void failed(const QString& error);

protected:
    Work makeWork() const override;

private:
    void onEnded();
};

} // namespace Host
