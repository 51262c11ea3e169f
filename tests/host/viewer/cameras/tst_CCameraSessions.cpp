// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CCameraSessions.h"

#include "SHostService.h"
#include "TestCameras.h"
#include "host/viewer/cameras/CCameraSession.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

class tst_CCameraSessions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void connectAndDisconnect();
    void oneSessionForEachName();
    void otherFilesOfTheSameName();
    void sceneRemovedByOthersDisconnects();
    void freeSimulatedCamera();
};

void tst_CCameraSessions::connectAndDisconnect()
{
    SHostService service;
    CCameraSessions sessions(service.nodes, service.models);
    QSignalSpy added(&sessions, &CCameraSessions::added);
    QSignalSpy removed(&sessions, &CCameraSessions::removed);
    QSignalSpy opened(&sessions, &CCameraSessions::opened);
    const QPointer<CCameraSession> one = sessions.connectCamera(camera("fake-1"));
    const QPointer<CCameraSession> two = sessions.connectCamera(camera("fake-2"));
    QCOMPARE(sessions.all().size(), 2);
    QCOMPARE(added.count(), 2);
    QTRY_COMPARE(opened.count(), 2);
    QCOMPARE(sessions.findByScene(one->scene()), one.data());
    QVERIFY(!sessions.findByScene(nullptr));

    const QPointer<CNodeScene> scene = one->scene();
    sessions.disconnectCamera("fake-1");
    QVERIFY(!scene);
    QVERIFY(!sessions.find("fake-1"));
    QCOMPARE(removed.count(), 1);
    QTRY_VERIFY(!one);
    QVERIFY(two->scene());
    sessions.disconnectCamera("fake-1");
    QCOMPARE(removed.count(), 1);
}

void tst_CCameraSessions::oneSessionForEachName()
{
    SHostService service;
    CCameraSessions sessions(service.nodes, service.models);
    CCameraSession* const session = sessions.connectCamera(camera("fake-1"));
    QCOMPARE(sessions.connectCamera(camera("fake-1")), session);
    QTRY_VERIFY(session->isOpen());
    QCOMPARE(sessions.connectCamera(camera("fake-1")), session);
    QCOMPARE(sessions.all().size(), 1);
}

void tst_CCameraSessions::otherFilesOfTheSameName()
{
    const QTemporaryDir folder;
    SHostService service;
    CCameraSessions sessions(service.nodes, service.models);
    SFileOptions files;
    files.name = "shots";
    files.place = folder.filePath("monday/shots");
    CCameraSession* const monday = sessions.connectCamera(files);
    QCOMPARE(monday->name(), QString("shots"));
    files.place = folder.filePath("tuesday/shots");
    CCameraSession* const tuesday = sessions.connectCamera(files);
    QVERIFY(tuesday != monday);
    QCOMPARE(tuesday->name(), QString("shots-1"));
    files.place = folder.filePath("monday/../tuesday/shots");
    QCOMPARE(sessions.connectCamera(files), tuesday);
    QCOMPARE(sessions.all().size(), 2);

    sessions.connectCamera(camera("fake"));
    files.name = "fake";
    files.place = folder.filePath("fake");
    QCOMPARE(sessions.connectCamera(files)->name(), QString("fake-1"));
}

void tst_CCameraSessions::sceneRemovedByOthersDisconnects()
{
    SHostService service;
    CCameraSessions sessions(service.nodes, service.models);
    const QPointer<CCameraSession> session = sessions.connectCamera(camera("fake-1"));
    QTRY_VERIFY(session->isOpen());
    session->start();
    QTRY_VERIFY(session->frames() > 0);
    service.nodes.removeSceneOfNode(session->node());
    QTRY_VERIFY(sessions.all().isEmpty());
    QTRY_VERIFY(!session);
}

void tst_CCameraSessions::freeSimulatedCamera()
{
    SHostService service;
    CCameraSessions sessions(service.nodes, service.models);
    QCOMPARE(sessions.freeSimulatedCamera(), QString("fake"));
    sessions.connectCamera(camera("fake"));
    QCOMPARE(sessions.freeSimulatedCamera(), QString("fake-1"));
    sessions.connectCamera(camera("fake-1"));
    QCOMPARE(sessions.freeSimulatedCamera(), QString("fake-2"));
    sessions.disconnectCamera("fake");
    QCOMPARE(sessions.freeSimulatedCamera(), QString("fake"));
}

QTEST_GUILESS_MAIN(tst_CCameraSessions)
#include "tst_CCameraSessions.moc"
