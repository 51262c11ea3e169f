// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CImageActions.h"

#include <QSet>
#include <QTest>

using namespace Host;

class tst_CImageActions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyActionHasANameATextAndAKeyOfItsOwn();
    void oneOfEachChoiceIsChosen();
    void toolBarShowsIcons();
};

void tst_CImageActions::everyActionHasANameATextAndAKeyOfItsOwn()
{
    const CImageActions actions;
    QSet<QString> names;
    QSet<QString> keys;
    const auto allActions = actions.actions();
    for (const QAction* const action : allActions) {
        QVERIFY(!action->text().isEmpty());
        QVERIFY(!action->toolTip().isEmpty());
        QVERIFY2(!names.contains(action->objectName()), qPrintable(action->objectName()));
        names.insert(action->objectName());
        const auto allShortcuts = action->shortcuts();
        for (const QKeySequence& key : allShortcuts) {
            QVERIFY2(key.isEmpty() || !keys.contains(key.toString()), qPrintable(key.toString()));
            keys.insert(key.toString());
        }
        QCOMPARE(action->shortcutContext(), Qt::WidgetWithChildrenShortcut);
    }
    QVERIFY(keys.contains(QStringLiteral("0")) && keys.contains(QStringLiteral("+")));
}

void tst_CImageActions::oneOfEachChoiceIsChosen()
{
    const CImageActions actions;
    QVERIFY(actions.palettes[std::size_t(EPalette::Plain)]->isChecked());
    QVERIFY(actions.ranges[std::size_t(ERangeMode::Full)]->isChecked());
    actions.palettes[std::size_t(EPalette::Heat)]->trigger();
    QVERIFY(!actions.palettes[std::size_t(EPalette::Plain)]->isChecked());
}

void tst_CImageActions::toolBarShowsIcons()
{
    const CImageActions actions;
    const auto allToolBarActions = actions.toolBarActions();
    for (const QAction* const action : allToolBarActions)
        QVERIFY2(!action || !action->icon().isNull(), action ? qPrintable(action->text()) : "");
}

QTEST_MAIN(tst_CImageActions)
#include "tst_CImageActions.moc"
