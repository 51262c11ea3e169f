// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/CGraphEditor.h"

#include "edit/SEditedScene.h"
#include "host/models/CBlurModel.h"

#include <Halvex/models/CNodeDecouplerDataModelBase.h>

#include <QSignalSpy>
#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

class tst_CGraphEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addsANodeAtItsPlace();
    void refusesAModelThatIsNotThere();
    void undoOfAnAdditionRemovesAndRedoBringsTheSameId();
    void connectsWithTheConverterOfTheTypes();
    void addsAConnectedNodeInOneStep();
    void refusesPortsThatDoNotFit();
    void deletesANodeWithItsConnections();
    void undoOfADeletionBringsEverythingBack();
    void deletesAConnectionAlone();
    void keepsTheCamera();
    void setsASetting();
    void setsTheRateOfADecoupler();
    void refusesAValueThatTheModelDoesNotTake();
    void mergesTheChangesOfOneGesture();
    void movesNodes();
    void duplicatesWithTheConnectionsBetweenThem();
    void pastesWhatWasCopied();
    void importsAChain();
    void importsIntoItsOwnSceneAlone();
    void refusesTextThatIsNoChain();
    void undoesToTheBeginningAndRedoesToTheEnd();
    void undoesWhatIsPossibleWhenOthersChangedTheScene();
    void survivesTheEndOfItsScene();
};

void tst_CGraphEditor::addsANodeAtItsPlace()
{
    const SEditedScene edited;
    const QSignalSpy moved(edited.editor.get(), &CGraphEditor::positionsChanged);
    const Core::CId blur = edited.add("Blur", {200, 40});
    QVERIFY(edited.editor->node(blur));
    QCOMPARE(edited.editor->node(blur)->nodeDataModel()->name(), QStringLiteral("Blur"));
    QCOMPARE(edited.editor->positions().value(blur.toString()), QPointF(200, 40));
    QCOMPARE(moved.count(), 1);
    QCOMPARE(edited.stack().undoText(), QStringLiteral("Add 'Blur'"));
}

void tst_CGraphEditor::refusesAModelThatIsNotThere()
{
    const SEditedScene edited;
    QCOMPARE(edited.add("No Such Model"), Core::CId());
    QCOMPARE(edited.stack().count(), 0);
    QCOMPARE(edited.refusals.size(), 1);
}

void tst_CGraphEditor::undoOfAnAdditionRemovesAndRedoBringsTheSameId()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur", {200, 40});
    edited.stack().undo();
    QVERIFY(!edited.editor->node(blur));
    QVERIFY(!edited.editor->positions().contains(blur.toString()));
    edited.stack().redo();
    QVERIFY(edited.editor->node(blur));
    QCOMPARE(edited.editor->positions().value(blur.toString()), QPointF(200, 40));
}

void tst_CGraphEditor::connectsWithTheConverterOfTheTypes()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    QVERIFY(edited.connectNodes(edited.camera, blur));
    QCOMPARE(
        edited.stack().undoText(),
        QStringLiteral("Connect '%1' to 'Blur'").arg(edited.editor->node(edited.camera)->nodeDataModel()->caption()));
    const CNodeConnection& connection = *edited.scene->connections().begin()->second;
    QVERIFY(connection.save().contains(QStringLiteral("converter")));
    const QByteArray connected = edited.document();
    edited.stack().undo();
    QVERIFY(edited.scene->connections().empty());
    edited.stack().redo();
    QCOMPARE(edited.document(), connected);
}

void tst_CGraphEditor::addsAConnectedNodeInOneStep()
{
    const SEditedScene edited;
    const QByteArray before = edited.document();
    const Core::CId blur = edited.editor->addConnectedNode("Blur", {304, 40}, SEditedScene::out(edited.camera),
                                                           {{"size", "33"}, {"method", "no such method"}},
                                                           [] { return QStringLiteral("Smooth"); });
    QCOMPARE(edited.stack().count(), 1);
    QCOMPARE(edited.stack().undoText(), QStringLiteral("Smooth"));
    QCOMPARE(edited.refusals.size(), 1); // of the method
    QCOMPARE(edited.scene->connections().size(), std::size_t(1));
    const QByteArray added = edited.document();
    edited.stack().undo();
    QCOMPARE(edited.document(), before);
    edited.stack().redo();
    QCOMPARE(edited.document(), added);
    QCOMPARE(edited.editor->node(blur)->nodeDataModel()->property("size").toInt(), 33);
    QCOMPARE(edited.editor->positions().value(blur.toString()), QPointF(304, 40));
}

void tst_CGraphEditor::refusesPortsThatDoNotFit()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    const Core::CId decoupler = edited.add("DecouplerVGR");
    const int steps = edited.stack().count();
    QVERIFY(!edited.connectNodes(blur, decoupler)); // an image is no frame
    QVERIFY(!edited.connectNodes(blur, blur));
    QVERIFY(!edited.editor->connectPorts(SEditedScene::out(blur, 7), SEditedScene::in(decoupler)));
    QVERIFY(!edited.editor->connectPorts(SEditedScene::in(blur), SEditedScene::out(edited.camera))); // the wrong order
    QVERIFY(edited.connectNodes(edited.camera, blur));
    QVERIFY(!edited.connectNodes(edited.camera, blur)); // for the second time
    QCOMPARE(edited.stack().count(), steps + 1);
    QCOMPARE(edited.scene->connections().size(), std::size_t(1));
}

void tst_CGraphEditor::deletesANodeWithItsConnections()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    const Core::CId edges = edited.add("Edges");
    const Core::CId threshold = edited.add("Threshold");
    QVERIFY(edited.connectNodes(edited.camera, blur) && edited.connectNodes(blur, edges) &&
            edited.connectNodes(blur, threshold));
    QVERIFY(edited.editor->remove({blur}, {}));
    QCOMPARE(edited.stack().undoText(), QStringLiteral("Delete 'Blur' with 3 connections"));
    QVERIFY(!edited.editor->node(blur));
    QVERIFY(edited.scene->connections().empty());
}

void tst_CGraphEditor::undoOfADeletionBringsEverythingBack()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur", {80, 8});
    const Core::CId edges = edited.add("Edges", {400, 8});
    QVERIFY(edited.connectNodes(edited.camera, blur) && edited.connectNodes(blur, edges));
    QVERIFY(edited.editor->setSetting(blur, QStringLiteral("size"), QStringLiteral("21")));
    const QByteArray before = edited.document();
    const NodePositions positions = edited.editor->positions();
    QVERIFY(edited.editor->remove({blur, edges}, {}));
    QCOMPARE(edited.stack().undoText(), QStringLiteral("Delete 2 nodes with 2 connections"));
    const QByteArray after = edited.document();
    edited.stack().undo();
    QCOMPARE(edited.document(), before);
    QCOMPARE(edited.editor->positions(), positions);
    edited.stack().redo();
    QCOMPARE(edited.document(), after);
}

void tst_CGraphEditor::deletesAConnectionAlone()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    QVERIFY(edited.connectNodes(edited.camera, blur));
    const QByteArray before = edited.document();
    QVERIFY(edited.editor->remove({}, {edited.scene->connections().begin()->first}));
    QCOMPARE(edited.stack().undoText(), QStringLiteral("Delete a connection"));
    QVERIFY(edited.scene->connections().empty());
    QVERIFY(edited.editor->node(blur));
    edited.stack().undo();
    QCOMPARE(edited.document(), before);
}

void tst_CGraphEditor::keepsTheCamera()
{
    const SEditedScene edited;
    QVERIFY(!edited.editor->remove({edited.camera}, {}));
    QVERIFY(edited.editor->node(edited.camera));
    QCOMPARE(edited.refusals.size(), 1);
    QCOMPARE(edited.stack().count(), 0);
}

void tst_CGraphEditor::setsASetting()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    auto* const model = qobject_cast<CBlurModel*>(edited.editor->node(blur)->nodeDataModel());
    QVERIFY(edited.editor->setSetting(blur, QStringLiteral("method"), QStringLiteral("Median")));
    QCOMPARE(model->method(), CBlurModel::EMethod::Median);
    QCOMPARE(edited.stack().undoText(), QStringLiteral("Set Method of 'Blur' to Median"));
    edited.stack().undo();
    QCOMPARE(model->method(), CBlurModel::EMethod::Gaussian);
    edited.stack().redo();
    QCOMPARE(model->method(), CBlurModel::EMethod::Median);
    const int steps = edited.stack().count();
    QVERIFY(edited.editor->setSetting(blur, QStringLiteral("method"), QStringLiteral("Median")));
    QCOMPARE(edited.stack().count(), steps);
}

void tst_CGraphEditor::setsTheRateOfADecoupler()
{
    const SEditedScene edited;
    const Core::CId id = edited.add("DecouplerVGR");
    const auto* const model = qobject_cast<CNodeDecouplerDataModelBase*>(edited.editor->node(id)->nodeDataModel());
    QVERIFY(edited.editor->setSetting(id, QStringLiteral("framesPerSecond"), QStringLiteral("12.5")));
    QCOMPARE(model->framesPerSecond(), 12.5);
    edited.stack().undo();
    QCOMPARE(model->framesPerSecond(), 25.0);
}

void tst_CGraphEditor::refusesAValueThatTheModelDoesNotTake()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    const int steps = edited.stack().count();
    QVERIFY(!edited.editor->setSetting(blur, QStringLiteral("size"), QStringLiteral("4")));
    QVERIFY(!edited.editor->setSetting(blur, QStringLiteral("size"), QStringLiteral("1001")));
    QVERIFY(!edited.editor->setSetting(blur, QStringLiteral("colour"), QStringLiteral("1")));
    QCOMPARE(edited.refusals.size(), 3);
    QCOMPARE(edited.stack().count(), steps);
}

void tst_CGraphEditor::mergesTheChangesOfOneGesture()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    const auto* const model = qobject_cast<CBlurModel*>(edited.editor->node(blur)->nodeDataModel());
    const int steps = edited.stack().count();
    for (const char* size : {"9", "11", "13"})
        QVERIFY(edited.editor->setSetting(blur, QStringLiteral("size"), QString::fromLatin1(size), 1));
    QCOMPARE(edited.stack().count(), steps + 1);
    QVERIFY(edited.editor->setSetting(blur, QStringLiteral("size"), QStringLiteral("15"), 2));
    QCOMPARE(edited.stack().count(), steps + 2);
    edited.stack().undo();
    QCOMPARE(model->size(), 13);
    edited.stack().undo();
    QCOMPARE(model->size(), 7);
}

void tst_CGraphEditor::movesNodes()
{
    const SEditedScene edited;
    const QString blur = edited.add("Blur", {8, 8}).toString();
    edited.editor->moveNodes({{blur, {8, 8}}});
    QCOMPARE(edited.stack().count(), 1);
    edited.editor->moveNodes({{blur, {80, 16}}});
    QCOMPARE(edited.stack().undoText(), QStringLiteral("Move 'Blur'"));
    QCOMPARE(edited.editor->positions().value(blur), QPointF(80, 16));
    edited.stack().undo();
    QCOMPARE(edited.editor->positions().value(blur), QPointF(8, 8));
}

void tst_CGraphEditor::duplicatesWithTheConnectionsBetweenThem()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur", {80, 8});
    const Core::CId edges = edited.add("Edges", {400, 8});
    QVERIFY(edited.connectNodes(edited.camera, blur) && edited.connectNodes(blur, edges));
    QVERIFY(edited.editor->setSetting(blur, QStringLiteral("size"), QStringLiteral("21")));
    const QByteArray before = edited.document();
    const auto copies = edited.editor->duplicate({edited.camera, blur, edges}, {48, 48});
    QCOMPARE(copies.size(), std::size_t(2));
    QCOMPARE(edited.scene->nodes().size(), std::size_t(5));
    QCOMPARE(edited.scene->connections().size(), std::size_t(3));
    QCOMPARE(qobject_cast<CBlurModel*>(edited.editor->node(copies[0])->nodeDataModel())->size(), 21);
    QCOMPARE(edited.editor->positions().value(copies[0].toString()), QPointF(128, 56));
    edited.stack().undo();
    QCOMPARE(edited.document(), before);
}

void tst_CGraphEditor::pastesWhatWasCopied()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur", {80, 8});
    const QByteArray text = edited.editor->copied({blur});
    QVERIFY(edited.editor->remove({blur}, {}));
    const auto first = edited.editor->paste(text, {400, 400});
    const auto second = edited.editor->paste(text, {800, 400});
    QCOMPARE(first.size(), std::size_t(1));
    QCOMPARE(second.size(), std::size_t(1));
    QVERIFY(first[0] != second[0] && first[0] != blur);
    QCOMPARE(edited.editor->positions().value(first[0].toString()), QPointF(400, 400));
    QVERIFY(edited.editor->paste("nothing of the kind", {}).empty());
    QCOMPARE(edited.refusals.size(), 1);
}

void tst_CGraphEditor::importsAChain()
{
    const SEditedScene edited;
    const QByteArray before = edited.document();
    const auto added =
        edited.editor->importChain(QString::fromUtf8(SEditedScene::demoChain().replace("\"*\"", "\"cam\"")));
    QCOMPARE(added.size(), std::size_t(11));
    QCOMPARE(edited.scene->connections().size(), std::size_t(11));
    QCOMPARE(edited.stack().undoText(), QStringLiteral("Import 11 nodes"));
    const QByteArray after = edited.document();
    edited.stack().undo();
    QCOMPARE(edited.document(), before);
    edited.stack().redo();
    QCOMPARE(edited.document(), after);
}

void tst_CGraphEditor::importsIntoItsOwnSceneAlone()
{
    SEditedScene edited;
    const Core::CId other =
        edited.service.nodes.addNode(edited.service.models.createCameraSource(QStringLiteral("other")), nullptr);
    const QPointer<CNodeScene> active = edited.service.nodes.getActiveScene();
    QVERIFY(active != edited.scene);
    QCOMPARE(edited.editor->importChain(QStringLiteral(R"([{"name": "a", "model": {"name": "Blur"}}])")).size(),
             std::size_t(1));
    QCOMPARE(edited.scene->nodes().size(), std::size_t(2));
    QCOMPARE(active->nodes().size(), std::size_t(1));
    QVERIFY(active->nodes().count(other) > 0);
    QCOMPARE(edited.service.nodes.getActiveScene(), active);
}

void tst_CGraphEditor::refusesTextThatIsNoChain()
{
    const SEditedScene edited;
    QVERIFY(edited.editor->importChain(QStringLiteral("no chain")).empty());
    QVERIFY(edited.editor->importChain(QStringLiteral(R"([{"name": "a", "model": {"name": "None such"}}])")).empty());
    QCOMPARE(edited.refusals.size(), 2);
    QCOMPARE(edited.stack().count(), 0);
}

void tst_CGraphEditor::undoesToTheBeginningAndRedoesToTheEnd()
{
    const SEditedScene edited;
    const QByteArray first = edited.document();
    const Core::CId blur = edited.add("Blur", {80, 8});
    const Core::CId edges = edited.add("Edges", {400, 8});
    QVERIFY(edited.connectNodes(edited.camera, blur) && edited.connectNodes(blur, edges));
    QVERIFY(edited.editor->setSetting(blur, QStringLiteral("size"), QStringLiteral("21")));
    edited.editor->moveNodes({{blur.toString(), {8, 80}}});
    QVERIFY(edited.editor->remove({blur}, {}));
    edited.editor->duplicate({edges}, {8, 8});
    const QByteArray last = edited.document();
    const NodePositions positions = edited.editor->positions();
    for (int i = 0; i < 3; ++i) {
        edited.stack().setIndex(0);
        QCOMPARE(edited.document(), first);
        edited.stack().setIndex(edited.stack().count());
        QCOMPARE(edited.document(), last);
        QCOMPARE(edited.editor->positions(), positions);
    }
    QCOMPARE(edited.refusals, QStringList());
}

void tst_CGraphEditor::undoesWhatIsPossibleWhenOthersChangedTheScene()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    const Core::CId edges = edited.add("Edges");
    QVERIFY(edited.connectNodes(blur, edges));
    QVERIFY(edited.editor->setSetting(blur, QStringLiteral("size"), QStringLiteral("21")));
    QVERIFY(edited.editor->remove({blur}, {}));
    edited.scene->removeNode(*edited.editor->node(edges));
    edited.stack().undo(); // the node comes back, its connection cannot
    QVERIFY(edited.editor->node(blur));
    QCOMPARE(edited.refusals.size(), 1);
    edited.scene->removeNode(*edited.editor->node(blur));
    edited.stack().setIndex(0);
    QCOMPARE(edited.scene->nodes().size(), std::size_t(1));
    edited.stack().setIndex(2); // what somebody else removed can be added again
    QVERIFY(edited.editor->node(blur) && edited.editor->node(edges));
    edited.stack().setIndex(edited.stack().count());
    QVERIFY(!edited.editor->node(blur));
}

void tst_CGraphEditor::survivesTheEndOfItsScene()
{
    SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    QVERIFY(edited.editor->setSetting(blur, QStringLiteral("size"), QStringLiteral("21")));
    edited.service.nodes.removeSceneOfNode(blur);
    QVERIFY(!edited.editor->scene());
    edited.stack().undo();
    edited.stack().undo();
    edited.stack().redo();
    QCOMPARE(edited.add("Blur"), Core::CId());
    QVERIFY(!edited.editor->remove({blur}, {}));
    QVERIFY(!edited.connectNodes(edited.camera, blur));
    QVERIFY(edited.editor->importChain(QStringLiteral("[]")).empty());
    QVERIFY(edited.editor->duplicate({blur}, {}).empty());
}

QTEST_GUILESS_MAIN(tst_CGraphEditor)
#include "tst_CGraphEditor.moc"
