// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/SWorkerStatistics.h>

#include "CWorkerModel.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <algorithm>
#include <utility>
#include <vector>

using namespace Plugin::Halvex;

namespace {

void sendAndWait(CWorkerModel& model, CNodeDataPtr data)
{
    QSignalSpy sent(&model, &CNodeDataModel::dataUpdated);
    model.setInData(std::move(data), 0);
    QVERIFY(sent.wait());
}

/// The smallest of \a times that so many in a hundred do not exceed.
qint64 percentile(std::vector<qint64> times, std::size_t percent)
{
    std::sort(times.begin(), times.end());
    const std::size_t covered = (times.size() * percent + 99) / 100;
    return times[covered - 1];
}

} // namespace

class tst_SWorkerStatistics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void timesAreNoneBeforeTheFirstFrame();
    void timesAreThoseOfTheFrames();
    void timesLeaveOutWhatTheEndOfInputsTakes();
};

void tst_SWorkerStatistics::timesAreNoneBeforeTheFirstFrame()
{
    const CWorkerModel model;
    QCOMPARE(model.statistics().workSum, qint64(0));
    QCOMPARE(model.statistics().workP50, qint64(0));
    QCOMPARE(model.statistics().workP99, qint64(0));
}

void tst_SWorkerStatistics::timesAreThoseOfTheFrames()
{
    QElapsedTimer clock;
    clock.start();
    CWorkerModel model;
    // Half of the last 1024 are long ones when the first leaves them: one more or less is another median.
    model.setWork([](const auto& inputs) {
        if (CTestData::valueOf(inputs.front()) <= 513)
            QThread::usleep(50);
        return CWorkerModel::addUp(inputs);
    });
    std::vector<qint64> times;
    qint64 sum = 0;
    for (int frame = 1; frame <= 1030; ++frame) {
        sendAndWait(model, CTestData::make(frame));
        const SWorkerStatistics counts = model.statistics();
        times.push_back(counts.workSum - sum);
        if (times.size() > 1024)
            times.erase(times.begin());
        sum = counts.workSum;
        QVERIFY(times.back() > 0);
        QCOMPARE(counts.workP50, percentile(times, 50));
        QCOMPARE(counts.workP99, percentile(times, 99));
    }
    QVERIFY(sum < clock.nsecsElapsed());
}

void tst_SWorkerStatistics::timesLeaveOutWhatTheEndOfInputsTakes()
{
    QElapsedTimer clock;
    clock.start();
    CWorkerModel model(1, AWorkerNodeDataModel::EGathering::SameNumber); // it keeps no input for later frames
    qint64 passed = 0;
    auto data = CTestData::make(1);
    data->onDestroyed = [&clock, &passed] {
        passed = clock.nsecsElapsed();
        while (clock.nsecsElapsed() < 2 * passed)
            QThread::yieldCurrentThread();
    };
    sendAndWait(model, std::move(data));
    QVERIFY(passed > 0);
    QVERIFY(model.statistics().workSum < passed);
}

QTEST_GUILESS_MAIN(tst_SWorkerStatistics)
#include "tst_SWorkerStatistics.moc"
