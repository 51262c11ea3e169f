// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/CGraphView.h"

#include "TestTable.h"
#include "graph/SShownGraph.h"
#include "host/viewer/edit/CModelTree.h"
#include "host/viewer/graph/CGraphOverview.h"
#include "host/viewer/graph/CGraphSearch.h"
#include "host/viewer/graph/CPortDrag.h"

#include <QAction>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>

#include <functional>

using namespace Host;
using namespace Plugin::Halvex;

using Choose = std::function<void(const SShownGraph&, const Core::CId&)>;
Q_DECLARE_METATYPE(Choose)

class tst_CGraphView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aDragFromPortToPortConnects();
    void aDragBackwardsConnects();
    void onlyPortsThatFitAreLit();
    void aDropBesideAPortConnectsNothing();
    void escapeGivesAConnectionUp();
    void theKeyboardConnects();
    void theKeyboardChoosesAConnection();
    void theKeyboardChoosesOneMoreNode();
    void fiveHundredNodesAreSearched();
    void aDraggedNodeIsMovedInOneStep();
    void deleteRemovesTheSelection();
    void copyAndPaste();
    void arrowsGoFromNodeToNode();
    void tabGoesThroughAllNodesAndOn();
    void enterActivatesANode();
    void aNodeMayGoWhileItIsGoneTo();
    void aNodeMayGoWhileItIsChosen_data();
    void aNodeMayGoWhileItIsChosen();
    void theWheelZoomsAtThePointer();
    void fitShowsAll();
    void theOverviewIsThereWhenItIsNeeded();
    void searchGoesToWhatIsFound();
    void aDroppedModelBecomesANode();
    void actionsHaveNamesAndTexts();
};

void tst_CGraphView::aDragFromPortToPortConnects()
{
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur", {400, 0});
    shown.view->fit();
    shown.drag(shown.at(SEditedScene::out(shown.edited.camera)), shown.at(SEditedScene::in(blur)));
    QCOMPARE(shown.edited.scene->connections().size(), std::size_t(1));
    QCOMPARE(shown.mismatch(), QString());
    shown.key(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(shown.edited.scene->connections().empty());
}

void tst_CGraphView::aDragBackwardsConnects()
{
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur", {400, 0});
    shown.view->fit();
    shown.drag(shown.at(SEditedScene::in(blur)), shown.at(SEditedScene::out(shown.edited.camera)));
    QCOMPARE(shown.edited.scene->connections().size(), std::size_t(1));
}

void tst_CGraphView::onlyPortsThatFitAreLit()
{
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur", {400, 0});
    const Core::CId edges = shown.edited.add("Edges", {800, 0});
    const Core::CId decoupler = shown.edited.add("DecouplerVGR", {400, 300});
    shown.view->fit();
    shown.press(shown.at(SEditedScene::out(blur)));
    QVERIFY(shown.item(blur)->isLit(ENodePortType::Out, 0));
    QVERIFY(shown.item(edges)->isLit(ENodePortType::In, 0));
    QVERIFY(!shown.item(edges)->isLit(ENodePortType::Out, 0));
    QVERIFY(!shown.item(decoupler)->isLit(ENodePortType::In, 0));
    QVERIFY(!shown.item(blur)->isLit(ENodePortType::In, 0));
    shown.release(QPoint(5, 5));
    QVERIFY(!shown.item(edges)->isLit(ENodePortType::In, 0));
}

void tst_CGraphView::aDropBesideAPortConnectsNothing()
{
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur", {400, 0});
    const Core::CId decoupler = shown.edited.add("DecouplerVGR", {800, 0});
    shown.view->fit();
    const int steps = shown.edited.stack().count();
    shown.drag(shown.at(SEditedScene::out(blur)), QPoint(5, 5));
    shown.drag(shown.at(SEditedScene::out(blur)), shown.at(SEditedScene::in(decoupler)));
    QCOMPARE(shown.edited.stack().count(), steps);
    QVERIFY(!shown.canvas().connectionInProgress());
}

void tst_CGraphView::escapeGivesAConnectionUp()
{
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur", {400, 0});
    shown.view->fit();
    const QPoint target = shown.at(SEditedScene::in(blur));
    shown.press(shown.at(SEditedScene::out(shown.edited.camera)));
    shown.move(target);
    QVERIFY(shown.canvas().connectionInProgress()->target() == SEditedScene::in(blur));
    shown.key(Qt::Key_Escape);
    shown.release(target);
    QVERIFY(shown.edited.scene->connections().empty());
}

void tst_CGraphView::theKeyboardConnects()
{
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur", {400, 0});
    const Core::CId edges = shown.edited.add("Edges", {800, 0});
    shown.view->goTo(shown.edited.camera);
    shown.key(Qt::Key_C);
    QVERIFY(shown.canvas().connectionInProgress()->target() == SEditedScene::in(blur));
    shown.key(Qt::Key_Tab);
    QVERIFY(shown.canvas().connectionInProgress()->target() == SEditedScene::in(edges));
    shown.key(Qt::Key_Left);
    QVERIFY(shown.canvas().connectionInProgress()->target() == SEditedScene::in(blur));
    shown.key(Qt::Key_Return);
    QCOMPARE(shown.edited.scene->connections().size(), std::size_t(1));
    shown.key(Qt::Key_C);
    QVERIFY(shown.canvas().connectionInProgress()->target() == SEditedScene::in(edges)); // the other is connected
    shown.key(Qt::Key_Escape);
    QCOMPARE(shown.edited.scene->connections().size(), std::size_t(1));
}

void tst_CGraphView::theKeyboardChoosesAConnection()
{
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur", {400, 0});
    const Core::CId edges = shown.edited.add("Edges", {800, 0});
    QVERIFY(shown.edited.connectNodes(shown.edited.camera, blur));
    QVERIFY(shown.edited.connectNodes(blur, edges));
    shown.view->goTo(edges);
    shown.key(Qt::Key_N);
    const std::vector<Core::CId> last = shown.canvas().selectedConnections();
    QCOMPARE(last.size(), std::size_t(1));
    QVERIFY(shown.canvas().selectedNodes().empty());
    shown.key(Qt::Key_N);
    QVERIFY(shown.canvas().selectedConnections() != last);
    shown.key(Qt::Key_N);
    QCOMPARE(shown.canvas().selectedConnections(), last);
    shown.key(Qt::Key_Delete);
    QCOMPARE(shown.edited.scene->connections().size(), std::size_t(1));
    QCOMPARE(shown.edited.scene->connections().count(last.front()), std::size_t(0));
}

void tst_CGraphView::theKeyboardChoosesOneMoreNode()
{
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur", {400, 0});
    const Core::CId edges = shown.edited.add("Edges", {800, 0});
    shown.view->goTo(shown.edited.camera);
    shown.key(Qt::Key_Right, Qt::ShiftModifier);
    shown.key(Qt::Key_Right, Qt::ShiftModifier);
    shown.key(Qt::Key_Right, Qt::ShiftModifier); // there is none
    std::vector<Core::CId> all{shown.edited.camera, blur, edges};
    std::sort(all.begin(), all.end());
    QCOMPARE(shown.canvas().selectedNodes(), all);
}

void tst_CGraphView::fiveHundredNodesAreSearched()
{
    const SShownGraph shown;
    constexpr int rows = 20;
    for (int node = 0; node < 499; ++node) {
        const int column = 1 + node / rows;
        shown.edited.add("Blur", {400.0 * column, 200.0 * (node % rows)});
    }
    const Core::CId wanted = shown.edited.add("Edges", {400.0 * 26, 0});
    shown.view->fit();
    QVERIFY(shown.view->mapToScene(shown.view->viewport()->rect()).boundingRect().contains(shown.canvas().nodesRect()));
    shown.view->setActualSize();
    QTRY_VERIFY(shown.view->findChild<CGraphOverview*>()->isVisible());
    shown.view->search();
    QTest::keyClicks(shown.view->searchBar().findChild<QLineEdit*>(), "edg");
    QTRY_COMPARE(shown.canvas().selectedNodes(), std::vector<Core::CId>{wanted});
    QVERIFY(shown.view->viewport()->rect().contains(shown.at(wanted)));
}

void tst_CGraphView::aDraggedNodeIsMovedInOneStep()
{
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur", {400, 0});
    shown.view->fit();
    shown.view->setActualSize();
    const int steps = shown.edited.stack().count();
    const QPoint from = shown.at(blur);
    shown.drag(from, from + QPoint(64, 32));
    QCOMPARE(shown.edited.editor->positions().value(blur.toString()), QPointF(464, 32));
    QCOMPARE(shown.edited.stack().count(), steps + 1);
    shown.key(Qt::Key_Right, Qt::ControlModifier);
    QCOMPARE(shown.edited.editor->positions().value(blur.toString()), QPointF(472, 32));
    shown.edited.stack().setIndex(steps);
    QCOMPARE(shown.item(blur)->pos(), QPointF(400, 0));
}

void tst_CGraphView::deleteRemovesTheSelection()
{
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur", {400, 0});
    QVERIFY(shown.edited.connectNodes(shown.edited.camera, blur));
    shown.view->goTo(blur);
    shown.key(Qt::Key_Delete);
    QVERIFY(!shown.edited.editor->node(blur));
    QCOMPARE(shown.mismatch(), QString());
    shown.key(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(shown.edited.editor->node(blur));
    QCOMPARE(shown.mismatch(), QString());
}

void tst_CGraphView::copyAndPaste()
{
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur", {400, 0});
    shown.view->goTo(blur);
    shown.key(Qt::Key_C, Qt::ControlModifier);
    shown.key(Qt::Key_V, Qt::ControlModifier);
    shown.key(Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(shown.edited.scene->nodes().size(), std::size_t(4));
    shown.key(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(shown.edited.scene->nodes().size(), std::size_t(3));
    QCOMPARE(shown.mismatch(), QString());
}

void tst_CGraphView::arrowsGoFromNodeToNode()
{
    const SShownGraph shown;
    const Core::CId right = shown.edited.add("Blur", {400, 0});
    const Core::CId below = shown.edited.add("Edges", {400, 300});
    const auto chosen = [&shown] { return shown.canvas().selectedNodes(); };
    shown.view->goTo(shown.edited.camera);
    shown.key(Qt::Key_Right);
    QCOMPARE(chosen(), std::vector<Core::CId>{right});
    shown.key(Qt::Key_Down);
    QCOMPARE(chosen(), std::vector<Core::CId>{below});
    shown.key(Qt::Key_Down); // nothing is there
    QCOMPARE(chosen(), std::vector<Core::CId>{below});
    shown.key(Qt::Key_Up);
    shown.key(Qt::Key_Left);
    QCOMPARE(chosen(), std::vector<Core::CId>{shown.edited.camera});
}

void tst_CGraphView::tabGoesThroughAllNodesAndOn()
{
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur", {400, 0});
    shown.canvas().sync();
    shown.key(Qt::Key_Tab);
    QCOMPARE(shown.canvas().selectedNodes(), std::vector<Core::CId>{shown.edited.camera});
    shown.key(Qt::Key_Tab);
    QCOMPARE(shown.canvas().selectedNodes(), std::vector<Core::CId>{blur});
    shown.key(Qt::Key_Tab); // leaves the view
    QCOMPARE(shown.canvas().selectedNodes(), std::vector<Core::CId>{blur});
    shown.view->setFocus();
    shown.key(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(shown.canvas().selectedNodes(), std::vector<Core::CId>{shown.edited.camera});
}

void tst_CGraphView::enterActivatesANode()
{
    const SShownGraph shown;
    std::vector<Core::CId> activated;
    std::vector<Core::CId> selected;
    connect(shown.view.get(), &CGraphView::nodeActivated, this, [&](const Core::CId& id) { activated.push_back(id); });
    connect(shown.view.get(), &CGraphView::nodeSelected, this, [&](const Core::CId& id) { selected.push_back(id); });
    shown.key(Qt::Key_Return);
    QVERIFY(activated.empty());
    shown.view->goTo(shown.edited.camera);
    QCOMPARE(selected.back(), shown.edited.camera);
    shown.key(Qt::Key_Return);
    QCOMPARE(activated, std::vector<Core::CId>{shown.edited.camera});
    QTest::mouseDClick(shown.view->viewport(), Qt::LeftButton, Qt::NoModifier, shown.at(shown.edited.camera));
    QCOMPARE(activated.size(), std::size_t(2));
}

void tst_CGraphView::aNodeMayGoWhileItIsGoneTo()
{
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur", {400, 0});
    shown.canvas().sync();
    int drawings = 0;
    connect(&shown.canvas(), &CGraphCanvas::drawn, this, [&] {
        if (++drawings == 2) // the first is that of goTo(), the second that of the selection
            shown.edited.scene->removeNode(*shown.edited.editor->node(blur));
    });
    shown.view->goTo(blur);
    QVERIFY(!shown.edited.editor->node(blur));
    QVERIFY(shown.canvas().selectedNodes().empty());
}

void tst_CGraphView::aNodeMayGoWhileItIsChosen_data()
{
    addColumns<Choose>({"choose"});
    const auto row = [](const char* name, const Choose& choose) { addRow(name, choose); };
    row("by the program", [](const SShownGraph& shown, const Core::CId& node) { shown.canvas().select({node}); });
    row("by a click", [](const SShownGraph& shown, const Core::CId& node) {
        QTest::mouseClick(shown.view->viewport(), Qt::LeftButton, Qt::NoModifier, shown.at(node));
    });
    // Without the click before it, which chooses the node already.
    row("by a double click", [](const SShownGraph& shown, const Core::CId& node) {
        const QPoint at = shown.at(node);
        QMouseEvent twice(QEvent::MouseButtonDblClick, at, shown.view->viewport()->mapToGlobal(at), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(shown.view->viewport(), &twice);
    });
}

void tst_CGraphView::aNodeMayGoWhileItIsChosen()
{
    QFETCH(Choose, choose);
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur", {400, 0});
    shown.view->fit();
    const auto heard = connect(shown.view.get(), &CGraphView::nodeSelected, this, [&](const Core::CId& id) {
        if (id == blur)
            shown.edited.scene->removeNode(*shown.edited.editor->node(blur));
    });
    choose(shown, blur);
    disconnect(heard);
    QVERIFY(!shown.edited.editor->node(blur));
    QVERIFY(shown.canvas().selectedNodes().empty());
    QCOMPARE(shown.mismatch(), QString());
}

void tst_CGraphView::theWheelZoomsAtThePointer()
{
    const SShownGraph shown;
    const QPoint pointer(700, 200);
    const QPointF before = shown.view->mapToScene(pointer);
    const double zoom = shown.view->transform().m11();
    // The view anchors at where the mouse was last seen.
    QTest::mouseMove(shown.view->viewport(), pointer);
    QMouseEvent seen(QEvent::MouseMove, pointer, shown.view->viewport()->mapToGlobal(pointer), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(shown.view->viewport(), &seen);
    QWheelEvent wheel(pointer, shown.view->viewport()->mapToGlobal(pointer), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(shown.view->viewport(), &wheel);
    QCOMPARE(shown.view->transform().m11(), zoom * 1.2);
    const QPointF moved = shown.view->mapToScene(pointer) - before;
    QVERIFY2(std::abs(moved.x()) <= 2 && std::abs(moved.y()) <= 2,
             qPrintable(QStringLiteral("%1 %2").arg(moved.x()).arg(moved.y())));
    for (int i = 0; i < 60; ++i)
        shown.view->zoom(0.5);
    QVERIFY(shown.view->transform().m11() > 0.01);
}

void tst_CGraphView::fitShowsAll()
{
    const SShownGraph shown;
    const Core::CId far = shown.edited.add("Blur", {4000, 3000});
    shown.key(Qt::Key_0, Qt::ControlModifier);
    for (const Core::CId& id : {shown.edited.camera, far})
        QVERIFY(shown.view->viewport()->rect().contains(
            shown.view->mapFromScene(shown.item(id)->sceneBoundingRect()).boundingRect()));
}

void tst_CGraphView::theOverviewIsThereWhenItIsNeeded()
{
    const SShownGraph shown;
    const Core::CId far = shown.edited.add("Blur", {4000, 3000});
    shown.view->fit();
    auto* const overview = shown.view->findChild<CGraphOverview*>();
    QVERIFY(!overview->isVisible());
    shown.view->setActualSize();
    QVERIFY(overview->isVisible());
    QTest::mouseClick(overview, Qt::LeftButton, Qt::NoModifier, QPoint(4, 4));
    QVERIFY(!shown.view->viewport()->rect().contains(shown.at(far)));
    QTest::mouseClick(overview, Qt::LeftButton, Qt::NoModifier,
                      QPoint(overview->width() - 12, overview->height() - 12));
    QVERIFY(shown.view->viewport()->rect().contains(shown.at(far)));
    shown.view->setOverviewEnabled(false);
    QVERIFY(!overview->isVisible());
}

void tst_CGraphView::searchGoesToWhatIsFound()
{
    const SShownGraph shown;
    const Core::CId first = shown.edited.add("Blur", {400, 0});
    const Core::CId second = shown.edited.add("Blur", {5000, 0});
    shown.key(Qt::Key_F, Qt::ControlModifier);
    QVERIFY(shown.view->searchBar().isVisible());
    auto* const text = shown.view->findChild<QLineEdit*>(QStringLiteral("graphSearch"));
    QTest::keyClicks(text, QStringLiteral("blu"));
    QCOMPARE(shown.view->searchBar().found(), 2);
    QCOMPARE(shown.canvas().selectedNodes(), std::vector<Core::CId>{first});
    QTest::keyClick(text, Qt::Key_Return);
    QCOMPARE(shown.canvas().selectedNodes(), std::vector<Core::CId>{second});
    QVERIFY(shown.view->viewport()->rect().contains(shown.at(second)));
    QTest::keyClicks(text, QStringLiteral("xyz"));
    QCOMPARE(shown.view->searchBar().found(), 0);
    QTest::keyClick(text, Qt::Key_Escape);
    QVERIFY(!shown.view->searchBar().isVisible());
}

void tst_CGraphView::aDroppedModelBecomesANode()
{
    const SShownGraph shown;
    QMimeData data;
    data.setData(CModelTree::mimeType(), "Blur");
    const QPoint place(300, 300);
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(shown.view->viewport(), &enter);
    QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(shown.view->viewport(), &move);
    QVERIFY(move.isAccepted());
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(shown.view->viewport(), &drop);
    QCOMPARE(shown.edited.scene->nodes().size(), std::size_t(2));
    QCOMPARE(shown.canvas().selectedNodes().size(), std::size_t(1));
    shown.view->place(QStringLiteral("Edges"));
    QCOMPARE(shown.edited.scene->nodes().size(), std::size_t(3));
    QCOMPARE(shown.mismatch(), QString());
}

void tst_CGraphView::actionsHaveNamesAndTexts()
{
    const SShownGraph shown;
    QStringList names;
    const auto allGraphActions = shown.view->graphActions();
    for (const QAction* action : allGraphActions) {
        QVERIFY(!action->text().isEmpty());
        QVERIFY(!names.contains(action->objectName()));
        names << action->objectName();
    }
    QVERIFY(names.size() >= 15);
    shown.edited.add("Blur");
    QCOMPARE(shown.view->graphActions().front()->text(), QStringLiteral("Undo Add 'Blur'"));
}

QTEST_MAIN(tst_CGraphView)
#include "tst_CGraphView.moc"
