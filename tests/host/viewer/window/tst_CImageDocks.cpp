// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CImageDocks.h"

#include "CBlockedFile.h"
#include "host/models/CBlurModel.h"
#include "host/viewer/images/CImageDock.h"
#include "host/viewer/images/CViewModel.h"
#include "host/viewer/recording/CRecorder.h"
#include "host/viewer/window/CViewerSettings.h"
#include "viewer/TestView.h"

#include <Halvex/scene/CNodeScene.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMainWindow>
#include <QPointer>
#include <QSet>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <memory>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

struct SDocks
{
    SDocks()
    {
        window.setCentralWidget(new QWidget);
        window.resize(1200, 800);
        window.show();
    }

    static CNodeBase& addView(CNodeScene& to) { return to.createNode(std::make_unique<CViewModel>()); }

    CNodeScene scene{nullptr, nullptr};
    QTemporaryDir folder;
    CViewerSettings settings{folder.filePath(QStringLiteral("viewer.ini"))};
    QMainWindow window;
    CImageDocks& docks = *new CImageDocks(window, settings);
};

} // namespace

class tst_CImageDocks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dockForEachViewAndForNothingElse();
    void dockGoesWithItsNode();
    void dockGoesWithItsScene();
    void severalStandSideBySide();
    void placeIsRemembered();
    void programEndsWhenRecordingsAreComplete();
    void foldersAreRemembered();
};

void tst_CImageDocks::dockForEachViewAndForNothingElse()
{
    SDocks test;
    test.addView(test.scene);
    test.docks.watch(test.scene);
    QCOMPARE(test.docks.docks().size(), 1); // of the node that was there already
    QSignalSpy changed(&test.docks, &CImageDocks::changed);
    test.scene.createNode(std::make_unique<CBlurModel>());
    QVERIFY(changed.isEmpty());
    test.addView(test.scene);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(test.docks.docks().size(), 2);
    QVERIFY(test.docks.docks().first()->isVisible());
}

void tst_CImageDocks::dockGoesWithItsNode()
{
    SDocks test;
    test.docks.watch(test.scene);
    CNodeBase& one = test.addView(test.scene);
    test.addView(test.scene);
    const QPointer<CImageDock> dock = test.docks.docks().first();
    test.scene.removeNode(one);
    QCOMPARE(test.docks.docks().size(), 1);
    QTRY_VERIFY(!dock);
}

void tst_CImageDocks::dockGoesWithItsScene()
{
    SDocks test;
    auto scene = std::make_unique<CNodeScene>(nullptr, nullptr);
    test.docks.watch(*scene);
    test.addView(*scene);
    QCOMPARE(test.docks.docks().size(), 1);
    scene.reset();
    QVERIFY(test.docks.docks().isEmpty());
}

void tst_CImageDocks::severalStandSideBySide()
{
    SDocks test;
    test.docks.watch(test.scene);
    QSet<QString> names;
    for (int i = 0; i < 6; ++i)
        test.addView(test.scene);
    for (CImageDock* const dock : test.docks.docks()) {
        names.insert(dock->objectName());
        QCOMPARE(test.window.dockWidgetArea(dock), Qt::TopDockWidgetArea);
    }
    QCOMPARE(names.size(), 6);
    QTRY_VERIFY(test.docks.docks().at(3)->x() > test.docks.docks().at(2)->x());
    int tabbed = 0;
    for (CImageDock* const dock : test.docks.docks())
        tabbed += test.window.tabifiedDockWidgets(dock).isEmpty() ? 0 : 1;
    QCOMPARE(tabbed, 4); // the fifth and the sixth, with one each
}

void tst_CImageDocks::placeIsRemembered()
{
    QByteArray layout;
    {
        SDocks test;
        test.docks.watch(test.scene);
        test.addView(test.scene);
        test.window.addDockWidget(Qt::BottomDockWidgetArea, test.docks.docks().first());
        layout = test.window.saveState();
    }
    SDocks test;
    test.window.restoreState(layout);
    test.docks.watch(test.scene);
    test.addView(test.scene);
    QCOMPARE(test.window.dockWidgetArea(test.docks.docks().first()), Qt::BottomDockWidgetArea);
}

void tst_CImageDocks::programEndsWhenRecordingsAreComplete()
{
    SDocks test;
    test.docks.watch(test.scene);
    CNodeBase& view = test.addView(test.scene);
    CRecorder& recorder = test.docks.docks().first()->recorder();
    const QTemporaryDir folder;
    QVERIFY(recorder.start(CRecorder::EKind::Png, folder.path(), 30.0));
    CBlockedFile blocked(QDir(recorder.folder()).filePath(QStringLiteral("frame-000000.png")));
    for (int i = 0; i < 3; ++i)
        view.nodeDataModel()->setInData(viewImage(rampImage()), 0);
    connect(&recorder, &CRecorder::changed, this, [&] {
        if (recorder.state() == CRecorder::EState::Finishing)
            blocked.release();
    });
    QTimer::singleShot(0, &test.window, &QWidget::close);
    QApplication::exec();
    QCOMPARE(recorder.state(), CRecorder::EState::Finished);
    QCOMPARE(recorder.counts().written, quint64(3));
}

void tst_CImageDocks::foldersAreRemembered()
{
    const QTemporaryDir folder;
    CViewerSettings settings(folder.filePath(QStringLiteral("viewer.ini")));
    settings.setRecordFolder(folder.filePath(QStringLiteral("former")));
    QMainWindow window;
    CNodeScene scene(nullptr, nullptr);
    CImageDocks& docks = *new CImageDocks(window, settings);
    docks.watch(scene);
    SDocks::addView(scene);
    CImageDock* const dock = docks.docks().first();
    const auto actions = dock->imageActions();
    const auto found = std::find_if(actions.begin(), actions.end(), [](const QAction* action) {
        return action->objectName() == QLatin1String("image.record.png");
    });
    QVERIFY(found != actions.end());
    (*found)->trigger();
    QVERIFY(dock->recorder().folder().startsWith(settings.recordFolder()));
    dock->recorder().stop();
    const auto folderAction = std::find_if(actions.begin(), actions.end(), [](const QAction* action) {
        return action->objectName() == QLatin1String("image.record.folder");
    });
    QVERIFY(folderAction != actions.end());
    (*folderAction)->trigger();
    auto* const dialog = dock->findChild<QFileDialog*>();
    QVERIFY(dialog);
    Q_EMIT dialog->fileSelected(folder.path());
    QCOMPARE(settings.recordFolder(), folder.path());
    QVERIFY(settings.imageFolder().isEmpty()); // nobody chose one
}

QTEST_MAIN(tst_CImageDocks)
#include "tst_CImageDocks.moc"
