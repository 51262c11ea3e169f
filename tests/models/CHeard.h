// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/CTestData.h"

#include <Halvex/models/CDecoupler.h>

#include <QMutex>
#include <QTest>
#include <QVector>
#include <QWaitCondition>

#include <functional>
#include <memory>
#include <utility>

/// Whether each data that was received is counted once more.
inline bool addsUp(const Plugin::Halvex::SDecouplerStatistics& counts)
{
    return counts.received == counts.emitted + counts.dropped + counts.cancelled + counts.pending &&
           counts.pending <= 1;
}

/// "received emitted dropped cancelled pending".
inline QString countsOf(const Plugin::Halvex::SDecouplerStatistics& counts)
{
    QStringList numbers;
    for (const quint64 number : {counts.received, counts.emitted, counts.dropped, counts.cancelled, counts.pending})
        numbers << QString::number(number);
    return numbers.join(' ');
}

/// Data that runs \a onDestroyed when it goes.
inline QSharedPointer<CTestData> dataWith(int value, std::function<void()> onDestroyed)
{
    auto data = CTestData::make(value);
    data->onDestroyed = std::move(onDestroyed);
    return data;
}

/// A decoupler that notes what it emits, on the worker's thread.
class CHeard : public Plugin::Halvex::CDecoupler
{
public:
    explicit CHeard(const std::function<void()>& onEmission = {})
    {
        connect(
            this, &CDecoupler::nodeDataAvailable, this,
            [notes = m_notes, onEmission](const Plugin::Halvex::CNodeDataPtr& data) {
                {
                    const QMutexLocker lock(&notes->mutex);
                    notes->values << CTestData::valueOf(data);
                    notes->thread = QThread::currentThread();
                    notes->grown.wakeAll();
                }
                if (onEmission)
                    onEmission();
            },
            Qt::DirectConnection);
    }

    void give(int value) { setNodeData(CTestData::make(value)); }
    void giveNothing() { setNodeData(Plugin::Halvex::CNodeDataPtr()); }

    /// Is throttled from then on, and its worker has used up the only tick to emit 0.
    void emitOnce()
    {
        enableThrottle(true);
        throttleTimerTick();
        give(0);
        QVERIFY(hears(1));
    }

    QVector<int> values() const
    {
        const QMutexLocker lock(&m_notes->mutex);
        return m_notes->values;
    }

    /// The thread that has emitted; null before it did.
    QThread* emittedIn() const
    {
        const QMutexLocker lock(&m_notes->mutex);
        return m_notes->thread;
    }

    /// Whether there are \a count values, now or in a while.
    bool hears(int count) const
    {
        const QMutexLocker lock(&m_notes->mutex);
        while (m_notes->values.size() < count) {
            if (!m_notes->grown.wait(&m_notes->mutex, 20000))
                return false;
        }
        return true;
    }

    QString counts() const { return countsOf(statistics()); }

private:
    struct SNotes
    {
        QMutex mutex;
        QWaitCondition grown;
        QVector<int> values;
        QThread* thread = nullptr;
    };
    std::shared_ptr<SNotes> m_notes = std::make_shared<SNotes>(); // the worker may end later than this object
};
