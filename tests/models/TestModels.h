// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/BoundedWait.h"
#include "support/CTestModel.h"

#include <Halvex/models/ASinkNodeDataModel.h>
#include <Halvex/models/ASourceNodeDataModel.h>

/// A source that hands out what its family says.
class CSource : public CNamedTestModelOf<Plugin::Halvex::ASourceNodeDataModel>
{
public:
    explicit CSource(const QString& uniqueName = noUniqueName())
        : CNamedTestModelOf(1, 1, QStringLiteral("Plain"), uniqueName)
    {
        // NOLINTNEXTLINE(bugprone-parent-virtual-call): what the source keeps, and not what the test model gives out
        onOutData = [this](NodePortIndex index) { return ASourceNodeDataModel::outData(index); };
        onSetInData = [](const CNodeDataPtr&, NodePortIndex) {};
    }
};

/// Passes on to its proxy what it receives.
class CSink : public CNamedTestModelOf<Plugin::Halvex::ASinkNodeDataModel>
{
public:
    explicit CSink(const QString& uniqueName = noUniqueName())
        : CNamedTestModelOf(1, 1, QStringLiteral("Plain"), uniqueName)
    {
        onSetInData = [this](const CNodeDataPtr& data, NodePortIndex) { getDataFlowProxy()->setData(data); };
    }
};

/// Runs \a work in a thread of its own and returns when that has ended; this thread's event loop does not run.
template <typename Work>
void runInWorker(const Work& work)
{
    CTestThread(work).join();
}
