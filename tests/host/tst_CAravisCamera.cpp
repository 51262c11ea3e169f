// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/CAravisCamera.h"

#include "TestPattern.h"
#include "support/BoundedWait.h"

#include <arv.h>

#include <QTest>

#include <set>
#include <vector>

using namespace Host;
using namespace std::chrono_literals;

namespace {

SCameraOptions fastFake(int buffers = 16)
{
    SCameraOptions options;
    options.framesPerSecond = 200;
    options.buffers = buffers;
    return options;
}

std::unique_ptr<CAravisCamera> startedFake(int buffers = 16)
{
    QString error;
    auto camera = CAravisCamera::open(fastFake(buffers), &error);
    if (!camera || !camera->start(&error))
        qWarning("%s", qPrintable(error));
    return camera;
}

Veltra::CGrabResultPtr nextFrame(CAravisCamera& camera)
{
    return camera.grab(5s).frame;
}

ArvBuffer* bufferOf(const Veltra::CGrabResultPtr& frame)
{
    return static_cast<ArvBuffer*>(const_cast<void*>(frame->owner.get()));
}

} // namespace

class tst_CAravisCamera : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fakeAddresses_data();
    void fakeAddresses();
    void severalFakeCamerasAtOnce();
    void defaultOptionsOpenTheFakeCamera();
    void stoppedCameraHasNoBuffers();
    void framesArriveCompleteWithTheirGeometry();
    void pixelFormat_data();
    void pixelFormat();
    void pixelsAreNotCopied();
    void heldFramesStarveTheCamera();
    void handleOutlivesTheCamera();
    void handleOutlivesARestart();
    void framesDroppedWhileTheCameraGoes();
    void refusedOptions_data();
    void refusedOptions();
    void startTwice();
};

void tst_CAravisCamera::fakeAddresses_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<bool>("isFake");
    QTest::newRow("alone") << "fake" << true;
    QTest::newRow("first") << "fake-1" << true;
    QTest::newRow("twentieth") << "fake-20" << true;
    QTest::newRow("number zero") << "fake-0" << false;
    QTest::newRow("no number") << "fake-" << false;
    QTest::newRow("word") << "fake-one" << false;
    QTest::newRow("host") << "fake-1.example.org" << false;
    QTest::newRow("line break") << "fake-1\n" << false;
    QTest::newRow("address") << "127.0.0.1" << false;
}

void tst_CAravisCamera::fakeAddresses()
{
    QFETCH(QString, address);
    QFETCH(bool, isFake);
    QCOMPARE(SCameraOptions::isFake(address), isFake);
}

void tst_CAravisCamera::severalFakeCamerasAtOnce()
{
    std::vector<std::unique_ptr<CAravisCamera>> cameras;
    for (const char* address : {"fake", "fake-1", "fake-2"}) {
        SCameraOptions options;
        options.address = QString::fromLatin1(address);
        QString error;
        cameras.push_back(CAravisCamera::open(options, &error));
        QVERIFY2(cameras.back() && cameras.back()->start(&error), qPrintable(error));
        QCOMPARE(cameras.back()->name(), QStringLiteral("Aravis Fake (%1)").arg(options.address));
    }
    for (int i = 0; i < 5; ++i) {
        for (const auto& camera : cameras) {
            const CAravisCamera::SGrab grab = camera->grab(std::chrono::seconds(5));
            QCOMPARE(grab.status, CAravisCamera::EGrab::Frame);
            QVERIFY(showsTestPattern(*grab.frame));
        }
    }
}

void tst_CAravisCamera::defaultOptionsOpenTheFakeCamera()
{
    QString error;
    const auto camera = CAravisCamera::open({}, &error);
    QVERIFY2(camera, qPrintable(error));
    QCOMPARE(camera->address(), QStringLiteral("fake"));
    QCOMPARE(camera->name(), QStringLiteral("Aravis Fake (fake)"));
    QCOMPARE(camera->width(), 512);
    QCOMPARE(camera->height(), 512);
    QCOMPARE(camera->pixelFormat(), QStringLiteral("Mono8"));
}

void tst_CAravisCamera::stoppedCameraHasNoBuffers()
{
    QString error;
    const auto camera = CAravisCamera::open({}, &error);
    QCOMPARE(camera->freeBuffers(), 0);
    QCOMPARE(camera->underruns(), quint64(0));
    camera->stop();
}

void tst_CAravisCamera::framesArriveCompleteWithTheirGeometry()
{
    const auto camera = startedFake();
    std::set<quint64> numbers;
    for (int i = 0; i < 20; ++i) {
        const CAravisCamera::SGrab grab = camera->grab(5s);
        QCOMPARE(grab.status, CAravisCamera::EGrab::Frame);
        QVERIFY(grab.frame->complete);
        QCOMPARE(grab.frame->width, 512);
        QCOMPARE(grab.frame->height, 512);
        QCOMPARE(grab.frame->stride, 512);
        QCOMPARE(grab.frame->size, std::size_t(512 * 512));
        QCOMPARE(grab.frame->pixelFormat, QStringLiteral("Mono8"));
        QVERIFY(grab.frame->timestampNs > 0);
        QVERIFY(showsTestPattern(*grab.frame));
        numbers.insert(grab.frame->frameNumber);
    }
    QCOMPARE(numbers.size(), std::size_t(20));
}

void tst_CAravisCamera::pixelFormat_data()
{
    QTest::addColumn<int>("stride");
    QTest::newRow("Mono16") << 1024;
    QTest::newRow("RGB8") << 1536;
    QTest::newRow("BayerRG8") << 512;
    QTest::newRow("BayerGR8") << 512;
    QTest::newRow("BayerGB8") << 512;
    QTest::newRow("BayerBG8") << 512;
}

void tst_CAravisCamera::pixelFormat()
{
    QFETCH(int, stride);
    SCameraOptions options = fastFake();
    options.pixelFormat = QString::fromLatin1(QTest::currentDataTag());
    QString error;
    const auto camera = CAravisCamera::open(options, &error);
    QVERIFY2(camera && camera->start(&error), qPrintable(error));
    QCOMPARE(camera->pixelFormat(), options.pixelFormat);
    const Veltra::CGrabResultPtr frame = nextFrame(*camera);
    QVERIFY(frame);
    QCOMPARE(frame->pixelFormat, options.pixelFormat);
    QCOMPARE(frame->stride, stride);
    QCOMPARE(frame->size, std::size_t(stride) * 512);
}

void tst_CAravisCamera::pixelsAreNotCopied()
{
    const auto camera = startedFake();
    const Veltra::CGrabResultPtr frame = nextFrame(*camera);
    QVERIFY(frame);
    std::size_t size = 0;
    const void* inBuffer = arv_buffer_get_data(bufferOf(frame), &size);
    QCOMPARE(static_cast<const void*>(frame->pixels), inBuffer);
    QCOMPARE(frame->size, size);
}

void tst_CAravisCamera::heldFramesStarveTheCamera()
{
    constexpr int buffers = 4;
    const auto camera = startedFake(buffers);
    std::vector<Veltra::CGrabResultPtr> held;
    held.reserve(buffers);
    for (int i = 0; i < buffers; ++i)
        held.push_back(nextFrame(*camera));
    QVERIFY(held.back());

    QCOMPARE(camera->freeBuffers(), 0);
    const quint64 before = camera->underruns();
    QTRY_VERIFY(camera->underruns() >= before + 3);
    const CAravisCamera::SGrab starved = camera->grab(1ms);
    QCOMPARE(starved.status, CAravisCamera::EGrab::Timeout);
    QVERIFY(!starved.frame);

    // A copy of the handle keeps the buffer out; the last one brings it back.
    const void* buffer = held.front()->owner.get();
    Veltra::CGrabResultPtr copy = held.front();
    held.erase(held.begin());
    QCOMPARE(camera->grab(1ms).status, CAravisCamera::EGrab::Timeout);
    copy = {};
    const Veltra::CGrabResultPtr next = nextFrame(*camera);
    QVERIFY(next);
    QCOMPARE(next->owner.get(), buffer);
}

void tst_CAravisCamera::handleOutlivesTheCamera()
{
    auto camera = startedFake();
    Veltra::CGrabResultPtr frame = nextFrame(*camera);
    QVERIFY(frame);
    ArvBuffer* buffer = bufferOf(frame);
    bool isFreed = false;
    g_object_weak_ref(
        G_OBJECT(buffer), [](gpointer flag, GObject*) { *static_cast<bool*>(flag) = true; }, &isFreed);

    camera.reset();
    QVERIFY(!isFreed);
    QVERIFY(showsTestPattern(*frame));
    frame = {};
    QVERIFY(isFreed);
}

void tst_CAravisCamera::handleOutlivesARestart()
{
    const auto camera = startedFake(2);
    Veltra::CGrabResultPtr old = nextFrame(*camera);
    camera->stop();
    QString error;
    QVERIFY2(camera->start(&error), qPrintable(error));
    const void* oldBuffer = old->owner.get();
    const Veltra::CGrabResultPtr fresh = nextFrame(*camera);
    QVERIFY(fresh);
    QVERIFY(fresh->owner.get() != oldBuffer);
    // The old buffer belongs to a stream that is gone: it does not join the new one.
    old = {};
    QVERIFY(camera->freeBuffers() <= 1);
    QVERIFY(nextFrame(*camera));
}

void tst_CAravisCamera::framesDroppedWhileTheCameraGoes()
{
    for (int round = 0; round < 10; ++round) {
        auto camera = startedFake(4);
        std::vector<Veltra::CGrabResultPtr> held;
        held.reserve(3);
        for (int i = 0; i < 3; ++i)
            held.push_back(nextFrame(*camera));
        QVERIFY(held.back());
        CTestThread dropper([&held] { held.clear(); });
        camera.reset();
        dropper.join();
    }
}

void tst_CAravisCamera::refusedOptions_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("pixelFormat");
    QTest::addColumn<double>("rate");
    QTest::addColumn<QString>("message");
    QTest::newRow("nobody there") << "127.0.0.3"
                                  << "" << 0.0 << "cannot open camera '127.0.0.3': ";
    QTest::newRow("rate too high") << "fake"
                                   << "" << 1e6 << "camera 'fake' cannot do 1e+06 frames per second, ";
    QTest::newRow("rate too low") << "fake"
                                  << "" << 0.01 << "camera 'fake' cannot do 0.01 frames per second, ";
    QTest::newRow("unknown format") << "fake"
                                    << "Mono9" << 0.0 << "camera 'fake' refuses the pixel format 'Mono9': ";
}

void tst_CAravisCamera::refusedOptions()
{
    QFETCH(QString, address);
    QFETCH(QString, pixelFormat);
    QFETCH(double, rate);
    QFETCH(QString, message);
    SCameraOptions options;
    options.address = address;
    options.pixelFormat = pixelFormat;
    options.framesPerSecond = rate;
    QString error;
    QVERIFY(!CAravisCamera::open(options, &error));
    QVERIFY2(error.startsWith(message), qPrintable(error));
    QVERIFY(error.size() > message.size());
    QVERIFY(!error.contains(QLatin1Char('\n')));
}

void tst_CAravisCamera::startTwice()
{
    const auto camera = startedFake(4);
    const Veltra::CGrabResultPtr frame = nextFrame(*camera);
    QString error;
    QVERIFY(camera->start(&error));
    // The same stream goes on, with the one buffer out and no new ones.
    QVERIFY(camera->freeBuffers() <= 3);
    QVERIFY(nextFrame(*camera));
    camera->stop();
    camera->stop();
    QCOMPARE(camera->freeBuffers(), 0);
}

QTEST_GUILESS_MAIN(tst_CAravisCamera)
#include "tst_CAravisCamera.moc"
