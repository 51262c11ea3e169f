// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/CReconnectingCamera.h"

#include <QTest>

#include <vector>

using namespace Host;
using namespace std::chrono_literals;
using EGrab = IFrameSource::EGrab;

namespace {

// Gives what it is told to, and then for ever what comes last in the list.
class CListedCamera : public IFrameSource
{
public:
    CListedCamera(std::vector<EGrab> grabs, QString format, quint64 underruns)
        : m_grabs(std::move(grabs))
        , m_format(std::move(format))
        , m_underruns(underruns)
    {
    }

    QString description() const override { return QStringLiteral("the camera"); }
    QString pixelFormat() const override { return m_format; }
    bool start(QString*) override { return true; }
    SGrab grab(std::chrono::milliseconds) override
    {
        SGrab grab;
        grab.status = m_grabs[std::min(m_next++, m_grabs.size() - 1)];
        if (grab.status == EGrab::Lost)
            grab.error = QStringLiteral("gone");
        return grab;
    }
    quint64 underruns() const override { return m_next >= 2 ? m_underruns : 0; }
    QString stallText(const QString& time, EStall, const SGrabStatistics&) const override
    {
        return QStringLiteral("silent for ") + time;
    }

private:
    const std::vector<EGrab> m_grabs;
    const QString m_format;
    const quint64 m_underruns; // from the second grab on
    std::size_t m_next = 0;
};

// Cameras one after the other, as they are opened; null: cannot be opened.
struct SCameras
{
    std::unique_ptr<CReconnectingCamera> open(std::chrono::milliseconds silence, std::chrono::milliseconds patience)
    {
        QString error;
        auto camera = CReconnectingCamera::open(
            [this](QString* reason) {
                *reason = QStringLiteral("no answer");
                return opened < cameras.size() ? std::move(cameras[opened++]) : nullptr;
            },
            silence, patience, &error);
        if (!camera || !camera->start(&error))
            qFatal("%s", qPrintable(error));
        return camera;
    }

    void add(std::vector<EGrab> grabs, const char* format = "Mono8", quint64 underruns = 0)
    {
        cameras.push_back(std::make_unique<CListedCamera>(std::move(grabs), QString(format), underruns));
    }

    std::vector<std::unique_ptr<IFrameSource>> cameras;
    std::size_t opened = 0;
};

} // namespace

class tst_CReconnectingCamera : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void goesOnWhenItComesBack();
    void silenceAfterFramesIsGoing();
    void doesNotComeBackInTime();
    void comesBackAsAnother();
    void cannotBeOpenedAtFirst();

private:
    // Grabs until something else comes than Away.
    static IFrameSource::SGrab grabThrough(CReconnectingCamera& camera)
    {
        IFrameSource::SGrab grab = camera.grab(1ms);
        while (grab.status == EGrab::Away)
            grab = camera.grab(1ms);
        return grab;
    }
};

void tst_CReconnectingCamera::goesOnWhenItComesBack()
{
    SCameras cameras;
    cameras.add({EGrab::Frame, EGrab::Lost}, "Mono8", 1);
    cameras.cameras.push_back(nullptr);
    cameras.add({EGrab::Timeout, EGrab::Frame, EGrab::Lost}, "Mono8", 5);
    cameras.add({EGrab::Incomplete, EGrab::Timeout}, "Mono8", 20);
    const auto camera = cameras.open(60s, 60s);
    QCOMPARE(camera->description(), QStringLiteral("the camera"));
    QCOMPARE(camera->grab(1ms).status, EGrab::Frame);
    QCOMPARE(camera->absences().count, 0);
    QCOMPARE(camera->grab(1ms).status, EGrab::Away);
    QVERIFY(camera->absences().isAway);
    QCOMPARE(grabThrough(*camera).status, EGrab::Frame);
    QCOMPARE(camera->absences().count, 1);
    QVERIFY(!camera->absences().isAway);
    QVERIFY(camera->absences().total >= 1ms);
    QCOMPARE(grabThrough(*camera).status, EGrab::Incomplete);
    QCOMPARE(camera->absences().count, 2);
    QCOMPARE(camera->grab(1ms).status, EGrab::Timeout);
    // Of all three together.
    QCOMPARE(camera->underruns(), quint64(26));
}

void tst_CReconnectingCamera::silenceAfterFramesIsGoing()
{
    SCameras cameras;
    cameras.add({EGrab::Frame, EGrab::Timeout});
    cameras.add({EGrab::Timeout});
    const auto camera = cameras.open(10ms, 60ms);
    QCOMPARE(camera->grab(1ms).status, EGrab::Frame);
    QTRY_COMPARE(camera->grab(1ms).status, EGrab::Away);
    // It can be opened, but gives nothing.
    IFrameSource::SGrab grab = grabThrough(*camera);
    QCOMPARE(cameras.opened, std::size_t(2));
    QCOMPARE(grab.status, EGrab::Lost);
    QCOMPARE(grab.error, QStringLiteral("silent for 0.01 s; it did not come back for 0.06 s"));
}

void tst_CReconnectingCamera::doesNotComeBackInTime()
{
    SCameras cameras;
    cameras.add({EGrab::Frame, EGrab::Lost});
    const auto camera = cameras.open(60s, 20ms);
    QCOMPARE(camera->grab(1ms).status, EGrab::Frame);
    const IFrameSource::SGrab grab = grabThrough(*camera);
    QCOMPARE(grab.status, EGrab::Lost);
    QCOMPARE(grab.error, QStringLiteral("gone; it did not come back for 0.02 s"));
}

void tst_CReconnectingCamera::comesBackAsAnother()
{
    SCameras cameras;
    cameras.add({EGrab::Frame, EGrab::Lost});
    cameras.add({EGrab::Frame}, "RGB8");
    const auto camera = cameras.open(60s, 20ms);
    QCOMPARE(camera->grab(1ms).status, EGrab::Frame);
    QCOMPARE(grabThrough(*camera).status, EGrab::Lost);
    QCOMPARE(cameras.opened, std::size_t(2));
}

void tst_CReconnectingCamera::cannotBeOpenedAtFirst()
{
    QString error;
    const auto none = [](QString* reason) {
        *reason = QStringLiteral("no answer");
        return std::unique_ptr<IFrameSource>();
    };
    QVERIFY(!CReconnectingCamera::open(none, 1s, 1s, &error));
    QCOMPARE(error, QStringLiteral("no answer"));
}

QTEST_GUILESS_MAIN(tst_CReconnectingCamera)
#include "tst_CReconnectingCamera.moc"
