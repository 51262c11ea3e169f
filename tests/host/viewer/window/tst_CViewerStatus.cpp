// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CViewerStatus.h"

#include "SHostService.h"
#include "host/viewer/cameras/CCameraSession.h"
#include "host/viewer/cameras/CCameraSessions.h"

#include <QStatusBar>
#include <QTest>

using namespace Host;

class tst_CViewerStatus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void camerasAreCounted();
    void messages();
    void whoHeldUpTheWindow();
};

void tst_CViewerStatus::camerasAreCounted()
{
    SHostService service;
    CCameraSessions sessions(service.nodes, service.models);
    QStatusBar bar;
    const auto& status = *new CViewerStatus(bar, sessions);
    const QString none = status.cameras();
    SCameraOptions camera;
    camera.address = "fake-1";
    CCameraSession* const session = sessions.connectCamera(camera);
    QTRY_VERIFY(session->isOpen());
    QVERIFY(status.cameras().contains("0 of 1"));
    session->start();
    QTRY_VERIFY(status.cameras().contains("1 of 1"));
    sessions.disconnectCamera("fake-1");
    QCOMPARE(status.cameras(), none);
}

void tst_CViewerStatus::messages()
{
    SHostService service;
    CCameraSessions sessions(service.nodes, service.models);
    QStatusBar bar;
    auto& status = *new CViewerStatus(bar, sessions);
    status.tell("done");
    QCOMPARE(status.message(), QString("Done"));
    status.tellError("first line\nsecond line");
    QCOMPARE(status.message(), QString("First line"));
    for (const char* colon : {":", "\uFF1A"}) {
        status.tellError(QString("it has 1 error%1\nwhich").arg(QString::fromUtf8(colon)));
        QCOMPARE(status.message(), QString("It has 1 error"));
    }
}

void tst_CViewerStatus::whoHeldUpTheWindow()
{
    SHostService service;
    CCameraSessions sessions(service.nodes, service.models);
    QStatusBar bar;
    auto& status = *new CViewerStatus(bar, sessions);
    status.tellHeldUp("Blur", 340);
    QVERIFY(status.message().contains("Blur") && status.message().contains("340"));
    status.tellHeldUp({}, 120);
    QVERIFY(status.message().contains("120"));
    status.tellError("cannot import");
    status.tellHeldUp("Blur", 340);
    QCOMPARE(status.message(), QString("Cannot import"));
    status.tell("imported");
    status.tellHeldUp("Blur", 340);
    QVERIFY(status.message().contains("'Blur'"));
}

QTEST_MAIN(tst_CViewerStatus)
#include "tst_CViewerStatus.moc"
