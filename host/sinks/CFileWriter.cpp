// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/CFileWriter.h"

#include "host/sinks/CFrameTable.h"

#include <memory>
#include <utility>

namespace Host {

using namespace Plugin::Halvex;

namespace {

// A frame and the file that it is to be written into, or what came of it.
class CFileJob : public CNodeData
{
public:
    CFileJob(QString fileName, CNodeDataPtr data, QString reason)
        : file(std::move(fileName))
        , frame(std::move(data))
        , error(std::move(reason))
    {
    }

    static SNodeDataType dataType() { return {QStringLiteral("HostFileJob"), QStringLiteral("FILE")}; }
    SNodeDataType type() const override { return dataType(); }

    const QString file;       // empty: what is open is to be completed
    const CNodeDataPtr frame; // null once it is written
    const QString error;      // null for success
};

// What lasts from one job to the next. One job runs after the other, so that it needs no guard.
struct SFiles
{
    CFileWriter::Save save;
    CFrameTable table;
    bool hasFailed = false;
};

// What is wrong, with the name of the file that it is about; empty on success.
QString writeJob(SFiles& files, const CFileJob& job, QString* file)
{
    const QString reason = files.save(job.frame, file);
    if (!reason.isEmpty())
        return CFileWriter::tr("cannot write '%1': %2").arg(*file, reason);
    return job.frame ? files.table.add(*file, *job.frame) : QString();
}

} // namespace

CFileWriter::CFileWriter(std::function<Save()> makeSave)
    : m_makeSave(std::move(makeSave))
{
    setPolicy(EPolicy::DropNewest);
    setMostWaiting(32);
    // Unlike NewestOfEach it keeps no image, with which a camera's buffer may be held.
    m_gathering = EGathering::SameNumber;
    connect(this, &CNodeDataModel::dataUpdated, this, &CFileWriter::onEnded);
}

void CFileWriter::write(const CNodeDataPtr& frame, const QString& file)
{
    Q_ASSERT(frame);
    setInData(QSharedPointer<CFileJob>::create(file, frame, QString()), 0);
}

void CFileWriter::finish()
{
    Q_ASSERT(statistics().pending == 0);
    setInData(QSharedPointer<CFileJob>::create(QString(), CNodeDataPtr(), QString()), 0);
}

unsigned int CFileWriter::nPorts(ENodePortType portType) const
{
    return portType == ENodePortType::None ? 0 : 1;
}

SNodeDataType CFileWriter::dataType(ENodePortType, NodePortIndex) const
{
    return CFileJob::dataType();
}

AWorkerNodeDataModel::Work CFileWriter::makeWork() const
{
    // The graph's thread would learn too late of a failure: the next frame is begun by then.
    const auto files = std::make_shared<SFiles>();
    files->save = m_makeSave();
    return [files](const Inputs& inputs) -> CNodeDataPtr {
        if (files->hasFailed)
            return {};
        const auto& job = static_cast<const CFileJob&>(*inputs.front());
        QString file = job.file;
        const QString error = writeJob(*files, job, &file);
        files->hasFailed = !error.isEmpty();
        // At once, and not when this function goes: the run lists its files by then. What failed first is told.
        QString open;
        if (files->hasFailed)
            files->save(CNodeDataPtr(), &open);
        return QSharedPointer<CFileJob>::create(job.file.isEmpty() ? QString() : file, CNodeDataPtr(), error);
    };
}

void CFileWriter::onEnded()
{
    const auto job = outData(0).staticCast<CFileJob>();
    if (!job->error.isEmpty())
        Q_EMIT failed(job->error);
    else if (!job->file.isEmpty())
        Q_EMIT written(job->file);
}

} // namespace Host
