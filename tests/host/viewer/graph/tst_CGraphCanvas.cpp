// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/CGraphCanvas.h"

#include "TestFrame.h"
#include "graph/CMoodyModel.h"
#include "graph/SShownGraph.h"
#include "host/models/CImageData.h"
#include "host/viewer/graph/CPortDrag.h"

#include <QAction>
#include <QSignalSpy>
#include <QTest>

#include <stdexcept>

using namespace Host;
using namespace Plugin::Halvex;

class tst_CGraphCanvas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void drawsWhatIsThereAlready();
    void drawsWhatOthersAddAndRemove();
    void dropsItemsAtOnce();
    void drawsAgainWhatAHandlerKeeps();
    void showsANodeThatReplacedAnother();
    void placesNewNodesApart();
    void laysTheSameGraphOutAlike();
    void takesThePositionsOfTheEditor();
    void showsWhatAConnectionCarries();
    void showsRates();
    void showsStatesWhenDataFlows();
    void glowsWhileAModelComputes();
    void glowsWhenTheWorkTakesLongerThanAFrame();
    void showsWhatBecameOfTheDataOfADecoupler();
    void isEmptyWhenTheSceneGoes();
    void survivesTheEndOfTheEditor();
    void paintsNothingWhenNothingHappens();
    void drawsANodeOfAnotherSceneNotAtAll();
};

void tst_CGraphCanvas::drawsWhatIsThereAlready()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    QVERIFY(edited.connectNodes(edited.camera, blur));
    const CGraphCanvas canvas(*edited.editor);
    QCOMPARE(canvas.nodeItems().size(), std::size_t(2));
    QCOMPARE(canvas.connectionItems().size(), std::size_t(1));
    QCOMPARE(canvas.nodeItem(blur)->look().caption, QStringLiteral("Blur"));
    QCOMPARE(canvas.nodeItem(blur)->look().category, QStringLiteral("Filters"));
}

void tst_CGraphCanvas::drawsWhatOthersAddAndRemove()
{
    const SShownGraph shown;
    CNodeBase& blur = shown.edited.scene->createNode(shown.edited.service.nodes.registry()->create("Blur"));
    const Core::CId id = blur.id();
    QTRY_VERIFY(shown.item(id));
    QCOMPARE(shown.mismatch(), QString());
    shown.edited.scene->removeNode(blur);
    QVERIFY(!shown.item(id));
    QCOMPARE(shown.mismatch(), QString());
}

void tst_CGraphCanvas::dropsItemsAtOnce()
{
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur");
    QVERIFY(shown.edited.connectNodes(shown.edited.camera, blur));
    QCOMPARE(shown.mismatch(), QString());
    shown.edited.scene->deleteConnection(*shown.edited.scene->connections().begin()->second);
    QVERIFY(shown.canvas().connectionItems().empty());
    shown.edited.scene->clearScene();
    QVERIFY(shown.canvas().nodeItems().empty());
}

void tst_CGraphCanvas::drawsAgainWhatAHandlerKeeps()
{
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur");
    shown.canvas().sync();
    const auto refusal = connect(shown.edited.scene.data(), &CNodeScene::nodeDeleted,
                                 [](CNodeBase&) { throw std::runtime_error("it stays"); });
    QVERIFY_EXCEPTION_THROWN(shown.edited.scene->removeNode(*shown.edited.editor->node(blur)), std::runtime_error);
    QVERIFY(!shown.item(blur));
    QTRY_VERIFY(shown.item(blur));
    QCOMPARE(shown.mismatch(), QString());
    disconnect(refusal);
}

void tst_CGraphCanvas::showsANodeThatReplacedAnother()
{
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur");
    QVERIFY(shown.edited.connectNodes(shown.edited.camera, blur));
    shown.canvas().sync();
    QJsonObject json = shown.edited.editor->node(blur)->save();
    json["model"] = QJsonObject{{"name", QStringLiteral("Edges")}};
    shown.edited.scene->restoreNode(json); // goes without signals
    shown.canvas().sync();
    QCOMPARE(shown.item(blur)->look().caption, QStringLiteral("Edges"));
    QVERIFY(shown.canvas().connectionItems().empty()); // it has lost an end
    shown.view->grab();
    while (!shown.edited.scene->connections().empty())
        shown.edited.scene->deleteConnection(*shown.edited.scene->connections().begin()->second);
}

void tst_CGraphCanvas::placesNewNodesApart()
{
    const SShownGraph shown;
    for (int i = 0; i < 20; ++i) {
        shown.edited.scene->createNode(shown.edited.service.nodes.registry()->create("Blur"));
        shown.canvas().sync();
    }
    const auto added =
        shown.edited.editor->importChain(QString::fromUtf8(SEditedScene::demoChain().replace("\"*\"", "\"cam\"")));
    QCOMPARE(added.size(), std::size_t(11));
    QCOMPARE(shown.mismatch(), QString());
    const auto& items = shown.canvas().nodeItems();
    for (const auto& one : items) {
        for (const auto& other : items) {
            if (one.first < other.first)
                QVERIFY(!QRectF(one.second->pos(), one.second->size())
                             .intersects(QRectF(other.second->pos(), other.second->size())));
        }
    }
}

void tst_CGraphCanvas::laysTheSameGraphOutAlike()
{
    const auto layout = [] {
        const SEditedScene edited; // its nodes have other ids each time
        for (const char* model : {"Blur", "Edges", "Histogram", "Threshold"})
            edited.connectNodes(edited.camera, edited.add(model));
        CGraphCanvas canvas(*edited.editor);
        canvas.arrange();
        QMap<QString, QPointF> positions;
        for (const auto& item : canvas.nodeItems())
            positions.insert(item.second->look().caption, edited.editor->positions().value(item.first.toString()));
        return positions;
    };
    const auto first = layout();
    QCOMPARE(first.size(), 5);
    for (int time = 0; time < 4; ++time)
        QCOMPARE(layout(), first);
}

void tst_CGraphCanvas::takesThePositionsOfTheEditor()
{
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur", {160, 80});
    shown.canvas().sync();
    QCOMPARE(shown.item(blur)->pos(), QPointF(160, 80));
    shown.edited.editor->setPositions({{blur.toString(), {320, 8}}});
    QCOMPARE(shown.item(blur)->pos(), QPointF(320, 8));
}

void tst_CGraphCanvas::showsWhatAConnectionCarries()
{
    const SShownGraph shown;
    QVERIFY(shown.edited.connectNodes(shown.edited.camera, shown.edited.add("Blur")));
    shown.canvas().sync();
    QCOMPARE(shown.canvas().connectionItems().begin()->second->label(), QStringLiteral("VGR to IMG"));
}

void tst_CGraphCanvas::showsRates()
{
    const SShownGraph shown;
    const Core::CId out = shown.edited.scene->createNode(std::make_unique<CTestModel>()).id();
    const Core::CId in = shown.edited.scene->createNode(std::make_unique<CTestModel>()).id();
    QVERIFY(shown.edited.connectNodes(out, in));
    shown.canvas().sync();
    const CConnectionItem& item = *shown.canvas().connectionItems().begin()->second;
    QCOMPARE(item.label(), QStringLiteral("T"));
    shown.canvas().measure();
    auto* const model = dynamic_cast<CTestModel*>(shown.edited.editor->node(out)->nodeDataModel());
    for (int i = 0; i < 10; ++i)
        model->offer(CTestData::make(i));
    QTRY_VERIFY(item.rate() > 0);
    QVERIFY(item.label().endsWith(QLatin1String(" fps")));
    QTRY_COMPARE(item.label(), QStringLiteral("T · %1 fps").arg(QLocale().toString(0.0, 'f', 1)));
}

void tst_CGraphCanvas::showsStatesWhenDataFlows()
{
    const SShownGraph shown;
    const Core::CId id = shown.edited.scene->createNode(std::make_unique<CMoodyModel>()).id();
    shown.canvas().sync();
    auto* const model = dynamic_cast<CMoodyModel*>(shown.edited.editor->node(id)->nodeDataModel());
    const QSizeF before = shown.item(id)->size();
    model->state = ENodeValidationState::Error;
    model->message = QStringLiteral("this is no image");
    model->offer(CTestData::make(1));
    QTRY_COMPARE(shown.item(id)->look().state, ENodeValidationState::Error);
    QCOMPARE(shown.item(id)->look().message, model->message);
    QVERIFY(shown.item(id)->toolTip().endsWith(model->message));
    QVERIFY(shown.item(id)->size().height() > before.height());
}

void tst_CGraphCanvas::glowsWhileAModelComputes()
{
    const SShownGraph shown;
    const Core::CId id = shown.edited.scene->createNode(std::make_unique<CTestModel>()).id();
    shown.canvas().sync();
    auto* const model = shown.edited.editor->node(id)->nodeDataModel();
    Q_EMIT model->computingStarted();
    QVERIFY(!shown.item(id)->isGlowing());
    QTRY_VERIFY(shown.item(id)->isGlowing());
    Q_EMIT model->computingFinished();
    QTRY_VERIFY(!shown.item(id)->isGlowing());
}

void tst_CGraphCanvas::glowsWhenTheWorkTakesLongerThanAFrame()
{
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur");
    shown.canvas().sync();
    CNodeItem& item = *shown.item(blur);
    const cv::Mat image(64, 64, CV_8UC1, cv::Scalar(7));
    shown.edited.editor->node(blur)->propagateData(QSharedPointer<CImageData>::create(image, SFrameInfo()), 0);
    QTRY_VERIFY(item.look().workTime > 0); // it is read while data flows
    constexpr double many = 1e9;
    item.updateGlow(many);
    QVERIFY(item.isGlowing());
    item.updateGlow(1e-3);
    QVERIFY(!item.isGlowing());
    item.updateGlow(0);
    QVERIFY(!item.isGlowing());
}

void tst_CGraphCanvas::showsWhatBecameOfTheDataOfADecoupler()
{
    const SShownGraph shown;
    const Core::CId id = shown.edited.add("DecouplerVGR");
    shown.canvas().sync();
    QStringList names;
    for (const auto& figure : shown.item(id)->look().figures)
        names << figure.first;
    QCOMPARE(names, (QStringList{"received", "emitted", "dropped", "pending", "rate"}));
    QCOMPARE(shown.item(id)->look().figures.back().second, QStringLiteral("25 fps"));

    CNodeDataModel& decoupler = *shown.edited.editor->node(id)->nodeDataModel();
    for (int frame = 0; frame < 3; ++frame)
        decoupler.setInData(frameData(), 0);
    shown.canvas().sync();
    const auto figure = [&](int number) { return shown.item(id)->look().figures[std::size_t(number)].second.toInt(); };
    QTRY_VERIFY((shown.item(id)->refresh(), figure(1) > 0 && figure(3) == 0));
    QCOMPARE(figure(0), 3);
    QCOMPARE(figure(1) + figure(2), 3);
}

void tst_CGraphCanvas::isEmptyWhenTheSceneGoes()
{
    SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur");
    QVERIFY(shown.edited.connectNodes(shown.edited.camera, blur));
    shown.canvas().sync();
    shown.canvas().startConnection(SEditedScene::out(blur));
    QVERIFY(shown.canvas().connectionInProgress());
    shown.edited.service.nodes.removeSceneOfNode(blur);
    QVERIFY(!shown.edited.scene);
    QVERIFY(shown.canvas().nodeItems().empty());
    QVERIFY(shown.canvas().connectionItems().empty());
    QVERIFY(!shown.canvas().connectionInProgress());
    shown.view->grab();
}

void tst_CGraphCanvas::survivesTheEndOfTheEditor()
{
    SShownGraph shown;
    shown.edited.add("Blur");
    shown.canvas().sync();
    shown.edited.editor.reset();
    shown.canvas().sync();
    QVERIFY(shown.canvas().nodeItems().empty());
    const auto allGraphActions = shown.view->graphActions();
    for (QAction* action : allGraphActions)
        action->trigger();
    shown.view->grab();
}

void tst_CGraphCanvas::paintsNothingWhenNothingHappens()
{
    const SShownGraph shown;
    const Core::CId blur = shown.edited.add("Blur");
    QVERIFY(shown.edited.connectNodes(shown.edited.camera, blur));
    shown.canvas().sync();
    QVERIFY(QTest::qWaitForWindowExposed(shown.view.get()));
    int changes = 0;
    connect(&shown.canvas(), &QGraphicsScene::changed, this,
            [&changes](const QList<QRectF>& areas) { changes += areas.isEmpty() ? 0 : 1; });
    // The canvas tells of what is to be painted from its event loop.
    const auto paint = [] { QCoreApplication::sendPostedEvents(); };
    paint();
    changes = 0;
    for (int i = 0; i < 3; ++i) {
        shown.canvas().measure();
        paint();
    }
    QCOMPARE(changes, 0);
    auto* const pulse = shown.canvas().findChild<QTimer*>(QStringLiteral("pulse"));
    QVERIFY(pulse);
    const QSignalSpy pulses(pulse, &QTimer::timeout);
    QTRY_VERIFY(pulses.count() >= 6); // the rates are read meanwhile, too
    paint();
    QCOMPARE(changes, 0);
    // So it would tell.
    shown.item(blur)->update();
    paint();
    QCOMPARE(changes, 1);
}

void tst_CGraphCanvas::drawsANodeOfAnotherSceneNotAtAll()
{
    SShownGraph shown;
    const Core::CId other = shown.edited.service.nodes.addNode(
        shown.edited.service.models.createCameraSource(QStringLiteral("other")), nullptr);
    CNodeBase& far = *shown.edited.service.nodes.findNode(other);
    const Core::CId blur = shown.edited.add("Blur");
    shown.edited.scene->createConnection(*shown.edited.editor->node(blur), 0, far, 0, {});
    shown.canvas().sync();
    QVERIFY(shown.canvas().connectionItems().empty());
    shown.edited.service.nodes.removeSceneOfNode(other);
    shown.canvas().sync();
    QVERIFY(shown.canvas().connectionItems().empty());
    shown.edited.scene->clearScene();
}

QTEST_MAIN(tst_CGraphCanvas)
#include "tst_CGraphCanvas.moc"
