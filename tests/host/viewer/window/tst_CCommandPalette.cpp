// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CCommandModel.h"
#include "host/viewer/window/CCommandPalette.h"

#include <QAction>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>

using namespace Host;

namespace {

struct SPalette
{
    SPalette()
    {
        QMenu* const file = bar.addMenu("&File");
        open = file->addAction("&Open scene…");
        save = file->addAction("Save scene");
        file->addSeparator();
        QMenu* const recent = file->addMenu("Recent");
        recent->addAction("first.json");
        QMenu* const view = bar.addMenu("View(&V)");
        view->addAction("Hidden")->setVisible(false);
        dark = view->addAction("Dark");
        save->setEnabled(false);
        open->setShortcut(QKeySequence::Open);
        palette.setCommands(commandsOf(bar.actions()));
        palette.open();
    }

    QLineEdit* line() const { return palette.findChild<QLineEdit*>(); }

    QMenuBar bar;
    QAction* open;
    QAction* save;
    QAction* dark;
    CCommandPalette palette;
};

} // namespace

class tst_CCommandPalette : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsWhatCanBeSeenInItsOrder();
    void everyWordMustBeFound();
    void enterTriggersAndCloses();
    void arrowsChoose();
    void disabledCommandIsNotTriggered();
    void escapeClosesAndDoesNothing();
    void clickTriggers();
    void actionThatIsGone();
};

void tst_CCommandPalette::listsWhatCanBeSeenInItsOrder()
{
    const SPalette test;
    QCOMPARE(test.palette.texts(),
             (QStringList{"File › Open scene…", "File › Save scene", "File › Recent › first.json", "View › Dark"}));
}

void tst_CCommandPalette::everyWordMustBeFound()
{
    const SPalette test;
    QTest::keyClicks(test.line(), "SCENE file");
    QCOMPARE(test.palette.texts(), (QStringList{"File › Open scene…", "File › Save scene"}));
    QTest::keyClicks(test.line(), " op");
    QCOMPARE(test.palette.texts(), QStringList{"File › Open scene…"});
    QTest::keyClicks(test.line(), "x");
    QVERIFY(test.palette.texts().isEmpty());
    QTest::keyClick(test.line(), Qt::Key_Return); // nothing to trigger
    QVERIFY(test.palette.isVisible());
}

void tst_CCommandPalette::enterTriggersAndCloses()
{
    const SPalette test;
    QSignalSpy triggered(test.dark, &QAction::triggered);
    QTest::keyClicks(test.line(), "dark");
    QTest::keyClick(test.line(), Qt::Key_Return);
    QCOMPARE(triggered.count(), 1);
    QVERIFY(!test.palette.isVisible());
}

void tst_CCommandPalette::arrowsChoose()
{
    const SPalette test;
    QSignalSpy triggered(test.dark, &QAction::triggered);
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(test.line(), Qt::Key_Down);
    QTest::keyClick(test.line(), Qt::Key_Up);
    QTest::keyClick(test.line(), Qt::Key_Down);
    QTest::keyClick(test.line(), Qt::Key_Return);
    QCOMPARE(triggered.count(), 1);
}

void tst_CCommandPalette::disabledCommandIsNotTriggered()
{
    const SPalette test;
    QSignalSpy triggered(test.save, &QAction::triggered);
    QTest::keyClicks(test.line(), "save");
    QTest::keyClick(test.line(), Qt::Key_Return);
    QVERIFY(triggered.isEmpty());
    QVERIFY(test.palette.isVisible());
}

void tst_CCommandPalette::escapeClosesAndDoesNothing()
{
    const SPalette test;
    QSignalSpy triggered(test.open, &QAction::triggered);
    QTest::keyClick(test.line(), Qt::Key_Escape);
    QVERIFY(!test.palette.isVisible());
    QVERIFY(triggered.isEmpty());
}

void tst_CCommandPalette::clickTriggers()
{
    const SPalette test;
    QSignalSpy triggered(test.dark, &QAction::triggered);
    const auto* const list = test.palette.findChild<QListView*>();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->model()->index(3, 0)).center());
    QCOMPARE(triggered.count(), 1);
}

void tst_CCommandPalette::actionThatIsGone()
{
    const SPalette test;
    delete test.open;
    QTest::keyClick(test.line(), Qt::Key_Return);
    QTest::keyClicks(test.line(), "scene");
    QCOMPARE(test.palette.texts(), QStringList{"File › Save scene"});
}

QTEST_MAIN(tst_CCommandPalette)
#include "tst_CCommandPalette.moc"
