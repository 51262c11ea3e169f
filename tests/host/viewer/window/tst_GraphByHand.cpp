// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "SWindowByHand.h"
#include "graph/SGraphHand.h"
#include "host/models/CBlurModel.h"
#include "host/viewer/edit/CModelPalette.h"
#include "host/viewer/edit/CModelTree.h"
#include "host/viewer/edit/CSettingsPanel.h"
#include "host/viewer/graph/CGraphOverview.h"
#include "host/viewer/graph/CGraphSearch.h"
#include "host/viewer/window/CScenePage.h"
#include "host/viewer/window/CSceneTabs.h"
#include "host/viewer/window/CViewerDocks.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSpinBox>
#include <QTreeView>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

using Nodes = std::vector<Core::CId>;

// A camera, a blur and edges in a row, and nothing that connects them.
struct SGraphByHand : SWindowByHand
{
    SGraphByHand()
    {
        const CScenePage* const page = window->newScene(QStringLiteral("camera"));
        editor = &page->editor();
        view = &page->view();
        camera = page->camera()->id();
        blur = editor->addNode(QStringLiteral("Blur"), {320, 0});
        edges = editor->addNode(QStringLiteral("Edges"), {640, 0});
        view->canvas().sync();
        editor->setPositions({{camera.toString(), QPointF(0, 0)},
                              {blur.toString(), QPointF(320, 0)},
                              {edges.toString(), QPointF(640, 0)}});
        view->fit();
    }

    QWidget& area() const { return *view->viewport(); }

    template <typename Place>
    QPoint at(const Place& place) const
    {
        return SGraphHand{*view}.at(place);
    }
    QPoint emptyPlace() const { return at(camera) + QPoint(0, 200); }
    QPointF centre() const { return view->mapToScene(area().rect().center()); }
    QPointF position(const Core::CId& node) const { return editor->positions().value(node.toString()); }
    Nodes chosen() const { return view->canvas().selectedNodes(); }
    std::size_t nodes() const { return editor->scene()->nodes().size(); }
    std::size_t connections() const { return editor->scene()->connections().size(); }

    void connectByDrag()
    {
        hand.drag(area(), at(SPort{blur, ENodePortType::Out, 0}), area(), at(SPort{edges, ENodePortType::In, 0}));
    }

    CGraphEditor* editor = nullptr;
    CGraphView* view = nullptr;
    Core::CId camera;
    Core::CId blur;
    Core::CId edges;
};

// The only model that a search leaves in the palette.
QPoint onlyModelIn(const QTreeView& models)
{
    const QModelIndex index = models.model()->index(0, 0, models.model()->index(0, 0));
    return models.visualRect(index).center();
}

} // namespace

/// A graph as a person looks at it and edits it, with mouse and keyboard.
class tst_GraphByHand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void nodeIsDragged();
    void wheelZoomsAtThePointer();
    void search();
    void frameAroundNodesChoosesThem();
    void overviewLeadsThere();
    void walkByKeyboard();
    void doubleClickBringsTheSettings();
    void modelsArePlaced_data();
    void modelsArePlaced();
    void portsAreConnected();
    void connectByKeyboard();
    void deleteUndoRedo();
    void settingIsTyped();
    void choiceIsMade();
    void duplicate();
};

void tst_GraphByHand::initTestCase()
{
    QVERIFY2(CHand::isThere(), "it runs on an X server: xvfb-run, with QT_QPA_PLATFORM=xcb");
}

void tst_GraphByHand::nodeIsDragged()
{
    SGraphByHand test;
    QCOMPARE(test.view->transform().m11(), 1.0);
    const QPointF before = test.position(test.blur);
    const QPoint from = test.at(test.blur);
    test.hand.drag(test.area(), from, test.area(), from + QPoint(80, 48));
    QTRY_COMPARE(test.position(test.blur), before + QPointF(80, 48));
    QCOMPARE(test.view->canvas().nodeItem(test.blur)->pos(), before + QPointF(80, 48));
    QCOMPARE(test.chosen(), Nodes{test.blur});
}

void tst_GraphByHand::wheelZoomsAtThePointer()
{
    SGraphByHand test;
    const QPoint place = test.at(test.edges);
    const QPointF before = test.view->mapToScene(place);
    test.hand.moveTo(test.area(), place);
    test.hand.turnWheel(3);
    QTRY_COMPARE(test.view->transform().m11(), 1.2 * 1.2 * 1.2);
    QVERIFY((test.view->mapToScene(place) - before).manhattanLength() < 4.0);
}

void tst_GraphByHand::search()
{
    SGraphByHand test;
    const Core::CId second = test.editor->addNode(QStringLiteral("Blur"), {640, 200});
    test.hand.click(test.area(), test.emptyPlace());
    test.hand.press(QKeySequence::Find);
    QTRY_VERIFY(isSeen(test.view->searchBar()));
    test.hand.type(QStringLiteral("blur"));
    QTRY_COMPARE(test.view->searchBar().found(), 2);
    QTRY_COMPARE(test.chosen(), Nodes{test.blur});
    test.hand.press(Qt::Key_Return);
    QTRY_COMPARE(test.chosen(), Nodes{second});
    test.hand.press(Qt::Key_Escape);
    QTRY_VERIFY(!test.view->searchBar().isVisible());
    QVERIFY(test.view->hasFocus());
}

void tst_GraphByHand::frameAroundNodesChoosesThem()
{
    SGraphByHand test;
    const QPoint from = test.view->mapFromScene(test.position(test.blur)) - QPoint(16, 16);
    test.hand.drag(test.area(), from, test.area(), test.at(test.edges) + QPoint(0, 200));
    QTRY_COMPARE(test.chosen().size(), std::size_t(2));
    test.hand.press(QKeySequence::Delete);
    QTRY_COMPARE(test.nodes(), std::size_t(1));
    QVERIFY(test.editor->node(test.camera));
}

void tst_GraphByHand::overviewLeadsThere()
{
    SGraphByHand test;
    const auto* const overview = test.view->findChild<CGraphOverview*>();
    QVERIFY(!overview->isVisible());
    test.hand.moveTo(test.area(), test.at(test.blur));
    test.hand.turnWheel(6);
    QTRY_VERIFY(isSeen(*overview));
    const QPoint middle = overview->rect().center();
    test.hand.click(*overview, {overview->width() - 12, middle.y()});
    QTRY_VERIFY(test.centre().x() > test.position(test.edges).x());
    test.hand.click(*overview, {12, middle.y()});
    QTRY_VERIFY(test.centre().x() < test.position(test.blur).x());
}

void tst_GraphByHand::walkByKeyboard()
{
    SGraphByHand test;
    test.hand.click(test.area(), test.at(test.camera));
    QTRY_COMPARE(test.chosen(), Nodes{test.camera});
    test.hand.press(Qt::Key_Right);
    QTRY_COMPARE(test.chosen(), Nodes{test.blur});
    test.hand.press(Qt::Key_Tab);
    QTRY_COMPARE(test.chosen(), Nodes{test.edges});
    test.hand.press(Qt::Key_Left);
    QTRY_COMPARE(test.chosen(), Nodes{test.blur});
    test.hand.press(QKeySequence(QStringLiteral("Ctrl+Down")));
    QTRY_COMPARE(test.position(test.blur), QPointF(320, positionGrid));
    QVERIFY(!isSeen(test.window->docks().settings()));
    test.hand.press(Qt::Key_Return);
    QTRY_VERIFY(isSeen(test.window->docks().settings()));
}

void tst_GraphByHand::doubleClickBringsTheSettings()
{
    SGraphByHand test;
    QVERIFY(!isSeen(test.window->docks().settings()));
    test.hand.doubleClick(test.area(), test.at(test.blur));
    QTRY_VERIFY(isSeen(test.window->docks().settings()));
    QTRY_COMPARE(test.chosen(), Nodes{test.blur});
}

void tst_GraphByHand::modelsArePlaced_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("dragged") << "drag";
    QTest::newRow("double click") << "double click";
    QTest::newRow("Enter") << "Enter";
}

void tst_GraphByHand::modelsArePlaced()
{
    QFETCH(const QString, way);
    const bool isDragged = way == "drag";
    SGraphByHand test;
    const CModelPalette& palette = test.window->docks().palette();
    const auto& models = *palette.findChild<QTreeView*>();
    test.hand.click(*palette.findChild<QLineEdit*>());
    test.hand.type(QStringLiteral("threshold"));
    const auto isOnlyOne = [&models] {
        const QModelIndex category = models.model()->index(0, 0);
        return models.model()->rowCount() == 1 && models.model()->rowCount(category) == 1;
    };
    QTRY_VERIFY(isOnlyOne());
    const QPoint place = onlyModelIn(models);
    const QPoint goal = test.emptyPlace();
    if (isDragged)
        test.hand.drag(*models.viewport(), place, test.area(), goal);
    else if (way == "Enter")
        test.hand.press(Qt::Key_Return);
    else
        test.hand.doubleClick(*models.viewport(), place);
    QTRY_COMPARE(countNodes(*test.editor->scene(), "Threshold"), 1);
    QTRY_COMPARE(test.chosen().size(), std::size_t(1));
    const Core::CId added = test.chosen().front();
    QCOMPARE(test.editor->node(added)->nodeDataModel()->name(), QString("Threshold"));
    if (isDragged)
        QVERIFY((test.position(added) - test.view->mapToScene(goal)).manhattanLength() <= 2 * positionGrid);
}

void tst_GraphByHand::portsAreConnected()
{
    SGraphByHand test;
    test.connectByDrag();
    QTRY_COMPARE(test.connections(), std::size_t(1));
    const CNodeConnection& made = *test.editor->scene()->connections().begin()->second;
    QCOMPARE(made.getNode(ENodePortType::Out)->id(), test.blur);
    QCOMPARE(made.getNode(ENodePortType::In)->id(), test.edges);
    // One that leads nowhere is none.
    test.hand.drag(test.area(), test.at(SPort{test.edges, ENodePortType::Out, 0}), test.area(), test.emptyPlace());
    QTRY_VERIFY(!test.view->canvas().connectionInProgress());
    QCOMPARE(test.connections(), std::size_t(1));
}

void tst_GraphByHand::connectByKeyboard()
{
    SGraphByHand test;
    test.hand.click(test.area(), test.at(test.blur));
    test.hand.press(Qt::Key_C);
    QTRY_VERIFY(test.view->canvas().connectionInProgress());
    test.hand.press(Qt::Key_Return);
    QTRY_COMPARE(test.connections(), std::size_t(1));
    QVERIFY(!test.view->canvas().connectionInProgress());
}

void tst_GraphByHand::deleteUndoRedo()
{
    SGraphByHand test;
    test.connectByDrag();
    QTRY_COMPARE(test.connections(), std::size_t(1));
    test.hand.click(test.area(), test.at(test.blur));
    QTRY_COMPARE(test.chosen(), Nodes{test.blur});
    test.hand.press(QKeySequence::Delete);
    QTRY_COMPARE(test.nodes(), std::size_t(2));
    QCOMPARE(test.connections(), std::size_t(0));
    test.hand.press(QKeySequence::Undo);
    QTRY_COMPARE(test.nodes(), std::size_t(3));
    QCOMPARE(test.connections(), std::size_t(1));
    QVERIFY(test.editor->node(test.blur));
    test.hand.press(QKeySequence::Redo);
    QTRY_COMPARE(test.nodes(), std::size_t(2));
}

void tst_GraphByHand::settingIsTyped()
{
    SGraphByHand test;
    QObject* const model = test.editor->node(test.blur)->nodeDataModel();
    const QVariant before = model->property("size");
    QVERIFY(before.toInt() != 9);
    test.hand.doubleClick(test.area(), test.at(test.blur));
    const CSettingsPanel& panel = test.window->docks().settings();
    QTRY_VERIFY(isSeen(panel) && panel.findChild<QSpinBox*>("size"));
    test.hand.click(*panel.findChild<QSpinBox*>("size"), {12, 12});
    test.hand.press(QKeySequence::SelectAll);
    test.hand.type(QStringLiteral("9"));
    test.hand.press(Qt::Key_Return);
    QTRY_COMPARE(model->property("size").toInt(), 9);
    test.hand.press(QKeySequence::Delete); // is for the field alone
    QCOMPARE(test.nodes(), std::size_t(3));
    test.hand.click(test.area(), test.emptyPlace());
    test.hand.press(QKeySequence::Undo);
    QTRY_COMPARE(model->property("size"), before);
}

void tst_GraphByHand::choiceIsMade()
{
    SGraphByHand test;
    QObject* const model = test.editor->node(test.blur)->nodeDataModel();
    QCOMPARE(model->property("method").toInt(), int(CBlurModel::EMethod::Gaussian));
    test.hand.doubleClick(test.area(), test.at(test.blur));
    const CSettingsPanel& panel = test.window->docks().settings();
    QTRY_VERIFY(isSeen(panel) && panel.findChild<QComboBox*>("method"));
    test.hand.click(*panel.findChild<QComboBox*>("method"));
    QTRY_VERIFY(QApplication::activePopupWidget());
    const auto& words = *QApplication::activePopupWidget()->findChild<QAbstractItemView*>();
    QTRY_VERIFY(words.window()->windowHandle()->isExposed());
    test.hand.click(*words.viewport(),
                    words.visualRect(words.model()->index(int(CBlurModel::EMethod::Median), 0)).center());
    QTRY_COMPARE(model->property("method").toInt(), int(CBlurModel::EMethod::Median));
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_GraphByHand::duplicate()
{
    SGraphByHand test;
    test.hand.click(test.area(), test.at(test.blur));
    test.hand.press(QKeySequence(QStringLiteral("Ctrl+D")));
    QTRY_COMPARE(countNodes(*test.editor->scene(), "Blur"), 2);
    QTRY_COMPARE(test.chosen().size(), std::size_t(1));
    QVERIFY(test.chosen().front() != test.blur);
}

QTEST_MAIN(tst_GraphByHand)
#include "tst_GraphByHand.moc"
