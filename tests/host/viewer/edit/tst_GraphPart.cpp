// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/GraphPart.h"

#include "edit/SEditedScene.h"

#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

class tst_GraphPart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsNodesWithAllTheirConnections();
    void takesOutWhatIsThereNow();
    void countsWhatCannotComeBack();
    void leavesWhatIsThereAlready();
    void copiesGetNewIds();
    void textKeepsEverything();
};

void tst_GraphPart::readsNodesWithAllTheirConnections()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur", {8, 16});
    QVERIFY(edited.connectNodes(edited.camera, blur));
    const SGraphPart part = partOf(*edited.scene, {blur, Core::CId::createId()}, edited.editor->positions());
    QCOMPARE(idsIn(part), std::vector<Core::CId>{blur});
    QCOMPARE(part.connections.size(), std::size_t(1));
    QCOMPARE(part.positions, (NodePositions{{blur.toString(), {8, 16}}}));
}

void tst_GraphPart::takesOutWhatIsThereNow()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    SGraphPart part = partOf(*edited.scene, {blur}, {});
    QVERIFY(edited.connectNodes(edited.camera, blur));
    QVERIFY(edited.editor->setSetting(blur, QStringLiteral("size"), QStringLiteral("9")));
    const QByteArray before = edited.document();
    takeOut(*edited.scene, &part, {});
    QVERIFY(!edited.editor->node(blur));
    QCOMPARE(putBack(*edited.scene, part), 0);
    QCOMPARE(edited.document(), before);
}

void tst_GraphPart::countsWhatCannotComeBack()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    const Core::CId edges = edited.add("Edges");
    QVERIFY(edited.connectNodes(blur, edges));
    SGraphPart part = partOf(*edited.scene, {blur}, {});
    takeOut(*edited.scene, &part, {});
    edited.scene->removeNode(*edited.editor->node(edges));
    part.nodes.push_back(QJsonObject{{"id", Core::CId::createId().toString()},
                                     {"model", QJsonObject{{"name", QStringLiteral("None such")}}}});
    QCOMPARE(putBack(*edited.scene, part), 2);
    QVERIFY(edited.editor->node(blur));
}

void tst_GraphPart::leavesWhatIsThereAlready()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur");
    QVERIFY(edited.connectNodes(edited.camera, blur));
    const SGraphPart part = partOf(*edited.scene, {blur}, {});
    const CNodeBase* const node = edited.editor->node(blur);
    QCOMPARE(putBack(*edited.scene, part), 0);
    QCOMPARE(edited.editor->node(blur), node);
    QCOMPARE(edited.scene->connections().size(), std::size_t(1));
}

void tst_GraphPart::copiesGetNewIds()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur", {8, 16});
    const Core::CId edges = edited.add("Edges", {16, 16});
    QVERIFY(edited.connectNodes(edited.camera, blur) && edited.connectNodes(blur, edges));
    const SGraphPart part = partOf(*edited.scene, {edited.camera, blur, edges}, edited.editor->positions());
    const SGraphPart copy = copyOf(part, {95, 0});
    QCOMPARE(copy.nodes.size(), std::size_t(2)); // the camera is there once
    QCOMPARE(copy.connections.size(), std::size_t(1));
    for (const Core::CId& id : idsIn(copy))
        QVERIFY(!edited.editor->node(id));
    QCOMPARE(copy.positions.value(idsIn(copy).front().toString()), QPointF(104, 16));
}

void tst_GraphPart::textKeepsEverything()
{
    const SEditedScene edited;
    const Core::CId blur = edited.add("Blur", {8, 16});
    const Core::CId edges = edited.add("Edges", {16, 16});
    QVERIFY(edited.connectNodes(blur, edges));
    const SGraphPart part = partOf(*edited.scene, {blur, edges}, edited.editor->positions());
    const SGraphPart read = partFromText(toText(part));
    QCOMPARE(read.nodes, part.nodes);
    QCOMPARE(read.connections, part.connections);
    QCOMPARE(read.positions, part.positions);
    QVERIFY(partFromText("[1, 2").nodes.empty());
}

QTEST_GUILESS_MAIN(tst_GraphPart)
#include "tst_GraphPart.moc"
