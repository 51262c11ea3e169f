// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/CAravisCamera.h"

#include "TestCamera.h"
#include "support/BoundedWait.h"

#include <arv.h>

#include <QTest>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <vector>

using namespace Host;
using namespace std::chrono_literals;

namespace {

Veltra::CGrabResultPtr nextFrame(CAravisCamera& camera)
{
    return camera.grab(5s).frame;
}

std::vector<Veltra::CGrabResultPtr> nextFrames(CAravisCamera& camera, int count)
{
    std::vector<Veltra::CGrabResultPtr> frames;
    std::generate_n(std::back_inserter(frames), count, [&camera] { return nextFrame(camera); });
    return frames;
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
    void fakeAddresses();
    void defaultOptionsOpenTheFakeCamera();
    void framesOfSeveralCamerasArriveComplete();
    void pixelFormat();
    void pixelsAreNotCopied();
    void heldFramesStarveTheCamera();
    void handleOutlivesTheCamera();
    void handleOutlivesARestart();
    void framesDroppedWhileTheCameraGoes();
    void refusedOptions();
    void startTwice();
};

void tst_CAravisCamera::fakeAddresses()
{
    for (const char* address : {"fake", "fake-1", "fake-20"})
        QVERIFY2(SCameraOptions::isFake(address), address);
    for (const char* address : {"fake-0", "fake-", "fake-one", "fake-1.example.org", "fake-1\n", "127.0.0.1"})
        QVERIFY2(!SCameraOptions::isFake(address), address);
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
    // It has not started.
    QCOMPARE(camera->freeBuffers(), 0);
    QCOMPARE(camera->underruns(), quint64(0));
    camera->stop();
}

void tst_CAravisCamera::framesOfSeveralCamerasArriveComplete()
{
    std::vector<std::unique_ptr<CAravisCamera>> cameras;
    for (const char* address : {"fake", "fake-1", "fake-2"}) {
        SCameraOptions options;
        options.address = QString::fromLatin1(address);
        options.framesPerSecond = 200;
        cameras.push_back(startCamera(options));
        QCOMPARE(cameras.back()->name(), QStringLiteral("Aravis Fake (%1)").arg(options.address));
    }
    for (const auto& camera : cameras) {
        std::set<quint64> numbers;
        for (int i = 0; i < 10; ++i) {
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
        QCOMPARE(numbers.size(), std::size_t(10));
    }
}

void tst_CAravisCamera::pixelFormat()
{
    // The bytes of a pixel.
    const std::map<QString, int> formats{{"Mono16", 2},   {"RGB8", 3},     {"BayerRG8", 1},
                                         {"BayerGR8", 1}, {"BayerGB8", 1}, {"BayerBG8", 1}};
    for (const auto& format : formats) {
        SCameraOptions options;
        options.pixelFormat = format.first;
        const auto camera = startCamera(options);
        QCOMPARE(camera->pixelFormat(), format.first);
        const Veltra::CGrabResultPtr frame = nextFrame(*camera);
        QVERIFY(frame);
        QCOMPARE(frame->pixelFormat, format.first);
        QCOMPARE(frame->stride, 512 * format.second);
        QCOMPARE(frame->size, std::size_t(512 * 512 * format.second));
    }
}

void tst_CAravisCamera::pixelsAreNotCopied()
{
    const auto camera = startFake();
    const Veltra::CGrabResultPtr frame = nextFrame(*camera);
    QVERIFY(frame);
    std::size_t size = 0;
    const void* inBuffer = arv_buffer_get_data(bufferOf(frame), &size);
    QCOMPARE(static_cast<const void*>(frame->pixels), inBuffer);
    QCOMPARE(frame->size, size);
}

void tst_CAravisCamera::heldFramesStarveTheCamera()
{
    const auto camera = startFake(4);
    auto held = nextFrames(*camera, 4);
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
    auto camera = startFake();
    Veltra::CGrabResultPtr frame = nextFrame(*camera);
    QVERIFY(frame);
    bool isFreed = false;
    const auto onFreed = [](gpointer flag, GObject*) { *static_cast<bool*>(flag) = true; };
    g_object_weak_ref(G_OBJECT(bufferOf(frame)), onFreed, &isFreed);

    camera.reset();
    QVERIFY(!isFreed);
    QVERIFY(showsTestPattern(*frame));
    frame = {};
    QVERIFY(isFreed);
}

void tst_CAravisCamera::handleOutlivesARestart()
{
    const auto camera = startFake(2);
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
        auto camera = startFake(4);
        auto held = nextFrames(*camera, 3);
        QVERIFY(held.back());
        CTestThread dropper([&held] { held.clear(); });
        camera.reset();
        dropper.join();
    }
}

void tst_CAravisCamera::refusedOptions()
{
    QString misspelt;
    QVERIFY(!CAravisCamera::open({"fak", {}, 0.0, 1, {}}, &misspelt));
    QVERIFY2(misspelt.endsWith("; did you mean 'fake'? 'halvex-host cameras' lists them"), qPrintable(misspelt));
    const auto refuse = [](const SCameraOptions& options, const QString& beginning) {
        QString error;
        QVERIFY(!CAravisCamera::open(options, &error));
        QVERIFY2(error.startsWith(beginning), qPrintable(error));
        QVERIFY(error.size() > beginning.size());
        QVERIFY(!error.contains(QLatin1Char('\n')));
    };
    refuse({"127.0.0.3", {}, 0.0, 1, {}}, "cannot open camera '127.0.0.3': ");
    refuse({"fake", {}, 1e6, 1, {}}, "camera 'fake' cannot do 1e+06 frames per second, ");
    refuse({"fake", {}, 0.01, 1, {}}, "camera 'fake' cannot do 0.01 frames per second, ");
    refuse({"fake", "Mono9", 0.0, 1, {}}, "camera 'fake': the feature 'PixelFormat' takes one of ");
}

void tst_CAravisCamera::startTwice()
{
    const auto camera = startFake(4);
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
