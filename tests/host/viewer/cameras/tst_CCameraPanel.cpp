// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CCameraPanel.h"

#include "SHostService.h"
#include "TestCameras.h"
#include "TestImages.h"
#include "host/viewer/cameras/CCameraList.h"
#include "host/viewer/cameras/CCameraSession.h"
#include "host/viewer/cameras/CCameraSessions.h"

#include <QAction>
#include <QLabel>
#include <QListView>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <atomic>

using namespace Host;
using EState = CCameraSession::EState;

namespace {

struct SPanel
{
    QToolButton* button(const char* action) const
    {
        const auto allChildren = panel.findChildren<QToolButton*>();
        for (QToolButton* each : allChildren) {
            if (each->defaultAction() && each->defaultAction()->objectName() == QLatin1String(action))
                return each;
        }
        qFatal("no button %s", action);
    }

    void click(const char* action) const { QTest::mouseClick(button(action), Qt::LeftButton); }

    SHostService service;
    CCameraSessions sessions{service.nodes, service.models};
    CCameraList list{sessions, nullptr, [] { return std::vector<SCameraEntry>(); }};
    CCameraPanel panel{sessions, list};
};

} // namespace

class tst_CCameraPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void connectStartStopDisconnect();
    void singleFrame();
    void doubleClickConnectsAndStarts();
    void messageTakesRoomWhileThereIsOne();
    void searchesWhileItIsSeen();
    void filesAsACamera();
    void failureIsTold();
    void everyActionHasATextAndAName();
};

void tst_CCameraPanel::connectStartStopDisconnect()
{
    SPanel test;
    test.panel.show();
    QSignalSpy chosen(&test.panel, &CCameraPanel::currentChanged);
    QVERIFY(test.button("connectCamera")->isEnabled());
    QVERIFY(!test.button("startCamera")->isEnabled());
    QVERIFY(!test.button("disconnectCamera")->isEnabled());
    test.click("connectCamera");
    QVERIFY(!chosen.isEmpty());
    const CCameraSession* const session = test.sessions.find("fake");
    QVERIFY(session);
    QCOMPARE(test.panel.current(), session);
    QTRY_COMPARE(session->state(), EState::Streaming); // at once: who connects a camera wants to see it
    QTRY_VERIFY(test.button("stopCamera")->isEnabled());
    QVERIFY(!test.button("connectCamera")->isEnabled());
    test.click("stopCamera");
    QTRY_VERIFY(test.button("startCamera")->isEnabled());
    test.click("startCamera");
    QTRY_COMPARE(session->state(), EState::Streaming);
    connect(&test.panel, &CCameraPanel::disconnectRequested, this,
            [&test](const QString& name) { test.sessions.disconnectCamera(name); });
    test.click("disconnectCamera");
    QTRY_VERIFY(!test.sessions.find("fake"));
    QVERIFY(test.button("connectCamera")->isEnabled());
}

void tst_CCameraPanel::singleFrame()
{
    SPanel test;
    test.sessions.connectCamera(camera("fake"));
    test.panel.show();
    QTRY_VERIFY(test.button("grabSingle")->isEnabled());
    test.click("grabSingle");
    QTRY_COMPARE(test.panel.current()->frames(), quint64(1));
    QTRY_VERIFY(test.button("grabSingle")->isEnabled());
}

void tst_CCameraPanel::doubleClickConnectsAndStarts()
{
    SPanel test;
    test.panel.resize(320, 400);
    test.panel.show();
    auto* const view = test.panel.findChild<QListView*>();
    const QPoint place = view->visualRect(test.list.index(0)).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, place);
    QTRY_VERIFY(test.sessions.find("fake"));
    QTRY_COMPARE(test.sessions.find("fake")->state(), EState::Streaming);
}

void tst_CCameraPanel::messageTakesRoomWhileThereIsOne()
{
    SPanel test;
    auto* const message = test.panel.findChild<QLabel*>();
    test.panel.resize(340, 330);
    test.panel.show();
    QVERIFY(message->isHidden());
    const CCameraSession* const failed = test.sessions.connectCamera(camera("256.1.1.1"));
    test.panel.choose("256.1.1.1");
    QTRY_COMPARE(failed->state(), CCameraSession::EState::Failed);
    QVERIFY(message->isVisible());
    // What it is about stays in sight.
    const auto* const view = test.panel.findChild<QListView*>();
    QVERIFY(view->viewport()->rect().contains(view->visualRect(view->currentIndex())));
    test.panel.choose("fake");
    QVERIFY(message->isHidden());
}

void tst_CCameraPanel::searchesWhileItIsSeen()
{
    SHostService service;
    CCameraSessions sessions(service.nodes, service.models);
    const auto searches = std::make_shared<std::atomic<int>>(0); // a search may outlive its list
    CCameraList list(sessions, nullptr, [searches] {
        ++*searches;
        return std::vector<SCameraEntry>();
    });
    CCameraPanel panel(sessions, list);
    QCoreApplication::processEvents();
    QCOMPARE(searches->load(), 0);
    panel.show();
    QTRY_COMPARE(searches->load(), 1);
}

void tst_CCameraPanel::filesAsACamera()
{
    const QTemporaryDir folder;
    QVERIFY(writeImages(folder.filePath("shots"), 3));
    SPanel test;
    test.panel.openFiles(SFileOptions::EKind::Images, folder.filePath("shots"), 200);
    QTRY_VERIFY(test.panel.current());
    QCOMPARE(test.panel.current()->name(), QString("shots"));
    QTRY_VERIFY(test.panel.current()->frames() > 10); // over and over

    QVERIFY(writeVideo(folder.filePath("film.avi"), 5));
    test.panel.openFiles(SFileOptions::EKind::Video, folder.filePath("film.avi"), 200);
    QCOMPARE(test.panel.current()->name(), QString("film.avi"));
    QTRY_VERIFY(test.panel.current()->frames() > 10);
}

void tst_CCameraPanel::failureIsTold()
{
    SPanel test;
    test.panel.openFiles(SFileOptions::EKind::Images, "/nowhere/at/all");
    QTRY_COMPARE(test.panel.current()->state(), EState::Failed);
    bool isTold = false;
    const auto allChildren = test.panel.findChildren<QLabel*>();
    for (const QLabel* label : allChildren)
        isTold = isTold || label->text().contains("/nowhere/at/all");
    QVERIFY(isTold);
    QVERIFY(test.button("connectCamera")->isEnabled()); // to try again
}

void tst_CCameraPanel::everyActionHasATextAndAName()
{
    SPanel test;
    const auto allCameraActions = test.panel.cameraActions();
    for (const QAction* action : allCameraActions) {
        QVERIFY(!action->text().isEmpty());
        QVERIFY(!action->objectName().isEmpty());
    }
}

QTEST_MAIN(tst_CCameraPanel)
#include "tst_CCameraPanel.moc"
