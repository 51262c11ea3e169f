// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CCameraSession.h"

#include "SHostService.h"
#include "TestImages.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace Host;
using namespace Plugin::Halvex;
using EState = CCameraSession::EState;

namespace {

SCameraOptions fake(const QString& name = "fake-1")
{
    SCameraOptions options;
    options.address = name;
    options.framesPerSecond = 100;
    return options;
}

SFileOptions images(const QString& folder)
{
    SFileOptions options;
    options.name = "shots";
    options.place = folder;
    options.framesPerSecond = 200;
    return options;
}

QString valueOf(const std::vector<SFeature>& features, const QString& name)
{
    const auto found = std::find_if(features.begin(), features.end(),
                                    [&name](const SFeature& feature) { return feature.name == name; });
    return found == features.end() ? QString() : found->plainValue;
}

} // namespace

class tst_CCameraSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void openingMakesASceneWithTheCamera();
    void framesGoIntoTheGraph();
    void singleFrame();
    void framesAreCountedOverStarts();
    void featuresAreReadAndSetWhileItStreams();
    void refusedFeature();
    void formatThatCannotBeShown();
    void unknownCamera();
    void imagesAsACamera();
    void nodeRemovedByOthers();
    void endOfTheFilesIsBusyAndTold();
    void closing();
    void nothingBeginsAfterClosing();
    void closingDoesNotWaitForWhatIsRead();
    void destroyedWhileItStreams();
};

void tst_CCameraSession::openingMakesASceneWithTheCamera()
{
    SHostService service;
    CCameraSession session(fake(), service.nodes, service.models);
    QSignalSpy opened(&session, &CCameraSession::opened);
    QSignalSpy scenes(&service.nodes, &INodeService::sceneAdded);
    QCOMPARE(session.state(), EState::Opening);
    QVERIFY(!session.scene());
    session.open();
    QVERIFY(session.isBusy());
    QTRY_COMPARE(opened.count(), 1);
    QCOMPARE(scenes.count(), 1);
    QCOMPARE(session.state(), EState::Ready);
    QVERIFY(!session.isBusy());
    QCOMPARE(session.name(), QString("fake-1"));
    QVERIFY(session.description().contains("fake-1"));
    QCOMPARE(session.scene(), service.nodes.getActiveScene().data());
    QCOMPARE(sourceIn(*session.scene())->uniqueName(), QString("fake-1"));
    QCOMPARE(session.frames(), quint64(0));
    QCOMPARE(session.framesPerSecond(), 0.0);
    QVERIFY(session.preview().isNull());
}

void tst_CCameraSession::framesGoIntoTheGraph()
{
    SHostService service;
    CCameraSession session(fake(), service.nodes, service.models);
    session.open();
    QTRY_COMPARE(session.state(), EState::Ready);
    QSignalSpy frames(sourceIn(*session.scene()), &CNodeDataModel::dataUpdated);
    session.start();
    QTRY_COMPARE(session.state(), EState::Streaming);
    QTRY_VERIFY(frames.count() >= 20);
    QTRY_VERIFY(session.framesPerSecond() > 10.0);
    QTRY_VERIFY(!session.preview().isNull());
    session.stop();
    QTRY_COMPARE(session.state(), EState::Ready);
    QCOMPARE(session.framesPerSecond(), 0.0);
    QTRY_COMPARE(quint64(frames.count()), session.frames());
}

void tst_CCameraSession::singleFrame()
{
    SHostService service;
    CCameraSession session(fake(), service.nodes, service.models);
    session.open();
    QTRY_COMPARE(session.state(), EState::Ready);
    QSignalSpy frames(sourceIn(*session.scene()), &CNodeDataModel::dataUpdated);
    for (int i = 1; i <= 2; ++i) {
        session.grabSingle();
        QTRY_COMPARE(frames.count(), i);
        QTRY_COMPARE(session.state(), EState::Ready);
        QTRY_VERIFY(!session.isBusy());
        QCOMPARE(session.frames(), quint64(i));
    }
    QTRY_VERIFY(!session.preview().isNull());
}

void tst_CCameraSession::framesAreCountedOverStarts()
{
    SHostService service;
    CCameraSession session(fake(), service.nodes, service.models);
    session.open();
    QTRY_COMPARE(session.state(), EState::Ready);
    quint64 before = 0;
    for (int i = 0; i < 3; ++i) {
        session.start();
        QTRY_VERIFY(session.frames() > before + 3);
        session.stop();
        session.start(); // too early: it is still stopping
        QTRY_COMPARE(session.state(), EState::Ready);
        before = session.frames();
    }
}

void tst_CCameraSession::featuresAreReadAndSetWhileItStreams()
{
    SHostService service;
    CCameraSession session(fake(), service.nodes, service.models);
    session.open();
    QTRY_COMPARE(session.state(), EState::Ready);
    session.start();
    QTRY_COMPARE(session.state(), EState::Streaming);
    QString gain;
    connect(&session, &CCameraSession::featuresRead, this,
            [&gain](const std::vector<SFeature>& features) { gain = valueOf(features, "GainRaw"); });
    session.setFeature("GainRaw", "7");
    QTRY_COMPARE(gain, QString("7"));
}

void tst_CCameraSession::formatThatCannotBeShown()
{
    class CNoFormats : public CHostModelService
    {
    public:
        bool supports(const QString&) const override { return false; }
    };
    SHostService service;
    const CNoFormats models;
    CCameraSession session(fake(), service.nodes, models);
    session.open();
    QTRY_COMPARE(session.state(), EState::Ready);
    session.start();
    QTRY_COMPARE(session.state(), EState::Streaming);
    const QString problem = QStringLiteral("Images of the format Mono8 cannot be shown.");
    QCOMPARE(session.error(), problem);
    const QSignalSpy read(&session, &CCameraSession::featuresRead);
    session.setFeature("GainRaw", "7");
    QTRY_COMPARE(read.count(), 1);
    QCOMPARE(session.error(), problem);
}

void tst_CCameraSession::refusedFeature()
{
    SHostService service;
    CCameraSession session(fake(), service.nodes, service.models);
    session.open();
    QTRY_COMPARE(session.state(), EState::Ready);
    session.setFeature("Width", "100000");
    QTRY_VERIFY(session.error().contains("Width"));
    QCOMPARE(session.state(), EState::Ready);
    session.setFeature("Width", "256");
    QTRY_COMPARE(session.error(), QString());
}

void tst_CCameraSession::unknownCamera()
{
    SHostService service;
    CCameraSession session(fake("256.1.1.1"), service.nodes, service.models);
    QSignalSpy opened(&session, &CCameraSession::opened);
    session.open();
    QTRY_COMPARE(session.state(), EState::Failed);
    QVERIFY(session.error().contains("256.1.1.1"));
    QVERIFY(!session.scene());
    QVERIFY(!service.nodes.getActiveScene());
    QVERIFY(opened.isEmpty());
    session.start();
    QVERIFY(!session.isBusy());
}

void tst_CCameraSession::imagesAsACamera()
{
    const QTemporaryDir folder;
    QVERIFY(writeImages(folder.path(), 3));
    SHostService service;
    CCameraSession session(images(folder.path()), service.nodes, service.models);
    QVERIFY(session.isFile());
    session.open();
    QTRY_COMPARE(session.state(), EState::Ready);
    QSignalSpy frames(sourceIn(*session.scene()), &CNodeDataModel::dataUpdated);
    for (int i = 1; i <= 2; ++i) { // from the first image on, both times
        session.start();
        QTRY_COMPARE(frames.count(), 3 * i);
        QTRY_COMPARE(session.state(), EState::Ready);
        QTRY_VERIFY(!session.isBusy());
    }
    QCOMPARE(session.error(), QString());
}

void tst_CCameraSession::nodeRemovedByOthers()
{
    SHostService service;
    CCameraSession session(fake(), service.nodes, service.models);
    session.open();
    QTRY_COMPARE(session.state(), EState::Ready);
    session.start();
    QTRY_COMPARE(session.state(), EState::Streaming);
    QSignalSpy lost(&session, &CCameraSession::nodeLost);
    service.nodes.removeSceneOfNode(session.node());
    QTRY_COMPARE(lost.count(), 1);
    QVERIFY(!session.scene());
    QVERIFY(!session.node());
}

void tst_CCameraSession::endOfTheFilesIsBusyAndTold()
{
    const QTemporaryDir folder;
    QVERIFY(writeImages(folder.path(), 3));
    SHostService service;
    CCameraSession session(images(folder.path()), service.nodes, service.models);
    session.open();
    QTRY_COMPARE(session.state(), EState::Ready);
    bool isTold = false;
    connect(&session, &CCameraSession::changed, this,
            [&] { isTold = isTold || (session.isBusy() && session.state() == EState::Streaming); });
    session.start();
    QTRY_VERIFY(!session.isBusy() && session.frames() == 3);
    QTRY_COMPARE(session.state(), EState::Ready);
    QVERIFY(isTold);
}

void tst_CCameraSession::closing()
{
    SHostService service;
    for (const bool isStreaming : {false, true}) {
        QPointer<CCameraSession> session = new CCameraSession(fake(), service.nodes, service.models);
        session->open();
        QTRY_COMPARE(session->state(), EState::Ready);
        if (isStreaming) {
            session->start();
            QTRY_COMPARE(session->state(), EState::Streaming);
        }
        session->close();
        QTRY_VERIFY(!session);
    }
    QPointer<CCameraSession> opening = new CCameraSession(fake("fake-2"), service.nodes, service.models);
    opening->open();
    opening->close();
    QTRY_VERIFY(!opening);

    QPointer<CCameraSession> starting = new CCameraSession(fake(), service.nodes, service.models);
    starting->open();
    QTRY_COMPARE(starting->state(), EState::Ready);
    starting->start();
    starting->close();
    starting->close();
    QTRY_VERIFY(!starting);
}

// It would open the camera that is being given back.
void tst_CCameraSession::nothingBeginsAfterClosing()
{
    SHostService service;
    for (const bool isKnown : {true, false}) {
        QPointer<CCameraSession> session =
            new CCameraSession(fake(isKnown ? "fake-1" : "256.1.1.1"), service.nodes, service.models);
        session->open();
        QTRY_VERIFY(!session->isBusy());
        session->close();
        QVERIFY(session->isBusy());
        QSignalSpy changes(session, &CCameraSession::changed);
        session->open();
        session->start();
        QVERIFY(changes.isEmpty());
        QTRY_VERIFY(!session);
        QVERIFY(changes.isEmpty());
    }
}

void tst_CCameraSession::closingDoesNotWaitForWhatIsRead()
{
    SHostService service;
    QPointer<CCameraSession> session = new CCameraSession(fake(), service.nodes, service.models);
    session->open();
    QTRY_COMPARE(session->state(), EState::Ready);
    QSignalSpy reads(session, &CCameraSession::featuresRead);
    constexpr int count = 50;
    for (int i = 0; i < count; ++i)
        session->readFeatures();
    session->close();
    QTRY_VERIFY(!session);
    // Its thread had nothing left to do: the destructor had nothing to wait for.
    QCOMPARE(reads.count(), count);
}

void tst_CCameraSession::destroyedWhileItStreams()
{
    SHostService service;
    auto session = std::make_unique<CCameraSession>(fake(), service.nodes, service.models);
    session->open();
    QTRY_COMPARE(session->state(), EState::Ready);
    const QPointer<CNodeScene> scene = session->scene();
    session->start();
    QTRY_VERIFY(session->frames() > 0);
    session.reset();
    QCoreApplication::processEvents();
    QVERIFY(scene);
}

QTEST_GUILESS_MAIN(tst_CCameraSession)
#include "tst_CCameraSession.moc"
