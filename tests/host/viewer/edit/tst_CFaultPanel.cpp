// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/CFaultPanel.h"

#include "edit/SEditedScene.h"
#include "host/viewer/edit/CFaultModel.h"

#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

using namespace Host;

class tst_CFaultPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsNothingInASoundScene();
    void leadsToTheNodeOfAScene();
    void leadsToThePlaceInAText();
};

void tst_CFaultPanel::findsNothingInASoundScene()
{
    SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    QVERIFY(edited.connectNodes(edited.camera, blur));
    CFaultPanel panel(edited.service.nodes, edited.service.models);
    panel.checkScene(*edited.scene);
    QCOMPARE(panel.errors(), 0);
    QCOMPARE(panel.warnings(), 0);
}

void tst_CFaultPanel::leadsToTheNodeOfAScene()
{
    SEditedScene edited;
    QVERIFY(edited.connectNodes(edited.camera, edited.add("Edges")));
    const Core::CId blur = edited.add("Blur"); // no camera reaches it
    CFaultPanel panel(edited.service.nodes, edited.service.models);
    panel.resize(600, 300);
    panel.show();
    panel.checkScene(*edited.scene);
    QCOMPARE(panel.errors() + panel.warnings(), 1);
    std::vector<Core::CId> chosen;
    connect(&panel, &CFaultPanel::nodeChosen, this, [&chosen](const Core::CId& id) { chosen.push_back(id); });
    const auto* const view = panel.findChild<QTreeView*>(QStringLiteral("faults"));
    const QModelIndex place = view->model()->index(0, CFaultModel::Place);
    QCOMPARE(place.data().toString(), QStringLiteral("Blur"));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, view->visualRect(place).center());
    QCOMPARE(chosen, std::vector<Core::CId>{blur});
}

void tst_CFaultPanel::leadsToThePlaceInAText()
{
    SEditedScene edited;
    CFaultPanel panel(edited.service.nodes, edited.service.models);
    panel.resize(600, 300);
    panel.show();
    panel.checkText("[\n  { \"name\": \"a\", \"model\": { \"name\": \"Blurr\" } }\n]");
    QVERIFY(panel.errors() > 0);
    const QSignalSpy chosen(&panel, &CFaultPanel::placeChosen);
    const auto* const view = panel.findChild<QTreeView*>(QStringLiteral("faults"));
    QCOMPARE(view->model()->index(0, CFaultModel::Severity).data().toString(), QStringLiteral("Error"));
    const QModelIndexList found = view->model()->match(view->model()->index(0, CFaultModel::Message), Qt::DisplayRole,
                                                       QStringLiteral("'Blurr'"), 1, Qt::MatchContains);
    QCOMPARE(found.size(), 1);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, view->visualRect(found.front()).center());
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen.front().front().toInt(), 2);
}

QTEST_MAIN(tst_CFaultPanel)
#include "tst_CFaultPanel.moc"
