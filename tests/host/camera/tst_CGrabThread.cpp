// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/CGrabThread.h"

#include "TestCamera.h"

#include <QSignalSpy>
#include <QTest>

#include <set>
#include <vector>

using namespace Host;
using namespace std::chrono_literals;

namespace {

// A source that gives a frame of each number, and for 0 an incomplete one.
class CNumberedSource : public IFrameSource
{
public:
    explicit CNumberedSource(std::vector<quint64> numbers)
        : m_numbers(std::move(numbers))
    {
    }

    QString description() const override { return QStringLiteral("numbered frames"); }
    QString pixelFormat() const override { return QStringLiteral("Mono8"); }
    bool start(QString*) override { return true; }
    SGrab grab(std::chrono::milliseconds) override
    {
        if (m_next == m_numbers.size())
            return SGrab::none(EGrab::Ended);
        Veltra::SGrabResult frame;
        frame.frameNumber = m_numbers[m_next++];
        if (frame.frameNumber == 0)
            return SGrab::none(EGrab::Incomplete);
        return {EGrab::Frame, Veltra::CGrabResultPtr(std::move(frame)), {}, {}};
    }
    quint64 underruns() const override { return 0; }
    QString stallText(const QString& time, EStall, const SGrabStatistics&) const override { return time; }

private:
    const std::vector<quint64> m_numbers;
    std::size_t m_next = 0;
};

// Gives what it is told to, each after a while, then three frames, and ends as it is told to.
class CShortSource : public IFrameSource
{
public:
    struct SStep
    {
        EGrab status;
        int waitMs;
    };
    CShortSource(std::vector<SStep> steps, SGrab end)
        : m_steps(std::move(steps))
        , m_end(std::move(end))
    {
    }

    QString description() const override { return QStringLiteral("three frames"); }
    QString pixelFormat() const override { return QStringLiteral("Mono8"); }
    bool start(QString*) override { return true; }
    SGrab grab(std::chrono::milliseconds) override
    {
        const std::size_t at = m_grabs++;
        if (at < m_steps.size()) {
            QThread::msleep(ulong(m_steps[at].waitMs));
            return SGrab::none(m_steps[at].status);
        }
        if (at >= m_steps.size() + 3)
            return m_end;
        return {EGrab::Frame, Veltra::CGrabResultPtr(Veltra::SGrabResult()), std::make_shared<int>(1), {}};
    }
    quint64 underruns() const override { return 0; }
    QString stallText(const QString& time, EStall stall, const SGrabStatistics&) const override
    {
        return (stall == EStall::Silent ? QStringLiteral("silent for ") : QStringLiteral("nothing whole for ")) + time;
    }

private:
    const std::vector<SStep> m_steps;
    const SGrab m_end;
    std::size_t m_grabs = 0;
};

// How a thread ends whose source does all that before it gives three frames and runs out.
QString endOf(std::vector<CShortSource::SStep> steps, std::chrono::milliseconds silence,
              std::chrono::milliseconds timeout)
{
    CShortSource source(std::move(steps), IFrameSource::SGrab::none(IFrameSource::EGrab::Ended));
    CGrabThread thread(source, 0, silence, [](const CGrabThread::SFrame&) {});
    thread.setTimeout(timeout);
    QSignalSpy ended(&thread, &CGrabThread::ended);
    thread.start();
    return QTest::qWaitFor([&] { return ended.count() == 1; }, 30000) ? ended.at(0).at(0).toString()
                                                                      : QStringLiteral("not at all");
}

} // namespace

class tst_CGrabThread : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beforeItStarts();
    void endsAfterTheFramesAskedFor();
    void endedComesBehindWhatTheHandlerQueued();
    void endsWhenAskedTo();
    void destructorEndsIt();
    void silentCameraHasGone();
    void cameraWithoutAWholeFrame();
    void silenceBehindAnIncompleteFrameIsSilence();
    void slowHandlerIsNoSilence();
    void starvingCameraHasNotGone();
    void starvingCameraTimesOut();
    void numbersTellOfMissedFrames();
    void sourceThatRunsOutEndsIt();
    void sourceThatFailsEndsIt();
};

void tst_CGrabThread::beforeItStarts()
{
    const auto camera = startFake();
    const CGrabThread thread(*camera, 1, 5s, [](const CGrabThread::SFrame&) {});
    const SGrabStatistics statistics = thread.statistics();
    QCOMPARE(statistics.grabbed + statistics.complete + statistics.incomplete + statistics.underruns, quint64(0));
    QCOMPARE(thread.span().count(), std::chrono::nanoseconds::rep(0));
}

void tst_CGrabThread::endsAfterTheFramesAskedFor()
{
    const auto camera = startFake();
    std::set<quint64> numbers; // the handler's until the thread has ended
    bool inOrder = true;
    std::chrono::steady_clock::time_point last;
    CGrabThread thread(*camera, 25, 5s, [&](const CGrabThread::SFrame& frame) {
        numbers.insert(frame.result->frameNumber);
        inOrder = inOrder && frame.result->complete && frame.grabbed > last;
        last = frame.grabbed;
    });
    QSignalSpy ended(&thread, &CGrabThread::ended);
    QVERIFY(ended.isValid());
    thread.start();
    QVERIFY(thread.wait(30000));

    QTRY_COMPARE(ended.count(), 1);
    QCOMPARE(ended.at(0).at(0).toString(), QString());
    QCOMPARE(numbers.size(), std::size_t(25));
    QCOMPARE(thread.statistics().missed, quint64(0));
    QVERIFY(inOrder);
    QCOMPARE(thread.statistics().complete, quint64(25));
    QCOMPARE(thread.statistics().grabbed, thread.statistics().complete + thread.statistics().incomplete);
    // 24 intervals of 5 ms; a busy machine may take longer, none takes less than half.
    QVERIFY(thread.span() >= 60ms);
}

void tst_CGrabThread::endedComesBehindWhatTheHandlerQueued()
{
    const auto camera = startFake();
    QObject here;
    int handled = 0;
    int handledAtTheEnd = -1;
    CGrabThread thread(*camera, 40, 5s, [&](const CGrabThread::SFrame&) {
        QMetaObject::invokeMethod(
            &here, [&handled] { ++handled; }, Qt::QueuedConnection);
    });
    connect(
        &thread, &CGrabThread::ended, this, [&] { handledAtTheEnd = handled; }, Qt::QueuedConnection);
    thread.start();
    // Nothing is handled before the thread has ended, so all of it is in the queue at once.
    QVERIFY(thread.wait(30000));
    QCOMPARE(handled, 0);
    QTRY_COMPARE(handledAtTheEnd, 40);
}

void tst_CGrabThread::endsWhenAskedTo()
{
    const auto camera = startFake();
    CGrabThread thread(*camera, 1000000, 5s, [](const CGrabThread::SFrame&) {});
    QSignalSpy ended(&thread, &CGrabThread::ended);
    thread.start();
    QTRY_VERIFY(thread.statistics().complete > 0);
    QCOMPARE(ended.count(), 0);
    thread.requestInterruption();
    QTRY_COMPARE(ended.count(), 1);
    QCOMPARE(ended.at(0).at(0).toString(), QString());
}

void tst_CGrabThread::destructorEndsIt()
{
    const auto camera = startFake();
    std::atomic<int> calls{0};
    {
        CGrabThread thread(*camera, 1000000, 5s, [&](const CGrabThread::SFrame&) { ++calls; });
        thread.start();
        QTRY_VERIFY(calls > 0);
    }
    // Frames come again, and nobody but this test takes them.
    const int before = calls;
    QCOMPARE(camera->grab(5s).status, CAravisCamera::EGrab::Frame);
    QCOMPARE(calls.load(), before);
}

void tst_CGrabThread::silentCameraHasGone()
{
    // Two seconds lie between two frames, so that at most one comes before the silence is too long.
    const auto camera = startFake(16, 0.5);
    CGrabThread thread(*camera, 2, 300ms, [](const CGrabThread::SFrame&) {});
    QSignalSpy ended(&thread, &CGrabThread::ended);
    thread.start();
    QTRY_COMPARE(ended.count(), 1);
    // It has gone if that one came, else it sends nothing.
    QVERIFY2(ended.at(0).at(0).toString().contains(QLatin1String(": no frame for 0.3 s")),
             qPrintable(ended.at(0).at(0).toString()));
}

void tst_CGrabThread::cameraWithoutAWholeFrame()
{
    const std::vector<CShortSource::SStep> incomplete(3, {IFrameSource::EGrab::Incomplete, 10});
    QCOMPARE(endOf(incomplete, 1h, 20ms), QStringLiteral("nothing whole for 0.02 s"));
    QCOMPARE(endOf(incomplete, 1h, 1h), QString());
}

// Its cable is pulled in the middle of a frame. From then on only the silence says whether it has gone.
void tst_CGrabThread::silenceBehindAnIncompleteFrameIsSilence()
{
    using EGrab = IFrameSource::EGrab;
    std::vector<CShortSource::SStep> steps(6, {EGrab::Timeout, 100});
    steps.front() = {EGrab::Incomplete, 0};
    QCOMPARE(endOf(steps, 400ms, 300ms), QStringLiteral("silent for 0.4 s"));
    QCOMPARE(endOf(steps, 1h, 300ms), QString());
}

// Nor is a process that was stopped for a while.
void tst_CGrabThread::slowHandlerIsNoSilence()
{
    const auto camera = startFake();
    CGrabThread thread(*camera, 2, 300ms, [](const CGrabThread::SFrame&) { QThread::msleep(400); });
    thread.setTimeout(300ms);
    QSignalSpy ended(&thread, &CGrabThread::ended);
    thread.start();
    QTRY_COMPARE(ended.count(), 1);
    QCOMPARE(ended.at(0).at(0).toString(), QString());
    QCOMPARE(thread.statistics().complete, quint64(2));
}

void tst_CGrabThread::starvingCameraHasNotGone()
{
    const auto camera = startFake(2);
    std::vector<Veltra::CGrabResultPtr> held; // the handler's until all buffers are in it
    CGrabThread thread(*camera, 3, 500ms, [&](const CGrabThread::SFrame& frame) { held.push_back(frame.result); });
    QSignalSpy ended(&thread, &CGrabThread::ended);
    thread.start();
    // Far more frames are lost than the silence has room for, and still the camera counts as there.
    QTRY_VERIFY(thread.statistics().underruns > 200);
    QCOMPARE(ended.count(), 0);
    QCOMPARE(thread.statistics().complete, quint64(2));
    held.clear();
    QTRY_COMPARE(ended.count(), 1);
    QCOMPARE(ended.at(0).at(0).toString(), QString());
    QCOMPARE(thread.statistics().complete, quint64(3));
}

// Nothing whole comes, whatever the camera sends.
void tst_CGrabThread::starvingCameraTimesOut()
{
    const auto camera = startFake(1);
    std::vector<Veltra::CGrabResultPtr> held; // the handler's
    CGrabThread thread(*camera, 3, 300ms, [&](const CGrabThread::SFrame& frame) { held.push_back(frame.result); });
    thread.setTimeout(300ms);
    QSignalSpy ended(&thread, &CGrabThread::ended);
    thread.start();
    QTRY_COMPARE(ended.count(), 1);
    QCOMPARE(ended.at(0).at(0).toString(),
             QStringLiteral("the graph holds as many frames of camera 'fake' as may be in flight (1), and gave none "
                            "back for 0.3 s; try more (--buffers 4), or a longer --timeout"));
    QCOMPARE(thread.statistics().complete, quint64(1));
}

void tst_CGrabThread::numbersTellOfMissedFrames()
{
    // 12 came incomplete, of 16 to 18 nothing came.
    CNumberedSource source({10, 11, 0, 13, 14, 15, 19});
    CGrabThread thread(source, 0, 5s, [](const CGrabThread::SFrame&) {});
    QCOMPARE(thread.statistics().missed, quint64(0));
    thread.start();
    QVERIFY(thread.wait(30000));
    QCOMPARE(thread.statistics().complete, quint64(6));
    QCOMPARE(thread.statistics().incomplete, quint64(1));
    QCOMPARE(thread.statistics().missed, quint64(3));
}

void tst_CGrabThread::sourceThatRunsOutEndsIt()
{
    using EGrab = IFrameSource::EGrab;
    CShortSource source(std::vector<CShortSource::SStep>(50, {EGrab::Away, 1}),
                        IFrameSource::SGrab::none(EGrab::Ended));
    std::vector<std::shared_ptr<const void>> claims; // the handler's until the thread has ended
    // It is away for longer than it may be silent.
    CGrabThread thread(source, 10, 20ms, [&](const CGrabThread::SFrame& frame) { claims.push_back(frame.claim); });
    thread.setTimeout(20ms);
    QVERIFY(!thread.hasRunOut());
    QSignalSpy ended(&thread, &CGrabThread::ended);
    thread.start();
    QTRY_COMPARE(ended.count(), 1);
    QVERIFY(thread.wait(30000));
    QCOMPARE(ended.at(0).at(0).toString(), QString());
    QVERIFY(thread.hasRunOut());
    QCOMPARE(thread.statistics().complete, quint64(3));
    QCOMPARE(claims.size(), std::size_t(3));
    QVERIFY(claims.front());
}

void tst_CGrabThread::sourceThatFailsEndsIt()
{
    CShortSource source({}, IFrameSource::SGrab::none(IFrameSource::EGrab::Lost, QStringLiteral("it broke")));
    CGrabThread thread(source, 10, 5s, [](const CGrabThread::SFrame&) {});
    QSignalSpy ended(&thread, &CGrabThread::ended);
    thread.start();
    QTRY_COMPARE(ended.count(), 1);
    QCOMPARE(ended.at(0).at(0).toString(), QStringLiteral("it broke"));
    QVERIFY(!thread.hasRunOut());
}

QTEST_GUILESS_MAIN(tst_CGrabThread)
#include "tst_CGrabThread.moc"
