// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "SWindowByHand.h"
#include "host/viewer/base/CLanguage.h"
#include "host/viewer/base/Theme.h"
#include "host/viewer/cameras/CCameraList.h"
#include "host/viewer/cameras/CCameraPanel.h"
#include "host/viewer/edit/CFaultModel.h"
#include "host/viewer/edit/CFaultPanel.h"
#include "host/viewer/edit/CGraphEditor.h"
#include "host/viewer/graph/CGraphCanvas.h"
#include "host/viewer/graph/CGraphView.h"
#include "host/viewer/window/CCommandPalette.h"
#include "host/viewer/window/CScenePage.h"
#include "host/viewer/window/CSceneTabs.h"
#include "host/viewer/window/CViewerDocks.h"

#include <QApplication>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QListView>
#include <QMenuBar>
#include <QMessageBox>
#include <QTabBar>
#include <QToolButton>
#include <QTreeView>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

// Of an action of the camera panel.
QWidget& buttonOf(const SWindowByHand& test, const char* action)
{
    const auto allButtons = test.window->docks().cameras().findChildren<QToolButton*>();
    for (QToolButton* const each : allButtons) {
        if (each->defaultAction() == test.action(action))
            return *each;
    }
    qFatal("no button for %s", action);
}

// The camera that is simulated, in the list.
QPoint placeOfFake(const QListView& list)
{
    const QModelIndexList found = list.model()->match(list.model()->index(0, 0), CCameraList::NameRole, "fake");
    return found.isEmpty() ? QPoint() : list.visualRect(found.front()).center();
}

// Its session.
CCameraSession& sessionOfFake(const SWindow& test)
{
    CCameraSession* const session = test.window->sessions().find("fake");
    if (!session)
        qFatal("no session");
    return *session;
}

void clickTab(SWindowByHand& test, int index)
{
    const QTabBar& bar = *test.window->tabs().tabBar();
    const QRect tab = bar.tabRect(index);
    test.hand.click(bar, {tab.left() + tab.width() / 4, tab.center().y()}); // on its name: a button closes it
}

QPoint placeInMenuBar(const QMenuBar& bar, const QMenu& menu)
{
    return bar.actionGeometry(menu.menuAction()).center();
}

QMenu* menuWith(const QMenuBar& bar, QAction* item)
{
    const auto allMenus = bar.findChildren<QMenu*>();
    for (QMenu* const each : allMenus) {
        if (each->actions().contains(item))
            return each;
    }
    qFatal("no menu with %s", qPrintable(item->text()));
}

QMenu* openMenu()
{
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

} // namespace

/// The window as a person uses it, with mouse and keyboard: cameras, scenes, faults, commands, languages and colours.
class tst_WindowByHand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cameraByClicks();
    void cameraByDoubleClick();
    void cameraByKeyboard();
    void tabMakesItsSceneTheActiveOne();
    void closeButtonAsks();
    void saveByKey();
    void faultLeadsToItsNode();
    void commandByWords();
    void languageByKeyboard();
    void colorsByKeyboard();
};

void tst_WindowByHand::initTestCase()
{
    QVERIFY2(CHand::isThere(), "it runs on an X server: xvfb-run, with QT_QPA_PLATFORM=xcb");
}

void tst_WindowByHand::cameraByClicks()
{
    SWindowByHand test;
    const auto& list = *test.window->docks().cameras().findChild<QListView*>();
    QTRY_VERIFY(!placeOfFake(list).isNull());
    const auto push = [&test](const char* action) {
        QTRY_VERIFY2(test.action(action)->isEnabled(), action);
        test.hand.click(buttonOf(test, action));
    };
    test.hand.click(*list.viewport(), placeOfFake(list));
    push("connectCamera");
    QTRY_VERIFY(test.window->sessions().find("fake"));
    const CCameraSession& session = sessionOfFake(test);
    QTRY_VERIFY(session.frames() > 0); // it starts by itself
    push("stopCamera");
    QTRY_COMPARE(session.state(), CCameraSession::EState::Ready);
    QTRY_VERIFY(!session.isBusy());
    const quint64 frames = session.frames();
    push("grabSingle");
    QTRY_COMPARE(session.frames(), frames + 1);
    QTRY_VERIFY(!session.isBusy() && session.state() == CCameraSession::EState::Ready);
    push("startCamera");
    QTRY_VERIFY(session.frames() > frames + 2);
    push("disconnectCamera");
    QTRY_VERIFY(test.window->sessions().all().isEmpty());
    QCOMPARE(test.window->tabs().count(), 0);
}

void tst_WindowByHand::cameraByDoubleClick()
{
    SWindowByHand test;
    const auto& list = *test.window->docks().cameras().findChild<QListView*>();
    QTRY_VERIFY(!placeOfFake(list).isNull());
    test.hand.doubleClick(*list.viewport(), placeOfFake(list));
    QTRY_VERIFY(test.window->sessions().find("fake"));
    QTRY_VERIFY(sessionOfFake(test).frames() > 0);
}

void tst_WindowByHand::cameraByKeyboard()
{
    SWindowByHand test;
    const auto& list = *test.window->docks().cameras().findChild<QListView*>();
    QTRY_VERIFY(!placeOfFake(list).isNull());
    test.hand.click(*list.viewport(), placeOfFake(list));
    test.hand.press(Qt::Key_Return);
    QTRY_VERIFY(test.window->sessions().find("fake"));
    const CCameraSession& session = sessionOfFake(test);
    QTRY_VERIFY(session.frames() > 0 && test.action("stopCamera")->isEnabled());
    test.hand.press(Qt::Key_F6);
    QTRY_VERIFY(session.state() == CCameraSession::EState::Ready && test.action("startCamera")->isEnabled());
    test.hand.press(Qt::Key_F5);
    QTRY_COMPARE(session.state(), CCameraSession::EState::Streaming);
}

void tst_WindowByHand::tabMakesItsSceneTheActiveOne()
{
    SWindowByHand test;
    const CScenePage* const one = test.window->newScene("one");
    const CScenePage* const two = test.window->newScene("two");
    QCOMPARE(test.service.nodes.getActiveScene(), two->scene());
    clickTab(test, 0);
    QTRY_COMPARE(test.service.nodes.getActiveScene(), one->scene());
    QVERIFY(isSeen(one->view()) && !isSeen(two->view()));
    clickTab(test, 1);
    QTRY_COMPARE(test.service.nodes.getActiveScene(), two->scene());
    QVERIFY(isSeen(two->view()) && !isSeen(one->view()));
}

void tst_WindowByHand::closeButtonAsks()
{
    SWindowByHand test;
    test.window->newScene("one")->editor().addNode("Blur", {});
    const auto clickCloseButton = [&test] {
        test.hand.click(*test.window->tabs().tabBar()->tabButton(0, QTabBar::RightSide));
        QTRY_VERIFY(test.window->findChild<QMessageBox*>());
        QVERIFY(test.hand.giveFocus(*test.window->findChild<QMessageBox*>()));
    };
    clickCloseButton();
    test.hand.press(Qt::Key_Escape);
    QTRY_VERIFY(!test.window->findChild<QMessageBox*>());
    QCOMPARE(test.window->tabs().count(), 1);
    clickCloseButton();
    test.hand.click(*test.window->findChild<QMessageBox*>()->button(QMessageBox::Discard));
    QTRY_COMPARE(test.window->tabs().count(), 0);
}

void tst_WindowByHand::saveByKey()
{
    SWindowByHand test;
    const CScenePage* const page = test.window->newScene("one");
    page->editor().addNode("Blur", {});
    test.hand.press(QKeySequence::Save);
    QTRY_VERIFY(test.window->findChild<QFileDialog*>());
    QVERIFY(test.hand.giveFocus(*test.window->findChild<QFileDialog*>()));
    test.hand.press(QKeySequence::SelectAll);
    test.hand.type(test.file("scene")); // the suffix is added
    test.hand.press(Qt::Key_Return);
    QTRY_COMPARE(page->file(), test.file("scene.json"));
    QVERIFY(!page->isModified());
    QVERIFY(QFileInfo::exists(page->file()));
}

void tst_WindowByHand::faultLeadsToItsNode()
{
    SWindowByHand test;
    const CScenePage* const page = test.window->newScene("one"); // whose camera feeds nothing
    const QMenuBar& bar = *test.window->menuBar();
    QAction* const shows = test.window->findChild<QDockWidget*>("faults")->toggleViewAction();
    test.hand.choose(bar, placeInMenuBar(bar, *menuWith(bar, shows)), {shows});
    QTRY_VERIFY(isSeen(test.window->docks().faults()));
    const auto& faults = *test.window->docks().faults().findChild<QTreeView*>("faults");
    const auto place = [&faults] { return faults.model()->index(0, CFaultModel::Place); };
    QTRY_COMPARE(place().data().toString(), QString("Camera: one"));
    QVERIFY(page->view().canvas().selectedNodes().empty());
    test.hand.click(*faults.viewport(), faults.visualRect(place()).center());
    QTRY_COMPARE(page->view().canvas().selectedNodes(), std::vector<Core::CId>{page->camera()->id()});
}

void tst_WindowByHand::commandByWords()
{
    SWindowByHand test;
    CCommandPalette& palette = test.window->commandPalette();
    test.hand.press(QKeySequence(QStringLiteral("Ctrl+K")));
    QVERIFY(test.hand.giveFocus(palette));
    test.hand.type("new sc");
    QTRY_COMPARE(palette.texts(), QStringList{"File › New scene"});
    test.hand.press(Qt::Key_Return);
    QTRY_COMPARE(test.window->tabs().count(), 1);
    QVERIFY(!palette.isVisible());
    QVERIFY(test.hand.giveFocus(*test.window));
    test.hand.press(QKeySequence(QStringLiteral("Ctrl+K")));
    QVERIFY(test.hand.giveFocus(palette));
    test.hand.press(Qt::Key_Escape);
    QTRY_VERIFY(!palette.isVisible());
    QCOMPARE(test.window->tabs().count(), 1);
}

void tst_WindowByHand::languageByKeyboard()
{
    SWindowByHand test;
    CLanguage language;
    connect(test.window.get(), &CViewerWindow::languageChosen, this,
            [&language](const QString& code) { language.install(code); });
    CCommandPalette& palette = test.window->commandPalette();
    test.hand.press(QKeySequence(QStringLiteral("Ctrl+K")));
    QVERIFY(test.hand.giveFocus(palette));
    test.hand.type("view language");
    const QString japanese = "View › Language › " + CLanguage::nativeName("ja");
    QTRY_COMPARE(palette.texts().size(), CLanguage::codes().size() + 1); // and that of the desktop
    for (int row = palette.texts().indexOf(japanese); row > 0; --row)
        test.hand.press(Qt::Key_Down);
    test.hand.press(Qt::Key_Return);
    QTRY_COMPARE(test.settings.language(), QString("ja"));
    QCOMPARE(language.code(), QString("ja"));
    QTRY_COMPARE(test.action("newScene")->text(), QCoreApplication::translate("Host::CViewerMenus", "New scene"));
    QVERIFY(test.action("newScene")->text() != "New scene");
}

void tst_WindowByHand::colorsByKeyboard()
{
    SWindowByHand test;
    test.window->chooseColors(CViewerSettings::EColors::Light);
    QAction* const dark = test.action("colors-2");
    const QMenu* const colors = menuWith(*test.window->menuBar(), dark);
    test.hand.press(QKeySequence(QStringLiteral("Alt+V")));
    QTRY_VERIFY(openMenu() && openMenu()->actions().contains(colors->menuAction()));
    const QMenu* const view = openMenu();
    for (int i = 0; i < view->actions().size() && view->activeAction() != colors->menuAction(); ++i)
        test.hand.press(Qt::Key_Down);
    test.hand.press(Qt::Key_Right);
    QTRY_COMPARE(openMenu(), colors);
    for (int i = 0; i < colors->actions().size() && colors->activeAction() != dark; ++i)
        test.hand.press(Qt::Key_Down);
    test.hand.press(Qt::Key_Return);
    QTRY_COMPARE(test.settings.colors(), CViewerSettings::EColors::Dark);
    QVERIFY(isDark(test.window->palette()));
    QVERIFY(!openMenu());
}

QTEST_MAIN(tst_WindowByHand)
#include "tst_WindowByHand.moc"
