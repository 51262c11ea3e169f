// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/CFaultPanel.h"

#include "edit/SEditedScene.h"
#include "host/viewer/base/CLanguage.h"
#include "host/viewer/edit/CFaultModel.h"
#include "host/viewer/images/ViewModels.h"

#include <QPlainTextEdit>
#include <QTest>
#include <QTextBlock>
#include <QTreeView>

using namespace Host;

namespace {

const char* const unknownModel = R"([{"name": "a", "model": {"name": "Nothing"}, "unique_sources": [["fake"]]}])";

QModelIndex firstMessage(const CFaultPanel& panel)
{
    return panel.findChild<QTreeView*>(QStringLiteral("faults"))->model()->index(0, CFaultModel::Message);
}

} // namespace

class tst_CFaultPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsNothingInASoundScene();
    void leadsToTheNodeOfAScene();
    void leadsToThePlaceInAText();
    void namesNoCommand();
    void speaksTheLanguageOfTheWindow();
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
    const auto* const text = panel.findChild<QPlainTextEdit*>();
    QVERIFY(text->isVisible());
    const auto* const view = panel.findChild<QTreeView*>(QStringLiteral("faults"));
    QCOMPARE(view->model()->index(0, CFaultModel::Severity).data().toString(), QStringLiteral("Error"));
    const QModelIndexList found = view->model()->match(view->model()->index(0, CFaultModel::Message), Qt::DisplayRole,
                                                       QStringLiteral("'Blurr'"), 1, Qt::MatchContains);
    QCOMPARE(found.size(), 1);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, view->visualRect(found.front()).center());
    QCOMPARE(text->textCursor().blockNumber(), 1);
    const QString line = text->textCursor().block().text();
    QVERIFY(line.midRef(text->textCursor().positionInBlock()).startsWith(QLatin1String("\"Blurr\"")));

    panel.checkScene(*edited.scene); // whose places are nodes
    QVERIFY(!text->isVisible());
}

// Who looks at a window has no place to type it.
void tst_CFaultPanel::namesNoCommand()
{
    SEditedScene edited;
    registerViewModels(edited.service.nodes, edited.service.models); // with these they are too many to be listed
    CFaultPanel panel(edited.service.nodes, edited.service.models);
    panel.checkText(unknownModel);
    QCOMPARE(firstMessage(panel).data().toString(), QStringLiteral("No model 'Nothing' is registered"));
}

void tst_CFaultPanel::speaksTheLanguageOfTheWindow()
{
    CLanguage language;
    language.install(QStringLiteral("ja"));
    SEditedScene edited;
    registerViewModels(edited.service.nodes, edited.service.models); // with these they are too many to be listed
    CFaultPanel panel(edited.service.nodes, edited.service.models);
    panel.checkText(unknownModel);
    QCOMPARE(firstMessage(panel).data().toString(), QStringLiteral("モデル「Nothing」は登録されていません"));
    QCOMPARE(firstMessage(panel).data(Qt::ToolTipRole).toString(),
             QStringLiteral("モデル「Nothing」は登録されていません\nモデルは登録されていること。"));
    // Put together of a message and a question.
    panel.checkText(R"([{"name": "a", "model": {"name": "Blurr"}, "unique_sources": [["fake"]]}])");
    QCOMPARE(firstMessage(panel).data().toString(),
             QStringLiteral("モデル「Blurr」は登録されていません。「Blur」ではありませんか?"));
    // What a scene lacks is told at its node, whatever the language.
    const Core::CId blur = edited.add("Blur");
    QVERIFY(edited.connectNodes(edited.camera, edited.add("Edges")));
    panel.checkScene(*edited.scene);
    std::vector<Core::CId> chosen;
    connect(&panel, &CFaultPanel::nodeChosen, this, [&chosen](const Core::CId& id) { chosen.push_back(id); });
    QVERIFY2(firstMessage(panel).data().toString().contains(QStringLiteral("届きません")),
             qPrintable(firstMessage(panel).data().toString()));
    Q_EMIT panel.findChild<QTreeView*>(QStringLiteral("faults"))->activated(firstMessage(panel));
    QCOMPARE(chosen, std::vector<Core::CId>{blur});
}

QTEST_MAIN(tst_CFaultPanel)
#include "tst_CFaultPanel.moc"
