// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CCommandModel.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Host;

class tst_CCommandModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void commandsOfMenusInTheirOrder();
    void actionIsShown();
    void onlyWhatCanBeTriggeredIsEnabled();
    void actionThatHasGoneHasNoText();
};

void tst_CCommandModel::commandsOfMenusInTheirOrder()
{
    QMenuBar bar;
    QMenu* const file = bar.addMenu("&File");
    QAction* const open = file->addAction("&Open…");
    file->addSeparator();
    QAction* const recent = file->addMenu("Recent")->addAction("first.json");
    file->addAction("Hidden")->setVisible(false);

    const QVector<SCommand> commands = commandsOf(bar.actions());
    QCOMPARE(commands.size(), 2);
    QCOMPARE(commands.at(0).menu, QString("File"));
    QCOMPARE(commands.at(0).action.data(), open);
    QCOMPARE(commands.at(1).menu, QString("File › Recent"));
    QCOMPARE(commands.at(1).action.data(), recent);
}

void tst_CCommandModel::actionIsShown()
{
    QAction open("&Open…");
    open.setShortcut(QKeySequence("Ctrl+O"));
    CCommandModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    const QSignalSpy reset(&model, &CCommandModel::modelReset);
    model.setCommands({{"File", &open}, {{}, &open}});

    QCOMPARE(reset.count(), 1);
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(model.index(0).data().toString(), QString("File › Open…"));
    QCOMPARE(model.index(1).data().toString(), QString("Open…"));
    QCOMPARE(model.index(0).data(CCommandModel::shortcutRole).toString(), QString("Ctrl+O"));
    QCOMPARE(model.index(0).data(CCommandModel::actionRole).value<QObject*>(), &open);
    QCOMPARE(model.rowCount(model.index(0)), 0);
}

void tst_CCommandModel::onlyWhatCanBeTriggeredIsEnabled()
{
    QAction save("Save");
    CCommandModel model;
    model.setCommands({{"File", &save}});
    QVERIFY(model.index(0).flags() & Qt::ItemIsEnabled);
    save.setEnabled(false);
    QVERIFY(!(model.index(0).flags() & Qt::ItemIsEnabled));
}

void tst_CCommandModel::actionThatHasGoneHasNoText()
{
    auto save = std::make_unique<QAction>("Save");
    CCommandModel model;
    model.setCommands({{"File", save.get()}});
    save.reset();
    QVERIFY(!model.index(0).data().isValid());
    QVERIFY(!model.index(0).data(CCommandModel::actionRole).isValid());
    QVERIFY(!(model.index(0).flags() & Qt::ItemIsEnabled));
}

QTEST_MAIN(tst_CCommandModel)
#include "tst_CCommandModel.moc"
