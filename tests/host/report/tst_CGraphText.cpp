// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/report/CGraphText.h"

#include "host/models/CBlurModel.h"
#include "host/models/CEdgesModel.h"
#include "host/models/CGrabResultConverter.h"
#include "host/sinks/CPngSinkModel.h"
#include "host/sources/CCameraSourceModel.h"
#include "support/CTestScene.h"

#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

class tst_CGraphText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyScene();
    void nodesInTheOrderOfTheData();
    void loopsEnd();
    void whatLeadsNowhereIsLeftOut();
    void dotQuotes();
};

void tst_CGraphText::emptyScene()
{
    const CTestScene scene({}, nullptr);
    const CGraphText graph(scene);
    QCOMPARE(graph.text(), QString());
    QVERIFY(graph.dot().startsWith("digraph Halvex {\n"));
}

void tst_CGraphText::nodesInTheOrderOfTheData()
{
    CTestScene scene({}, nullptr);
    // Made from the end to the beginning, with a short way and a long one to the sink's side.
    CNodeBase& sink = scene.createNode(std::make_unique<CPngSinkModel>());
    CNodeBase& edges = scene.createNode(std::make_unique<CEdgesModel>());
    CNodeBase& blur = scene.createNode(std::make_unique<CBlurModel>());
    CNodeBase& camera = scene.createNode(std::make_unique<CCameraSourceModel>());
    scene.createConnection(sink, 0, edges, 0, {});
    scene.createConnection(edges, 0, blur, 0, {});
    scene.createConnection(sink, 0, camera, 0, CGrabResultConverter());
    scene.createConnection(blur, 0, camera, 0, CGrabResultConverter());

    const CGraphText graph(scene);
    QCOMPARE(graph.text(), QStringLiteral("  [0] Camera\n"
                                          "        VGR to IMG -> [1] Blur\n"
                                          "        VGR to IMG -> [3] PNG files\n"
                                          "  [1] Blur\n"
                                          "        IMG -> [2] Edges\n"
                                          "  [2] Edges\n"
                                          "        IMG -> [3] PNG files\n"
                                          "  [3] PNG files\n"));
    for (const char* line : {"n0 [label=<<B>Camera</B>> ", "n3 [label=<<B>PNG files</B>> ",
                             "n0 -> n1 [label=<VGR to IMG>]\n", "n2 -> n3 [label=<IMG>]\n"})
        QVERIFY2(graph.dot().contains(line), line);
}

void tst_CGraphText::loopsEnd()
{
    CTestScene scene({}, nullptr);
    CNodeBase& blur = scene.createNode(std::make_unique<CBlurModel>());
    CNodeBase& edges = scene.createNode(std::make_unique<CEdgesModel>());
    scene.createConnection(blur, 0, edges, 0, {});
    scene.createConnection(edges, 0, blur, 0, {});
    QCOMPARE(CGraphText(scene).text().count("IMG -> "), 2);
}

void tst_CGraphText::whatLeadsNowhereIsLeftOut()
{
    CTestScene other({}, nullptr);
    CTestScene scene({}, nullptr);
    CNodeBase& blur = scene.createNode(std::make_unique<CBlurModel>());
    QVERIFY(scene.createConnection(ENodePortType::Out, blur, 0));
    QCOMPARE(CGraphText(scene).text(), QStringLiteral("  [0] Blur\n"));
    // To another scene.
    CNodeBase& edges = other.createNode(std::make_unique<CEdgesModel>());
    QVERIFY(scene.createConnection(edges, 0, blur, 0, {}));
    QCOMPARE(CGraphText(scene).text(), QStringLiteral("  [0] Blur\n"));
}

void tst_CGraphText::dotQuotes()
{
    CTestScene scene({}, nullptr);
    scene.createNode(std::make_unique<CCameraSourceModel>(QStringLiteral("<a>&b")));
    QVERIFY(CGraphText(scene).dot().contains(QStringLiteral("<B>Camera: &lt;a&gt;&amp;b</B>")));
}

QTEST_GUILESS_MAIN(tst_CGraphText)
#include "tst_CGraphText.moc"
