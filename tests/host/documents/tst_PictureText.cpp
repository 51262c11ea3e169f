// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/PictureText.h"

#include "SReadDocuments.h"
#include "host/documents/DocumentPicture.h"
#include "host/documents/Drawing.h"

#include <QRegularExpression>
#include <QSize>
#include <QTest>

using namespace Host;

class tst_PictureText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nodesAndEdges();
    void textFromElsewhere();
    void groups();
    void longOnesGoDown();
    void largeOnesLackTypes();
    void drawings();
    void noDot();
};

void tst_PictureText::nodesAndEdges()
{
    SReadDocuments documents;
    const QByteArray text = dotText(documentPicture(documents.graphOf(
        "[{'name': 'a', 'model': {'name': 'DecouplerVGR'}, 'unique_sources': [['left']], 'connection': [['b']]},"
        " {'name': 'b', 'model': {'name': 'To Image'},"
        "  'connection': [[{'name': 'c', 'index_in': 0, 'index _out': 0}, {'name': 'c', 'index_in': 1, 'index _out': "
        "0}]]},"
        " {'name': 'c', 'model': {'name': 'Split'}},"
        " {'name': 'd', 'model': {'name': 'Nobody'}}]")));
    for (const char* part :
         {"layout=dot rankdir=LR", "<B>Camera: left</B>", "<B>Decoupler for VGR</B></TD></TR><TR><TD>", ">a</FONT>",
          "dashed", "<B>Nobody</B>", "n4 -> n0 [label=<VGR>]", "n0 -> n1 [label=<VGR>]",
          "n1 -> n2 [label=<IMG<BR/>to left>]", "n1 -> n2 [label=<IMG<BR/>to port 1>]"})
        QVERIFY2(text.contains(part), text.constData());
}

void tst_PictureText::textFromElsewhere()
{
    SPicture picture;
    picture.nodes.resize(1);
    picture.nodes[0].caption = QStringLiteral("<a> & \"b\"\n\x01");
    const QByteArray text = dotText(picture);
    QVERIFY2(text.contains("<B>&lt;a&gt; &amp; &quot;b&quot;  </B>"), text.constData());
    QString error;
    QVERIFY(draw(text, EDrawing::Svg, &error).contains("&lt;a&gt;"));
    QCOMPARE(error, QString());
}

void tst_PictureText::groups()
{
    SPicture picture;
    picture.nodes.resize(2);
    picture.nodes[1].group = 1;
    picture.groups = QStringList{"left", "right"};
    const QByteArray text = dotText(picture);
    QVERIFY(text.indexOf("label=<right>") < text.indexOf("n1 ["));
    QVERIFY(text.indexOf("n1 [") < text.indexOf("label=<left>"));
    QVERIFY(text.indexOf("label=<left>") < text.indexOf("n0 ["));
}

// Points of what is drawn.
QSize sizeOf(const SPicture& picture)
{
    QString error;
    const QByteArray svg = draw(dotText(picture), EDrawing::Svg, &error);
    const QRegularExpression size(QStringLiteral(R"(<svg width="(\d+)pt" height="(\d+)pt")"));
    const auto match = size.match(QString::fromUtf8(svg));
    return {match.captured(1).toInt(), match.captured(2).toInt()};
}

SPicture chainOf(int nodes)
{
    SPicture picture;
    for (int i = 0; i < nodes; ++i) {
        picture.nodes.emplace_back();
        picture.nodes.back().caption = QStringLiteral("Threshold");
        picture.nodes.back().label = QStringLiteral("threshold %1").arg(i);
        if (i > 0)
            picture.edges.push_back({i - 1, i, "IMG", {}, {}, {}});
    }
    return picture;
}

void tst_PictureText::longOnesGoDown()
{
    const QSize flat = sizeOf(chainOf(6));
    QVERIFY2(flat.width() > 3 * flat.height() && flat.width() < 1200, qPrintable(QString::number(flat.width())));
    const QSize tall = sizeOf(chainOf(12));
    QVERIFY2(tall.width() < 400 && tall.height() < 1200, qPrintable(QString::number(tall.height())));
}

void tst_PictureText::largeOnesLackTypes()
{
    SPicture picture;
    picture.nodes.resize(mostInLayers);
    picture.edges.push_back({0, 1, "VGR", {}, {}, {}});
    QVERIFY(dotText(picture).contains("<VGR>"));
    picture.nodes.resize(mostInLayers + 1);
    const QByteArray text = dotText(picture);
    QVERIFY(text.contains("layout=sfdp") && !text.contains("<VGR>"));
}

void tst_PictureText::drawings()
{
    SPicture picture;
    picture.nodes.resize(2);
    picture.edges.push_back({0, 1, "VGR", {}, {}, {}});
    const QByteArray text = dotText(picture);
    QString error;
    QCOMPARE(draw(text, EDrawing::Dot, &error), text);
    QVERIFY(draw(text, EDrawing::Svg, &error).contains("<svg "));
    QVERIFY(draw(text, EDrawing::Png, &error).startsWith("\x89PNG"));
    QCOMPARE(error, QString());
}

void tst_PictureText::noDot()
{
    QString error;
    QCOMPARE(draw("digraph {", EDrawing::Svg, &error), QByteArray());
    QVERIFY2(error.contains("syntax error"), qPrintable(error));
}

QTEST_GUILESS_MAIN(tst_PictureText)
#include "tst_PictureText.moc"
