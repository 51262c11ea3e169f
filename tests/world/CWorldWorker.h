// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/BoundedWait.h"
#include "world/CWorldModel.h"

#include <Halvex/models/AWorkerNodeDataModel.h>

#include <QCoreApplication>
#include <QEvent>
#include <QSemaphore>
#include <QThreadPool>

#include <atomic>
#include <utility>

/// A pool with one thread, in which no work ends until it is told to: so what is worked on and what waits is the same
/// in each run.
class CHeldPool
{
public:
    CHeldPool() { m_pool.setMaxThreadCount(1); }
    ~CHeldPool() { endWork(); }
    Q_DISABLE_COPY(CHeldPool)

    QThreadPool& pool() { return m_pool; }

    /// Called by the work.
    void hold()
    {
        m_isHolding = true;
        acquireSoon(m_gate);
        m_isHolding = false;
    }

    /// Waits until the first work, if there is any, is held.
    void settle()
    {
        waitUntil("the work begins", [this] { return m_isHolding || m_pool.activeThreadCount() == 0; });
    }

    /// Lets all work end, and what that makes begin.
    void endWork()
    {
        m_gate.release(1000000); // more than there is
        if (!m_pool.waitForDone(longestWait))
            qFatal("The work does not end.");
        m_gate.acquire(m_gate.available());
    }

private:
    std::atomic<bool> m_isHolding{false};
    QSemaphore m_gate;
    QThreadPool m_pool; // the last, as its thread uses the others
};

/// A worker of a world. Some frames fail, and some have no result. Looks in its hooks whether its counts add up, and
/// whether what goes out is in order.
class CWorldWorker : public CNamedTestModelOf<Plugin::Halvex::AWorkerNodeDataModel>
{
public:
    explicit CWorldWorker(CHeldPool& pool)
        : CNamedTestModelOf(1, 1, QString::fromLatin1(nameOf(EKind::Worker)))
        , m_pool(pool)
    {
        using Plugin::Halvex::AWorkerNodeDataModel;
        using Plugin::Halvex::CNodeDataModel;
        QObject::connect(this, &CNodeDataModel::dataUpdated, [this] { checkOrder(); });
        hookUp(*this);
        setThreadPool(&pool.pool());
        onPorts = [this, hook = onPorts] { ask(hook); };
        onSetInData = [this, hear = onSetInData](const CNodeDataPtr& data, int port) {
            const QPointer<CWorldWorker> self(this);
            hear(data, port);
            if (self)
                feed(data);
        };
        onOutData = [this](int) {
            IHookListener::call(EHook::OutData, this);
            return output();
        };
        onIsUnique = [this] { IHookListener::call(EHook::IsUnique, this); };
        hear(EHook::ComputingStarted, &CNodeDataModel::computingStarted);
        hear(EHook::ComputingFinished, &CNodeDataModel::computingFinished);
        hear(EHook::DataInvalidated, &CNodeDataModel::dataInvalidated);
        hear(EHook::SettingChanged, &AWorkerNodeDataModel::policyChanged);
        hear(EHook::SettingChanged, &AWorkerNodeDataModel::mostWaitingChanged);
        hear(EHook::SettingChanged, &AWorkerNodeDataModel::parallelismChanged);
    }
    ~CWorldWorker() override
    {
        checkCounts();
        m_pool.settle(); // or it is left to chance whether its work has begun
    }

    /// As a walk does, but that nothing is received. Takes what is newer than all before, so that a loop ends.
    void feed(CNodeDataPtr data)
    {
        const int value = CTestData::valueOf(data);
        if (m_isAsked)
            return; // what comes in its own answer to a question would come before what it was asked for
        if (data && value / perSending <= std::exchange(m_lastIn, qMax(m_lastIn, value / perSending)))
            return;
        AWorkerNodeDataModel::setInData(std::move(data), 0); // NOLINT(bugprone-parent-virtual-call): or it is received
    }

    void letResultsArrive()
    {
        m_pool.endWork();
        QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    }

    void restore(const QJsonObject& json) override
    {
        const QPointer<CWorldWorker> self(this);
        CNamedTestModelOf::restore(json);
        if (!self)
            return;
        // Past the test model, which keeps the document only. NOLINTNEXTLINE(bugprone-parent-virtual-call)
        AWorkerNodeDataModel::restore(json); // clazy:exclude=skipped-base-method
    }

    // NOLINTNEXTLINE(bugprone-parent-virtual-call): without the hook
    CNodeDataPtr output() { return AWorkerNodeDataModel::outData(0); }

    bool areCountsRight() const
    {
        const Plugin::Halvex::SWorkerStatistics counts = statistics();
        return counts.received == counts.emitted + counts.dropped + counts.cancelled + counts.failed + counts.pending;
    }

protected:
    Work makeWork() const override
    {
        CHeldPool& pool = m_pool;
        ask([this] { IHookListener::call(EHook::MakeWork, this); });
        return [&pool](const Inputs& inputs) {
            pool.hold();
            const int value = CTestData::valueOf(inputs.front());
            if (value / perSending % 5 == 4)
                throw SFailure();
            return value / perSending % 7 == 3 ? CNodeDataPtr() : CNodeDataPtr(makeData(value));
        };
    }

private:
    struct SFailure : std::exception
    {
    };

    template <typename Signal>
    void hear(EHook hook, Signal signal)
    {
        QObject::connect(this, signal, [this, hook] {
            checkCounts();
            IHookListener::call(hook, this);
        });
    }

    void ask(const std::function<void()>& hook) const
    {
        const QPointer<const CWorldWorker> self(this);
        const bool before = std::exchange(m_isAsked, true);
        hook();
        if (self)
            m_isAsked = before;
    }

    void checkCounts() const
    {
        if (!areCountsRight())
            IHookListener::complain("the counts of a worker do not add up");
    }

    /// What comes in gets newer and newer. A handler may have a result sent again.
    void checkOrder()
    {
        checkCounts();
        const int value = CTestData::valueOf(output()) / perSending;
        if (value < std::exchange(m_lastOut, value))
            IHookListener::complain("a result of a worker came too late");
    }

    CHeldPool& m_pool;
    mutable bool m_isAsked = false;
    int m_lastIn = 0;
    int m_lastOut = 0;
};
