// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CViewerWindow.h"

#include "TestFile.h"
#include "WindowFixture.h"
#include "host/viewer/base/CLanguage.h"
#include "host/viewer/base/Theme.h"
#include "host/viewer/cameras/CCameraPanel.h"
#include "host/viewer/cameras/CFeaturePanel.h"
#include "host/viewer/edit/CFaultPanel.h"
#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/edit/CModelPalette.h"
#include "host/viewer/edit/CSettingsPanel.h"
#include "host/viewer/graph/CGraphView.h"
#include "host/viewer/images/CImageDock.h"
#include "host/viewer/images/CViewModel.h"
#include "host/viewer/window/CCommandModel.h"
#include "host/viewer/window/CCommandPalette.h"
#include "host/viewer/window/CImageDocks.h"
#include "host/viewer/window/CScenePage.h"
#include "host/viewer/window/CSceneTabs.h"
#include "host/viewer/window/CThreadWatch.h"
#include "host/viewer/window/CViewerDocks.h"
#include "host/viewer/window/CViewerStatus.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QTabBar>
#include <QTest>
#include <QThread>
#include <QUndoView>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

QAction* action(const CViewerWindow& window, const char* name)
{
    auto* const found = window.findChild<QAction*>(name);
    if (!found)
        qFatal("no action %s", name);
    return found;
}

QAction* actionWithText(const CViewerWindow& window, const QString& part)
{
    const auto allChildren = window.findChildren<QAction*>();
    for (QAction* const each : allChildren) {
        if (each->text().contains(part))
            return each;
    }
    qFatal("no action with %s", qPrintable(part));
    return nullptr;
}

// What a screen reader says of it.
QString nameOf(const QWidget& widget)
{
    const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
    if (!widget.accessibleName().isEmpty() || !button)
        return widget.accessibleName();
    return button->text().isEmpty() ? button->toolTip() : button->text();
}

// Null if nothing is asked.
QMessageBox* questionIn(const CViewerWindow& window)
{
    return window.findChild<QMessageBox*>();
}

void choose(QFileDialog* dialog, const QString& file)
{
    QVERIFY(dialog);
    QTRY_VERIFY(dialog->isVisible());
    dialog->setDirectory(QFileInfo(file).path());
    dialog->selectFile(file);
    QMetaObject::invokeMethod(dialog, "accept");
}

// A way on which the graph of the shown scene would go.
void goThatWay(const CViewerWindow& window, const QString& way)
{
    const CSceneTabs& tabs = window.tabs();
    if (way == "close button")
        qobject_cast<QAbstractButton*>(tabs.tabBar()->tabButton(tabs.currentIndex(), QTabBar::RightSide))->click();
    else if (way == "recent file")
        actionWithText(window, "scene.json")->trigger();
    else
        action(window, qPrintable(way))->trigger();
}

} // namespace

class tst_CViewerWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyWindow();
    void connectedCameraIsSeen();
    void twoCamerasTwoTabs();
    void tabAndCameraListFollowOneAnother();
    void whatHoldsItUpIsTold();
    void closingATabDisconnectsItsCamera();
    void changesAreAskedAbout_data();
    void changesAreAskedAbout();
    void questionGoesWithItsScene();
    void closingTheWindowAsks();
    void closingTheWindowClosesCameras();
    void fileIsForTheSceneItWasAskedFor();
    void fileDialogGoesWithItsScene();
    void sceneRemovedByOthers();
    void openSaveImport();
    void faultyFileIsListed();
    void fileWithoutAScene();
    void undoAndRedoOfTheShownScene();
    void undoByKeyboardInTheGraph();
    void refusedImageViewIsNoStep();
    void paletteAndSettings();
    void commandsByKeyboard();
    void everyCommandHasATextAndAName();
    void languageChangesWhileItRuns();
    void colors();
    void layoutIsRemembered();
    void imagesMenuHasOneSubmenuForEachImage();
    void everyWidgetThatIsUsedHasAName();
    void destroyedWhileCamerasStream();
};

void tst_CViewerWindow::emptyWindow()
{
    const SWindow test;
    QCOMPARE(test.window->tabs().count(), 0);
    QVERIFY(test.window->imageDocks().docks().isEmpty());
    QVERIFY(test.window->docks().cameras().isVisible());
    for (const char* name : {"saveScene", "saveSceneAs", "importChain", "closeScene", "undo", "redo"})
        QVERIFY2(!action(*test.window, name)->isEnabled(), name);
    QVERIFY(action(*test.window, "openScene")->isEnabled());
}

void tst_CViewerWindow::connectedCameraIsSeen()
{
    const SWindow test;
    CCameraSession* const session = test.connectCamera("fake-1");
    QTRY_COMPARE(test.window->imageDocks().docks().size(), 1);
    const CScenePage* const page = test.window->tabs().current();
    QCOMPARE(page->scene(), session->scene());
    QCOMPARE(countNodes(*page->scene(), CViewModel::modelName()), 1);
    QVERIFY(!page->isModified());
    QVERIFY(!action(*test.window, "undo")->isEnabled());
    QCOMPARE(test.window->imageDocks().docks().first()->windowTitle(), QString("fake-1"));

    session->start();
    const CViewModel* view = nullptr;
    for (const auto& node : page->scene()->nodes()) {
        if (const auto* const found = qobject_cast<CViewModel*>(node.second->nodeDataModel()))
            view = found;
    }
    QTRY_VERIFY(view->delivered() > 5);
    QTRY_VERIFY(test.window->status().cameras().contains("1 of 1"));
}

void tst_CViewerWindow::twoCamerasTwoTabs()
{
    const SWindow test;
    test.connectCamera("fake-1");
    test.connectCamera("fake-2");
    QTRY_COMPARE(test.window->imageDocks().docks().size(), 2);
    QCOMPARE(test.window->tabs().count(), 2);
    const int shown = test.window->tabs().currentIndex();
    for (const char* way : {"nextScene", "previousScene"}) {
        action(*test.window, way)->trigger();
        QCOMPARE(test.window->tabs().currentIndex(), 1 - shown);
        action(*test.window, way)->trigger(); // from the last one to the first, and back
        QCOMPARE(test.window->tabs().currentIndex(), shown);
    }
    const auto allOfThem = test.window->sessions().all();
    for (CCameraSession* const session : allOfThem)
        session->start();
    for (const CCameraSession* const session : allOfThem)
        QTRY_VERIFY(session->frames() > 5);
}

void tst_CViewerWindow::tabAndCameraListFollowOneAnother()
{
    const SWindow test;
    const CCameraSession* const one = test.connectCamera("fake-1");
    QTRY_VERIFY(one->isOpen());
    const CCameraSession* const two = test.connectCamera("fake-2");
    QTRY_VERIFY(two->isOpen());
    CCameraPanel& panel = test.window->docks().cameras();
    QCOMPARE(panel.current(), two);
    panel.choose("fake-1");
    QCOMPARE(test.window->tabs().current()->scene(), one->scene());
    test.window->tabs().setCurrentIndex(1);
    QCOMPARE(panel.current(), two);
}

void tst_CViewerWindow::whatHoldsItUpIsTold()
{
    const SWindow test;
    CCameraSession* const session = test.connectCamera("fake-1");
    QTRY_VERIFY(session->isOpen());
    session->start();
    QTRY_VERIFY(test.window->findChild<CThreadWatch*>()->isBeating());
    QThread::msleep(400); // as a model does that computes here
    QTRY_VERIFY(test.window->status().message().contains("held up"));
}

void tst_CViewerWindow::closingATabDisconnectsItsCamera()
{
    const SWindow test;
    const QPointer<CCameraSession> session = test.connectCamera("fake-1");
    QTRY_VERIFY(session->isOpen());
    session->start();
    QTRY_VERIFY(session->frames() > 0);
    action(*test.window, "closeScene")->trigger();
    QCOMPARE(test.window->tabs().count(), 0);
    QTRY_VERIFY(!session);
    QTRY_VERIFY(test.window->imageDocks().docks().isEmpty());
    QVERIFY(test.window->newScene("without a camera"));
    action(*test.window, "closeScene")->trigger();
    QCOMPARE(test.window->tabs().count(), 0);
}

void tst_CViewerWindow::changesAreAskedAbout_data()
{
    QTest::addColumn<QString>("way");
    for (const char* way : {"closeScene", "close button", "recent file", "disconnectCamera"})
        QTest::newRow(way) << way;
}

void tst_CViewerWindow::changesAreAskedAbout()
{
    QFETCH(const QString, way);
    const SWindow test;
    QVERIFY(test.window->newScene("saved"));
    QVERIFY(test.window->saveScene(test.file("scene.json")));
    const QPointer<CCameraSession> session = test.connectCamera("fake-1");
    QTRY_VERIFY(session->isOpen());
    const QPointer<CScenePage> page = test.window->tabs().current();
    QCOMPARE(page->scene(), session->scene());
    const QPointer<CNodeScene> scene = page->scene();
    const Core::CId blur = page->editor().addNode("Blur", {});
    for (const auto answer : {QMessageBox::Cancel, QMessageBox::Discard}) {
        goThatWay(*test.window, way);
        const QPointer<QMessageBox> question = questionIn(*test.window);
        QVERIFY(question);
        QVERIFY(question->text().contains("fake-1"));
        QVERIFY(page && page->isModified() && page->editor().node(blur));
        question->button(answer)->click();
        QTRY_VERIFY(!question);
        QCOMPARE(scene && page && page->editor().node(blur), answer == QMessageBox::Cancel);
    }
    QTRY_COMPARE(page.isNull(), way != "recent file");
    QTRY_COMPARE(session.isNull(), way != "recent file");
}

void tst_CViewerWindow::questionGoesWithItsScene()
{
    SWindow test;
    const CScenePage* const page = test.window->newScene("one");
    page->editor().addNode("Blur", {});
    test.window->closeCurrent();
    const QPointer<QMessageBox> question = questionIn(*test.window);
    QVERIFY(question);
    test.service.nodes.removeSceneOfNode(page->camera());
    QVERIFY(test.window->newScene("two"));
    QTRY_VERIFY(!question);
    QCOMPARE(test.window->tabs().count(), 1);
}

void tst_CViewerWindow::closingTheWindowAsks()
{
    const SWindow test;
    test.window->newScene("one")->editor().addNode("Blur", {});
    for (const auto answer : {QMessageBox::Cancel, QMessageBox::Discard}) {
        QVERIFY(!test.window->close());
        const QPointer<QMessageBox> question = questionIn(*test.window);
        QVERIFY(question);
        question->button(answer)->click();
        QTRY_VERIFY(!question);
        QCOMPARE(test.window->isVisible(), answer == QMessageBox::Cancel);
    }
}

void tst_CViewerWindow::closingTheWindowClosesCameras()
{
    SWindow test;
    QVector<QPointer<CCameraSession>> sessions;
    for (const char* name : {"fake-1", "fake-2"}) {
        sessions << test.connectCamera(name);
        QTRY_VERIFY(sessions.last()->isOpen());
        sessions.last()->start();
        QTRY_VERIFY(sessions.last()->frames() > 0);
    }
    QVERIFY(test.window->close());
    QVERIFY(test.window->sessions().all().isEmpty());
    for (const QPointer<CCameraSession>& session : qAsConst(sessions)) // each in the background
        QTRY_VERIFY(!session);
    QVERIFY(test.service.nodes.getActiveScene());
}

void tst_CViewerWindow::fileIsForTheSceneItWasAskedFor()
{
    const SWindow test;
    CScenePage* const one = test.window->newScene("one");
    one->editor().addNode("Blur", {});
    action(*test.window, "saveSceneAs")->trigger();
    const QPointer<QFileDialog> saving = test.window->findChild<QFileDialog*>();
    CScenePage* const two = test.window->newScene("two"); // as a camera does that opens meanwhile
    QCOMPARE(test.window->tabs().current(), two);
    choose(saving, test.file("one")); // the suffix is added
    QTRY_COMPARE(one->file(), test.file("one.json"));
    QVERIFY(two->file().isEmpty());
    QTRY_VERIFY(!saving);
    QVERIFY(content(test.file("one.json")).contains("Blur"));

    action(*test.window, "openScene")->trigger();
    auto* const opening = test.window->findChild<QFileDialog*>();
    test.window->tabs().setCurrentWidget(one);
    choose(opening, test.file("one.json"));
    QTRY_COMPARE(two->file(), test.file("one.json"));
    QCOMPARE(countNodes(*two->scene(), "Blur"), 1);
}

void tst_CViewerWindow::fileDialogGoesWithItsScene()
{
    SWindow test;
    for (const char* way : {"openScene", "saveSceneAs", "importChain"}) {
        const CScenePage* const page = test.window->newScene("one");
        action(*test.window, way)->trigger();
        const QPointer<QFileDialog> dialog = test.window->findChild<QFileDialog*>();
        QVERIFY(dialog);
        test.service.nodes.removeSceneOfNode(page->camera());
        QTRY_VERIFY(!dialog);
    }
}

void tst_CViewerWindow::sceneRemovedByOthers()
{
    SWindow test;
    const QPointer<CCameraSession> session = test.connectCamera("fake-1");
    QTRY_VERIFY(session->isOpen());
    session->start();
    QTRY_VERIFY(session->frames() > 0);
    test.service.nodes.removeSceneOfNode(session->node());
    QCOMPARE(test.window->tabs().count(), 0);
    QTRY_VERIFY(!session);
    QTRY_VERIFY(test.window->sessions().all().isEmpty());
}

void tst_CViewerWindow::openSaveImport()
{
    SWindow test;
    action(*test.window, "newScene")->trigger();
    QCOMPARE(test.window->tabs().count(), 1);
    QVERIFY(test.window->importChain(DEMO_CHAIN));
    const std::size_t nodes = test.window->tabs().current()->scene()->nodes().size();
    QVERIFY(nodes > 10);
    QCOMPARE(test.window->tabs().current()->editor().undoStack().count(), 1);
    QVERIFY(test.window->saveScene(test.file("scene.json")));
    QVERIFY(!test.window->tabs().current()->isModified());
    test.window->tabs().current()->editor().addNode("Blur", {});
    QVERIFY(test.window->openScene(test.file("scene.json")));
    QCOMPARE(test.window->tabs().count(), 1);
    QCOMPARE(test.window->tabs().current()->scene()->nodes().size(), nodes);
    QCOMPARE(test.settings.recentFiles(), QStringList{test.file("scene.json")});

    action(*test.window, "closeScene")->trigger();
    QVERIFY(test.window->openScene(test.file("scene.json"))); // makes a scene for it
    QCOMPARE(test.window->tabs().current()->cameraName(), QString("scene"));
}

void tst_CViewerWindow::faultyFileIsListed()
{
    const SWindow test;
    QVERIFY(write(test.file("bad.json"), R"({"nodes": [{"id": "x", "model": {"name": "Nothing"}}]})"));
    QVERIFY(!test.window->openScene(test.file("bad.json")));
    QCOMPARE(test.window->tabs().count(), 0); // the scene that was made for it is gone
    QVERIFY(test.window->docks().faults().errors() > 0);
    QVERIFY(test.window->docks().faults().isVisible());
    QVERIFY(test.window->status().message().contains("bad.json"));
}

void tst_CViewerWindow::fileWithoutAScene()
{
    const SWindow test;
    QVERIFY(!test.window->importChain(DEMO_CHAIN));
    QVERIFY(!test.window->saveScene(test.file("scene.json")));
    QVERIFY(!test.window->status().message().isEmpty());
}

void tst_CViewerWindow::undoAndRedoOfTheShownScene()
{
    const SWindow test;
    CScenePage* const one = test.window->newScene("one");
    one->editor().addNode("Blur", {});
    QAction* const undo = action(*test.window, "undo");
    QAction* const redo = action(*test.window, "redo");
    QVERIFY(undo->isEnabled());
    QVERIFY(undo->text().contains("Blur"));
    test.window->newScene("two");
    QVERIFY(!undo->isEnabled());
    test.window->tabs().setCurrentWidget(one);
    undo->trigger();
    QCOMPARE(countNodes(*one->scene(), "Blur"), 0);
    QVERIFY(redo->isEnabled());
    redo->trigger();
    QCOMPARE(countNodes(*one->scene(), "Blur"), 1);
}

void tst_CViewerWindow::undoByKeyboardInTheGraph()
{
    const SWindow test;
    const CScenePage* const page = test.window->newScene("one");
    page->editor().addNode("Blur", {});
    QApplication::setActiveWindow(test.window.get());
    page->view().setFocus();
    QTRY_VERIFY(page->view().hasFocus());
    QTest::keySequence(&page->view(), QKeySequence::Undo);
    QCOMPARE(countNodes(*page->scene(), "Blur"), 0);
    QTest::keySequence(&page->view(), QKeySequence::Redo);
    QCOMPARE(countNodes(*page->scene(), "Blur"), 1);
}

void tst_CViewerWindow::refusedImageViewIsNoStep()
{
    const SWindow test;
    const CScenePage* const page = test.window->newScene("one");
    CNodeScene* const scene = page->scene();
    page->editor().addNode("Blur", {});
    page->editor().undoStack().undo();
    connect(scene, &CNodeScene::nodeCreated, this, [scene](CNodeBase& node) { scene->removeNode(node); });
    action(*test.window, "addImageView")->trigger();
    QVERIFY(!test.window->status().message().isEmpty());
    QVERIFY(!page->editor().undoStack().canUndo());
    QVERIFY(page->editor().undoStack().canRedo()); // what was undone before can be done again
    QVERIFY(!page->isModified());
}

void tst_CViewerWindow::paletteAndSettings()
{
    const SWindow test;
    CScenePage* const page = test.window->newScene("one");
    Q_EMIT test.window->docks().palette().placeRequested("Blur");
    QCOMPARE(countNodes(*page->scene(), "Blur"), 1);
    QVERIFY(test.window->docks().settings().findChildren<QWidget*>().size() > 4); // the new node is chosen
}

void tst_CViewerWindow::commandsByKeyboard()
{
    const SWindow test;
    QApplication::setActiveWindow(test.window.get());
    test.window->setFocus();
    QTest::keyClick(test.window.get(), Qt::Key_K, Qt::ControlModifier);
    CCommandPalette& palette = test.window->commandPalette();
    QTRY_VERIFY(palette.isVisible());
    auto* const line = palette.findChild<QLineEdit*>();
    QTest::keyClicks(line, "new scene");
    QTest::keyClick(line, Qt::Key_Return);
    QCOMPARE(test.window->tabs().count(), 1);
    QVERIFY(!palette.isVisible());
}

void tst_CViewerWindow::everyCommandHasATextAndAName()
{
    const SWindow test;
    test.connectCamera("fake-1");
    QTRY_COMPARE(test.window->imageDocks().docks().size(), 1);
    test.window->showCommands();
    const auto commands = commandsOf(test.window->menuBar()->actions());
    QVERIFY(commands.size() > 50);
    // Those of the window work everywhere: nothing in it may have the same.
    QMap<QString, int> shortcuts;
    QStringList ofParts;
    for (const SCommand& command : commands) {
        QVERIFY2(!command.action->text().isEmpty(), qPrintable(command.action->objectName()));
        const QString shortcut = command.action->shortcut().toString();
        if (command.action->shortcutContext() != Qt::WindowShortcut)
            ofParts << shortcut;
        else if (!shortcut.isEmpty())
            ++shortcuts[shortcut];
    }
    for (auto shortcut = shortcuts.begin(); shortcut != shortcuts.end(); ++shortcut)
        QVERIFY2(shortcut.value() == 1 && !ofParts.contains(shortcut.key()), qPrintable(shortcut.key()));
}

void tst_CViewerWindow::languageChangesWhileItRuns()
{
    SWindow test;
    test.connectCamera("fake-1");
    QTRY_COMPARE(test.window->imageDocks().docks().size(), 1);
    test.window->tabs().current()->editor().addNode("Blur", {});
    CLanguage language;
    connect(test.window.get(), &CViewerWindow::languageChosen, this,
            [&language](const QString& code) { language.install(code); });
    QSet<QString> titles;
    QSet<QString> steps; // what undo would take back, as menu and history call it
    const auto& history = *test.window->findChild<QUndoView*>();
    const auto allCodes = CLanguage::codes();
    for (const QString& code : allCodes) {
        test.window->chooseLanguage(code);
        QCOMPARE(test.settings.language(), code);
        QCoreApplication::processEvents();
        titles.insert(action(*test.window, "openScene")->text());
        QVERIFY(!test.window->findChild<QDockWidget*>("cameras")->windowTitle().isEmpty());
        const QString step = history.currentIndex().data().toString();
        QVERIFY(action(*test.window, "undo")->text().endsWith(step));
        steps.insert(step);
    }
    QCOMPARE(titles.size(), allCodes.size());
    QCOMPARE(steps.size(), allCodes.size());
}

void tst_CViewerWindow::colors()
{
    SWindow test;
    test.window->chooseColors(CViewerSettings::EColors::Dark);
    QVERIFY(isDark(test.window->palette()));
    QCOMPARE(test.settings.colors(), CViewerSettings::EColors::Dark);
    test.window->chooseColors(CViewerSettings::EColors::Light);
    QVERIFY(!isDark(test.window->palette()));
    // As light or dark as the desktop's, with colours that can be read.
    test.window->chooseColors(CViewerSettings::EColors::AsDesktop);
    QCOMPARE(QApplication::palette(), lightPalette());
}

void tst_CViewerWindow::layoutIsRemembered()
{
    SWindow test;
    auto* const models = test.window->findChild<QDockWidget*>("models");
    auto* const history = test.window->findChild<QDockWidget*>("history");
    QVERIFY(!history->isVisible());
    models->close();
    history->show();
    test.window->resize(900, 700);
    test.window->close();
    test.makeWindow();
    QVERIFY(!test.window->findChild<QDockWidget*>("models")->isVisible());
    QVERIFY(!test.window->findChild<QDockWidget*>("history")->isHidden());
    QCOMPARE(test.window->size(), QSize(900, 700));
}

void tst_CViewerWindow::imagesMenuHasOneSubmenuForEachImage()
{
    const SWindow test;
    test.connectCamera("fake-1");
    QTRY_COMPARE(test.window->imageDocks().docks().size(), 1);
    QMenu* const images = test.window->menuBar()->actions().at(4)->menu();
    for (int time = 0; time < 3; ++time)
        Q_EMIT images->aboutToShow();
    QTRY_COMPARE(images->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly).size(), 1);
    QCOMPARE(images->actions().size(), 1);
}

void tst_CViewerWindow::everyWidgetThatIsUsedHasAName()
{
    const SWindow test;
    test.connectCamera("fake-1");
    QTRY_COMPARE(test.window->imageDocks().docks().size(), 1);
    // With what is shown now and then: settings, features, and a text with a fault.
    QTRY_VERIFY(test.window->docks().features().editor("Width"));
    Q_EMIT test.window->docks().palette().placeRequested("Blur");
    QVERIFY(write(test.file("bad.json"), "[7]"));
    QVERIFY(!test.window->importChain(test.file("bad.json")));
    const auto allChildren = test.window->findChildren<QWidget*>();
    for (const QWidget* const widget : allChildren) {
        // Those of docks are Qt's own, and their tabs have the docks' names. A label's name is its text.
        const bool isOfDocks = qobject_cast<const QTabBar*>(widget) && widget->parent() == test.window.get();
        if (isOfDocks || qobject_cast<const QLabel*>(widget) || widget->focusPolicy() == Qt::NoFocus ||
            widget->isHidden() || widget->window() != test.window.get() || widget->objectName().startsWith("qt_"))
            continue;
        QVERIFY2(!nameOf(*widget).isEmpty() || widget->focusProxy(), widget->metaObject()->className());
    }
}

void tst_CViewerWindow::destroyedWhileCamerasStream()
{
    SWindow test;
    for (const char* name : {"fake-1", "fake-2"}) {
        CCameraSession* const session = test.connectCamera(name);
        connect(session, &CCameraSession::opened, session, &CCameraSession::start);
    }
    const auto allOfThem = test.window->sessions().all();
    for (const CCameraSession* const session : allOfThem)
        QTRY_VERIFY(session->frames() > 0);
    test.window.reset();
    QCoreApplication::processEvents();
    QVERIFY(test.service.nodes.getActiveScene()); // scenes are the service's
}

QTEST_MAIN(tst_CViewerWindow)
#include "tst_CViewerWindow.moc"
