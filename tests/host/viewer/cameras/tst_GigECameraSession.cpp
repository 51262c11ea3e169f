// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CCameraSession.h"

#include "CFakeGigECamera.h"
#include "SHostService.h"
#include "host/camera/CAravisCamera.h"

#include <QTest>

#include <algorithm>

using namespace Host;
using EState = CCameraSession::EState;

namespace {

constexpr int patience = 30000; // milliseconds; a camera's absence is noticed after seconds

SCameraOptions gigE()
{
    SCameraOptions options;
    options.address = CFakeGigECamera::address();
    return options;
}

struct SOpenCamera
{
    bool open()
    {
        if (!device.start())
            return false;
        session.open();
        return QTest::qWaitFor([this] { return session.state() == EState::Ready; }, patience);
    }

    CFakeGigECamera device;
    SHostService service;
    CCameraSession session{gigE(), service.nodes, service.models};
};

} // namespace

/// A session with a camera over the network: one that somebody else may have, and that may vanish.
class tst_GigECameraSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cameraOfAnotherProgram();
    void softwareTrigger();
    void cameraThatVanishesComesBack();
    void cameraThatVanishesBeforeItStreamsComesBack();
};

void tst_GigECameraSession::cameraOfAnotherProgram()
{
    CFakeGigECamera device;
    QVERIFY(device.start());
    QString error;
    const auto other = CAravisCamera::open(gigE(), &error);
    QVERIFY2(other, qPrintable(error));
    SHostService service;
    CCameraSession session(gigE(), service.nodes, service.models);
    session.open();
    QTRY_COMPARE_WITH_TIMEOUT(session.state(), EState::InUse, patience);
    QVERIFY(!session.error().isEmpty());
}

void tst_GigECameraSession::softwareTrigger()
{
    SOpenCamera camera;
    QVERIFY(camera.open());
    CCameraSession& session = camera.session;
    session.setFeature("TriggerSelector", "FrameStart");
    session.setFeature("TriggerMode", "On");
    session.setFeature("TriggerSource", "Software");
    session.start();
    QTRY_COMPARE_WITH_TIMEOUT(session.state(), EState::Streaming, patience);
    QCOMPARE(session.frames(), quint64(0));
    for (quint64 frames = 1; frames <= 3; ++frames) {
        session.trigger();
        QTRY_COMPARE_WITH_TIMEOUT(session.frames(), frames, patience);
    }
    QCOMPARE(session.error(), QString());
}

void tst_GigECameraSession::cameraThatVanishesComesBack()
{
    SOpenCamera camera;
    QVERIFY(camera.open());
    CCameraSession& session = camera.session;
    session.setFeature("Width", "256");
    session.start();
    QTRY_VERIFY_WITH_TIMEOUT(session.frames() > 3, patience);
    QCOMPARE(session.state(), EState::Streaming);

    camera.device.pullCable();
    QTRY_COMPARE_WITH_TIMEOUT(session.state(), EState::Away, patience);
    QVERIFY(session.scene());
    const quint64 before = session.frames();
    camera.device.putCableIn();
    QTRY_COMPARE_WITH_TIMEOUT(session.state(), EState::Streaming, patience);
    QTRY_VERIFY_WITH_TIMEOUT(session.frames() > before + 3, patience);

    // It was off: what was set is set again.
    QString width;
    connect(&session, &CCameraSession::featuresRead, this, [&width](const std::vector<SFeature>& features) {
        const auto found = std::find_if(features.begin(), features.end(),
                                        [](const SFeature& feature) { return feature.name == "Width"; });
        width = found == features.end() ? QString() : found->plainValue;
    });
    session.readFeatures();
    QTRY_COMPARE_WITH_TIMEOUT(width, QString("256"), patience);
}

void tst_GigECameraSession::cameraThatVanishesBeforeItStreamsComesBack()
{
    SOpenCamera camera;
    QVERIFY(camera.open());
    CCameraSession& session = camera.session;

    camera.device.pullCable();
    QTRY_COMPARE_WITH_TIMEOUT(session.state(), EState::Away, patience);
    QVERIFY(session.scene() && !session.isGrabbing());
    session.setFeature("Width", "256"); // which it refuses
    QTRY_VERIFY_WITH_TIMEOUT(!session.error().isEmpty(), patience);
    std::size_t features = 0;
    connect(&session, &CCameraSession::featuresRead, this,
            [&features](const std::vector<SFeature>& read) { features = read.size(); });
    camera.device.putCableIn();
    QTRY_COMPARE_WITH_TIMEOUT(session.state(), EState::Ready, patience);
    QTRY_VERIFY_WITH_TIMEOUT(features > 0, patience);
    QCOMPARE(session.error(), QString());
    session.start();
    QTRY_VERIFY_WITH_TIMEOUT(session.frames() > 3, patience);
}

QTEST_GUILESS_MAIN(tst_GigECameraSession)
#include "tst_GigECameraSession.moc"
