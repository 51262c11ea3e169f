// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CViewerStart.h"

#include "WindowFixture.h"
#include "host/viewer/images/CImageDock.h"
#include "host/viewer/window/CImageDocks.h"
#include "host/viewer/window/CScenePage.h"
#include "host/viewer/window/CSceneTabs.h"
#include "host/viewer/window/CViewerStatus.h"

#include <QFile>
#include <QImage>
#include <QSignalSpy>
#include <QTest>

using namespace Host;
using namespace std::chrono_literals;

class tst_CViewerStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void camerasInTheirOrderWithTheChain();
    void cameraThatIsNotThere();
    void sceneOfAFile();
    void screenshotIsWrittenOnce();
    void screenshotThatCannotBeWritten();
    void screenshotOfACameraThatIsNotThere();
    void sceneIsOpenedWithTheFirstCameraThatOpens();
    void endsAfterItsTime();
};

void tst_CViewerStart::camerasInTheirOrderWithTheChain()
{
    const SWindow test;
    SViewerOptions options;
    options.cameras = QStringList{"fake-1", "fake-2", "fake-3"};
    options.chains = QStringList{DEMO_CHAIN};
    const CViewerStart start(*test.window, options);
    QTRY_COMPARE(test.window->tabs().count(), 3);
    for (int i = 0; i < 3; ++i) {
        const CScenePage* const page = test.window->tabs().pages().at(i);
        QCOMPARE(page->cameraName(), options.cameras.at(i));
        QTRY_COMPARE(page->scene()->nodes().size(), std::size_t(13)); // camera, its view, and the chain
        CCameraSession* const session = test.window->sessions().find(options.cameras.at(i));
        QTRY_VERIFY(session->frames() > 3);
    }
    QCOMPARE(test.window->imageDocks().docks().size(), 3);
}

void tst_CViewerStart::cameraThatIsNotThere()
{
    const SWindow test;
    SViewerOptions options;
    options.cameras = QStringList{"256.1.1.1", "fake-1"};
    const CViewerStart start(*test.window, options);
    QTRY_VERIFY(test.window->sessions().find("fake-1"));
    QTRY_VERIFY(test.window->sessions().find("fake-1")->frames() > 0);
    QCOMPARE(test.window->tabs().count(), 1);
    QVERIFY(test.window->status().message().contains("256.1.1.1"));
}

void tst_CViewerStart::sceneOfAFile()
{
    const SWindow test;
    QVERIFY(test.window->newScene("one"));
    QVERIFY(test.window->importChain(DEMO_CHAIN));
    QVERIFY(test.window->saveScene(test.file("scene.json")));
    SViewerOptions options;
    options.cameras = QStringList{"fake-1", "fake-2"};
    options.scene = test.file("scene.json");
    const CViewerStart start(*test.window, options);
    QTRY_COMPARE(test.window->tabs().count(), 3);
    const CScenePage* const first = test.window->tabs().pages().at(1);
    QCOMPARE(first->file(), test.file("scene.json"));
    QCOMPARE(first->scene()->nodes().size(), std::size_t(12));
    QVERIFY(test.window->tabs().pages().at(2)->file().isEmpty());
}

void tst_CViewerStart::screenshotIsWrittenOnce()
{
    const SWindow test;
    SViewerOptions options;
    options.cameras = QStringList{"fake-1"};
    options.screenshot = test.file("window.png");
    CViewerStart start(*test.window, options);
    QSignalSpy ended(&start, &CViewerStart::ended);
    QTRY_COMPARE_WITH_TIMEOUT(ended.count(), 1, 20000);
    QCOMPARE(ended.first().first().toInt(), 0);
    QCOMPARE(QImage(test.file("window.png")).size(), test.window->size() * test.window->devicePixelRatio());
}

void tst_CViewerStart::screenshotThatCannotBeWritten()
{
    const SWindow test;
    SViewerOptions options;
    options.screenshot = test.file("no/such/window.png");
    CViewerStart start(*test.window, options);
    QSignalSpy ended(&start, &CViewerStart::ended);
    QTRY_COMPARE(ended.count(), 1);
    QCOMPARE(ended.first().first().toInt(), 1);
}

void tst_CViewerStart::screenshotOfACameraThatIsNotThere()
{
    const SWindow test;
    SViewerOptions options;
    options.cameras = QStringList{"256.1.1.1", "fake-1"};
    options.screenshot = test.file("window.png");
    CViewerStart start(*test.window, options);
    QSignalSpy ended(&start, &CViewerStart::ended);
    QTRY_COMPARE(ended.count(), 1);
    QCOMPARE(ended.first().first().toInt(), 1);
    QVERIFY(!QFile::exists(options.screenshot));
}

void tst_CViewerStart::sceneIsOpenedWithTheFirstCameraThatOpens()
{
    const SWindow test;
    QVERIFY(test.window->newScene("one"));
    QVERIFY(test.window->saveScene(test.file("scene.json")));
    SViewerOptions options;
    options.cameras = QStringList{"256.1.1.1", "fake-1"};
    options.scene = test.file("scene.json");
    const CViewerStart start(*test.window, options);
    QTRY_COMPARE(test.window->tabs().count(), 2);
    QTRY_COMPARE(test.window->tabs().pages().at(1)->file(), options.scene);
}

void tst_CViewerStart::endsAfterItsTime()
{
    const SWindow test;
    SViewerOptions options;
    options.duration = 50ms;
    CViewerStart start(*test.window, options);
    QSignalSpy ended(&start, &CViewerStart::ended);
    QVERIFY(ended.isEmpty());
    QTRY_COMPARE(ended.count(), 1);
    QCOMPARE(ended.first().first().toInt(), 0);
}

QTEST_MAIN(tst_CViewerStart)
#include "tst_CViewerStart.moc"
