// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/recording/CRecorder.h"

#include "host/sinks/CPngSinkModel.h"
#include "host/sinks/CRawSinkModel.h"
#include "host/sinks/CVideoSinkModel.h"
#include "host/viewer/images/CViewModel.h"
#include "host/viewer/recording/RawFrame.h"
#include "host/viewer/recording/RecordFolder.h"

#include <Halvex/models/CNodeDataFlowProxy.h>

namespace Host {

using namespace Plugin::Halvex;

namespace {

std::unique_ptr<AFileSinkModel> makeSink(CRecorder::EKind kind, double framesPerSecond)
{
    if (kind == CRecorder::EKind::Png)
        return std::make_unique<CPngSinkModel>();
    if (kind == CRecorder::EKind::Raw)
        return std::make_unique<CRawSinkModel>();
    auto video = std::make_unique<CVideoSinkModel>();
    video->setFramesPerSecond(framesPerSecond);
    return video;
}

} // namespace

CRecorder::CRecorder(CViewModel& view, QObject* parent)
    : QObject(parent)
    , m_view(&view)
{
    connect(view.getDataFlowProxy().data(), &CNodeDataFlowProxy::newDataAvailable, this, &CRecorder::onData);
    connect(&view, &QObject::destroyed, this, &CRecorder::stop);
}

CRecorder::~CRecorder() = default;

bool CRecorder::start(EKind kind, const QString& parentFolder, double framesPerSecond)
{
    if (!m_view || m_state == EState::Recording || m_state == EState::Finishing)
        return false;
    m_sink.reset();
    m_folder = makeRecordFolder(parentFolder, m_view->viewName());
    if (m_folder.isEmpty()) {
        m_error = tr("No folder can be made in %1.").arg(parentFolder);
        setState(EState::Idle);
        return false;
    }
    m_error.clear();
    m_kind = kind;
    m_isCompleted = false;
    m_sink = makeSink(kind, framesPerSecond);
    m_sink->setOutput(m_folder, 1);
    connect(m_sink.get(), &AFileSinkModel::failed, this, &CRecorder::onFailed);
    connect(m_sink.get(), &CNodeDataModel::computingFinished, this, &CRecorder::endIfDone);
    setState(EState::Recording);
    return true;
}

void CRecorder::stop()
{
    if (m_state != EState::Recording)
        return;
    setState(EState::Finishing);
    endIfDone();
}

void CRecorder::deleteWhenDone()
{
    stop();
    m_isLeft = true;
    if (m_state != EState::Finishing)
        deleteLater();
}

CRecorder::SCounts CRecorder::counts() const
{
    if (!m_sink)
        return {};
    const SWorkerStatistics writing = m_sink->writing();
    // Completing a video is a job of the writer's own, and no image.
    return {m_sink->delivered(), m_sink->written(), writing.dropped, m_isCompleted ? 0 : writing.pending};
}

void CRecorder::onData(const CNodeDataPtr& data)
{
    const auto image = m_state == EState::Recording ? data.dynamicCast<CImageData>() : nullptr;
    if (!image || image->image().empty())
        return;
    m_sink->setInData(m_kind == EKind::Raw ? rawFrame(image) : image, 0);
    Q_EMIT changed();
}

void CRecorder::onFailed(const QString& error)
{
    m_error = error;
    stop();
    Q_EMIT changed();
}

// The sink tells when it has nothing to do any more.
void CRecorder::endIfDone()
{
    if (m_state == EState::Finishing && m_sink->writing().pending == 0 && !m_isCompleted) {
        m_isCompleted = true;
        m_sink->finish();
    }
    if (m_state == EState::Finishing && m_sink->writing().pending == 0)
        setState(EState::Finished);
    else
        Q_EMIT changed();
}

void CRecorder::setState(EState state)
{
    m_state = state;
    if (state == EState::Recording)
        m_programLock = std::make_unique<QEventLoopLocker>();
    if (state == EState::Idle || state == EState::Finished) {
        m_programLock.reset();
        if (m_isLeft)
            deleteLater();
    }
    Q_EMIT changed();
}

} // namespace Host
