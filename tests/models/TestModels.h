// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/BoundedWait.h"
#include "support/CTestData.h"

#include <Halvex/models/ASinkNodeDataModel.h>
#include <Halvex/models/ASourceNodeDataModel.h>

#include <QThread>

#include <functional>
#include <memory>

/// What every subclass of a model family owes, as plainly as possible: one port per side, data goes nowhere.
template <typename Family>
class CPlainModel : public Family
{
public:
    using Family::Family;

    QString caption() override { return QStringLiteral("Plain"); }
    QString name() override { return QStringLiteral("Plain"); }
    unsigned int nPorts(Plugin::Halvex::ENodePortType) const override { return 1; }
    Plugin::Halvex::SNodeDataType dataType(Plugin::Halvex::ENodePortType, Plugin::Halvex::NodePortIndex) const override
    {
        return CTestData::defaultType();
    }
    void setInData(Plugin::Halvex::CNodeDataPtr, Plugin::Halvex::NodePortIndex) override {}
    bool isUnique() override { return unique; }

    bool unique = false;
};

class CSource : public CPlainModel<Plugin::Halvex::ASourceNodeDataModel>
{
public:
    using CPlainModel::CPlainModel;
};

/// Passes on to its proxy what it receives.
class CSink : public CPlainModel<Plugin::Halvex::ASinkNodeDataModel>
{
public:
    using CPlainModel::CPlainModel;

    void setInData(Plugin::Halvex::CNodeDataPtr data, Plugin::Halvex::NodePortIndex) override
    {
        getDataFlowProxy()->setData(data);
    }
    Plugin::Halvex::CNodeDataPtr outData(Plugin::Halvex::NodePortIndex) override { return {}; }
};

/// Runs \a work in a thread of its own and returns when that has ended; this thread's event loop does not run.
inline void runInWorker(const std::function<void()>& work)
{
    const std::unique_ptr<QThread> worker(QThread::create(work));
    worker->start();
    waitForEnd(*worker);
}
