// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/CGrabThread.h"

#include "CFakeGigECamera.h"
#include "CHostProgram.h"
#include "TestCamera.h"
#include "TestTable.h"

#include <QSignalSpy>

#include <csignal>

using namespace Host;
using namespace std::chrono_literals;

namespace {

SCameraOptions gigE()
{
    SCameraOptions options;
    options.address = CFakeGigECamera::address();
    return options;
}

// Returns when its frames are counted; false if none ever comes.
bool startLongRun(CHostProgram* program, const QStringList& options = {})
{
    program->start(QStringList{"run", "--camera", CFakeGigECamera::address(), "--frames", "100000"} + options);
    return program->waitForFramesOf(100000);
}

} // namespace

/// A GigE Vision camera over the network: the same camera class, the same grab thread, the same program.
class tst_GigECamera : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void framesArriveComplete();
    void rateThatCannotBeSetIsRefused();
    void cameraOfAnotherProgramIsRefused();
    void nothingIsSetBehindARefusedFeature();
    void incompleteFramesAreCountedAndNeverHandedOn();
    void underrunsAreFrames();
    void cameraThatGoesEndsTheThread();
    void programSkipsIncompleteFrames();
    void programEndsWhenTheCameraGoes();
    void programWaitsForTheCameraToComeBack();
    void programDoesNotWaitForEver();
    void noWholeFrame_data();
    void noWholeFrame();
    void endsAsAskedWithoutAWholeFrame();
    void graphThatHoldsAllBuffers();
    void resend();
};

void tst_GigECamera::framesArriveComplete()
{
    CFakeGigECamera device;
    QVERIFY(device.start());
    const auto camera = startCamera(gigE());
    QCOMPARE(camera->name(), QStringLiteral("Aravis Fake (127.0.0.1)"));
    for (int i = 0; i < 10; ++i) {
        const CAravisCamera::SGrab grab = camera->grab(5s);
        QCOMPARE(grab.status, CAravisCamera::EGrab::Frame);
        QCOMPARE(grab.frame->width, camera->width());
        QCOMPARE(grab.frame->height, camera->height());
        QCOMPARE(grab.frame->pixelFormat, QStringLiteral("Mono8"));
        QVERIFY(showsTestPattern(*grab.frame));
    }
}

void tst_GigECamera::cameraOfAnotherProgramIsRefused()
{
    CFakeGigECamera device;
    QVERIFY(device.start());
    const auto camera = startCamera(gigE());
    for (const QStringList& options : {QStringList(), QStringList{"--fps", "10"}})
        QCOMPARE(CHostProgram().refusal(QStringList{"--camera", CFakeGigECamera::address()} + options),
                 QStringLiteral("camera '127.0.0.1': another program is using it (Controller privilege required for "
                                "streaming control)"));
    QCOMPARE(camera->grab(5s).status, CAravisCamera::EGrab::Frame);
}

void tst_GigECamera::rateThatCannotBeSetIsRefused()
{
    CFakeGigECamera device;
    QVERIFY(device.start());
    SCameraOptions options = gigE();
    options.framesPerSecond = 1e9;
    QString error;
    QVERIFY(!CAravisCamera::open(options, &error));
    QVERIFY2(error.startsWith("camera '127.0.0.1' cannot do 1e+09 frames per second, "), qPrintable(error));
}

// What is set stays in the camera.
void tst_GigECamera::nothingIsSetBehindARefusedFeature()
{
    CFakeGigECamera device;
    QVERIFY(device.start());
    SCameraOptions options = gigE();
    options.features = {{"Width", "256"}, {"Widht", "100"}, {"Width", "128"}, {"Height", "x"}};
    QString error;
    QVERIFY(!CAravisCamera::open(options, &error));
    QCOMPARE(error.count('\n'), 1);
    QVERIFY2(error.contains("Widht") && error.contains("Height"), qPrintable(error));
    QCOMPARE(startCamera(gigE())->width(), 256);
}

void tst_GigECamera::incompleteFramesAreCountedAndNeverHandedOn()
{
    CFakeGigECamera device;
    // A frame has about 190 packets: of a thousand packets two lost, about every third frame is incomplete.
    QVERIFY(device.start(2));
    const auto camera = startCamera(gigE());
    std::atomic<int> sound{0};
    std::atomic<int> faulty{0};
    CGrabThread thread(*camera, 1000000, 5s, [&](const CGrabThread::SFrame& frame) {
        const bool isSound = frame.result->complete && showsTestPattern(*frame.result);
        ++(isSound ? sound : faulty);
    });
    thread.start();
    QTRY_VERIFY_WITH_TIMEOUT(thread.statistics().incomplete >= 5 && thread.statistics().complete >= 5, 60000);
    thread.requestInterruption();
    QVERIFY(thread.wait(30000));
    QCOMPARE(faulty.load(), 0);
    QCOMPARE(quint64(sound.load()), thread.statistics().complete);
    QCOMPARE(thread.statistics().grabbed, thread.statistics().complete + thread.statistics().incomplete);
}

// And not packets, of which each frame has about 190.
void tst_GigECamera::underrunsAreFrames()
{
    CFakeGigECamera device;
    QVERIFY(device.start());
    SCameraOptions options = gigE();
    options.buffers = 2;
    const auto camera = startCamera(options);
    CAravisCamera::SGrab first = camera->grab(5s);
    const CAravisCamera::SGrab second = camera->grab(5s);
    QVERIFY(first.frame && second.frame);
    QTRY_VERIFY(camera->underruns() >= 5);
    const quint64 last = second.frame->frameNumber;
    first = {};
    CAravisCamera::SGrab next = camera->grab(5s);
    quint64 incomplete = 0;
    for (; !next.frame && incomplete < 100; next = camera->grab(5s))
        ++incomplete;
    QVERIFY(next.frame);
    // Before the frame that is held, and those that came incomplete. Since then it starves again.
    const quint64 between = next.frame->frameNumber - last - 1 - incomplete;
    QVERIFY2(camera->underruns() >= between && camera->underruns() <= between + 20,
             qPrintable(QStringLiteral("%1, not %2").arg(camera->underruns()).arg(between)));
}

void tst_GigECamera::cameraThatGoesEndsTheThread()
{
    CFakeGigECamera device;
    QVERIFY(device.start());
    const auto camera = startCamera(gigE());
    // Long enough for the connection's own watch to be the one that notices.
    CGrabThread thread(*camera, 1000000, 60s, [](const CGrabThread::SFrame&) {});
    QSignalSpy ended(&thread, &CGrabThread::ended);
    thread.start();
    QTRY_VERIFY(thread.statistics().complete > 0);
    device.kill();
    QTRY_COMPARE_WITH_TIMEOUT(ended.count(), 1, 50000);
    QCOMPARE(ended.at(0).at(0).toString(), QStringLiteral("camera '127.0.0.1' has gone: it no longer answers"));
    QCOMPARE(camera->grab(1ms).status, CAravisCamera::EGrab::Lost);
}

void tst_GigECamera::programSkipsIncompleteFrames()
{
    CFakeGigECamera device;
    QVERIFY(device.start(2));
    CHostProgram program;
    QCOMPARE(program.run({"--camera", CFakeGigECamera::address(), "--frames", "40"}), 0);
    QCOMPARE(program.completeFrames(), 40);
    QVERIFY(program.incompleteFrames() > 0);
    QVERIFY(program.addsUp());
}

void tst_GigECamera::programEndsWhenTheCameraGoes()
{
    CFakeGigECamera device;
    QVERIFY(device.start());
    CHostProgram program;
    QVERIFY(startLongRun(&program));
    device.kill();
    QVERIFY(program.waitForEnd());
    QCOMPARE(program.process().exitCode(), 1);
    QVERIFY(program.errorLines().constLast().startsWith("halvex-host: camera '127.0.0.1' has gone: "));
    QVERIFY(program.completeFrames() > 0);
    QVERIFY(program.addsUp());
}

void tst_GigECamera::programWaitsForTheCameraToComeBack()
{
    CFakeGigECamera device;
    QVERIFY(device.start());
    CHostProgram program;
    QVERIFY(startLongRun(&program, {"--timeout", "2s", "--reconnect"}));
    device.pullCable();
    QVERIFY(program.waitForError(QStringLiteral(", waiting for '127.0.0.1'")));
    device.putCableIn();
    QVERIFY(program.waitForError(QStringLiteral(", came back 1 time")));
    kill(pid_t(program.process().processId()), SIGINT);
    QVERIFY(program.waitForEnd());
    QCOMPARE(program.process().exitCode(), 130);
    QVERIFY2(program.output().contains("Remark             the camera had gone 1 time and came back, "),
             qPrintable(program.output()));
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
}

void tst_GigECamera::programDoesNotWaitForEver()
{
    CFakeGigECamera device;
    QVERIFY(device.start());
    CHostProgram program;
    QVERIFY(startLongRun(&program, {"--timeout", "1s", "--reconnect=2s"}));
    device.pullCable();
    QVERIFY(program.waitForEnd());
    QCOMPARE(program.process().exitCode(), 1);
    const QString said = program.errorLines().constLast();
    QVERIFY2(said.startsWith("halvex-host: camera '127.0.0.1' has gone: "), qPrintable(said));
    QVERIFY2(said.endsWith("; it did not come back for 2 s"), qPrintable(said));
    QVERIFY2(program.addsUp(), qPrintable(program.output()));
}

void tst_GigECamera::noWholeFrame_data()
{
    addColumns<int, QStringList, QString, QStringList, bool>(
        {"lostPerThousand", "options", "begin", "attempts", "hasFrames"});
    // Without a frame there is no table. Hardly any of the 190 packets of a frame, but never all of them; a frame must
    // be given up within the time.
    addRow("incomplete frames", 300, QStringList{"--timeout", "3s"}, "camera '127.0.0.1' gave no whole frame for 3 s, ",
           QStringList{"--buffers", "--fps"}, true);
    addRow("nothing", 1000, QStringList{"--timeout", "2s"}, "camera '127.0.0.1' sends nothing: no frame for 2 s; ",
           QStringList{"firewall"}, false);
    addRow("large packets", 1000, QStringList{"--timeout", "500ms", "--camera-set", "GevSCPSPacketSize=8000"},
           "camera '127.0.0.1' sends nothing: no frame for 0.5 s; ", QStringList{"GevSCPSPacketSize=1400"}, false);
    addRow(
        "trigger", 0, QStringList{"--timeout", "500ms", "--camera-set", "TriggerMode=On"},
        "camera '127.0.0.1' sends nothing: no frame for 0.5 s; it waits for a trigger (--camera-set TriggerMode=Off)",
        QStringList(), false);
    addRow("nothing of what was asked for", 1000, QStringList{"--frames", "5", "--timeout", "500ms"},
           "camera '127.0.0.1' sends nothing: no frame for 0.5 s; ", QStringList{"firewall"}, false);
}

void tst_GigECamera::noWholeFrame()
{
    QFETCH(int, lostPerThousand);
    QFETCH(QStringList, options);
    QFETCH(QString, begin);
    QFETCH(QStringList, attempts);
    CFakeGigECamera device;
    QVERIFY(device.start(lostPerThousand));
    CHostProgram program;
    QCOMPARE(program.run(QStringList{"--camera", CFakeGigECamera::address()} + options), 1);
    const QString said = program.errorLines().constLast();
    QVERIFY2(said.startsWith("halvex-host: " + begin), qPrintable(said));
    for (const QString& attempt : attempts)
        QVERIFY2(said.contains(attempt), qPrintable(said));
    QFETCH(bool, hasFrames);
    QCOMPARE(program.completeFrames(), hasFrames ? 0 : -1);
    QCOMPARE(program.incompleteFrames() > 0, hasFrames);
}

void tst_GigECamera::endsAsAskedWithoutAWholeFrame()
{
    CFakeGigECamera device;
    QVERIFY(device.start(300));
    CHostProgram program;
    QCOMPARE(program.run({"--camera", CFakeGigECamera::address(), "--duration", "2s"}), 1);
    QVERIFY2(program.errorLines().constLast().contains(" came incomplete"),
             qPrintable(program.errorLines().constLast()));
}

void tst_GigECamera::graphThatHoldsAllBuffers()
{
    CFakeGigECamera device;
    QVERIFY(device.start());
    CHostProgram program;
    QCOMPARE(program.run({"--camera", CFakeGigECamera::address(), "--buffers", "1", "--timeout", "1s"}), 1);
    QCOMPARE(program.errorLines().constLast(),
             QStringLiteral("halvex-host: the graph holds as many frames of camera '127.0.0.1' as may be in flight "
                            "(1), and gave none back for 1 s; try more (--buffers 4), or a longer --timeout"));
    QCOMPARE(program.completeFrames(), 1);
}

void tst_GigECamera::resend()
{
    CFakeGigECamera device;
    QVERIFY(device.start());
    for (const char* value : {"on", "off"}) {
        CHostProgram program;
        QCOMPARE(program.run({"--camera", CFakeGigECamera::address(), "--frames", "10", "--resend", value}), 0);
        QCOMPARE(program.completeFrames(), 10);
    }
    QCOMPARE(CHostProgram().refusal({"--resend", "off"}),
             QStringLiteral("camera 'fake' has no packets to send again: it is no GigE Vision camera (--resend)"));
}

QTEST_GUILESS_MAIN(tst_GigECamera)
#include "tst_GigECamera.moc"
