// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/base/CTaskRunner.h"

#include <QGlobalStatic>
#include <QThreadPool>

#include <utility>

namespace Host {

using namespace Plugin::Halvex;

namespace {

Q_GLOBAL_STATIC(QThreadPool, viewPool)

// A task, or what it has given back.
class CTaskData : public CNodeData
{
public:
    CTaskData(CTaskRunner::Task toRun, CTaskRunner::Done toCall)
        : task(std::move(toRun))
        , done(std::move(toCall))
    {
    }

    static SNodeDataType dataType() { return {QStringLiteral("HostTask"), QStringLiteral("TASK")}; }
    SNodeDataType type() const override { return dataType(); }

    const CTaskRunner::Task task;
    const CTaskRunner::Done done;
};

} // namespace

CTaskRunner::CTaskRunner(EPolicy policy)
{
    setPolicy(policy);
    // Unlike NewestOfEach it keeps no task, with which an image may be held.
    m_gathering = EGathering::SameNumber;
    setThreadPool(viewPool());
    connect(this, &CNodeDataModel::dataUpdated, this, &CTaskRunner::onEnded);
}

void CTaskRunner::run(Task task)
{
    setInData(QSharedPointer<CTaskData>::create(std::move(task), Done()), 0);
}

unsigned int CTaskRunner::nPorts(ENodePortType portType) const
{
    return portType == ENodePortType::None ? 0 : 1;
}

SNodeDataType CTaskRunner::dataType(ENodePortType, NodePortIndex) const
{
    return CTaskData::dataType();
}

AWorkerNodeDataModel::Work CTaskRunner::makeWork() const
{
    return [](const Inputs& inputs) -> CNodeDataPtr {
        return QSharedPointer<CTaskData>::create(Task(), static_cast<const CTaskData&>(*inputs.front()).task());
    };
}

void CTaskRunner::onEnded()
{
    const auto ended = outData(0).staticCast<CTaskData>(); // it lives as long as it runs
    ended->done();
}

} // namespace Host
