// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/DocumentPicture.h"

#include "SReadDocuments.h"

#include <QTest>

using namespace Host;

class tst_DocumentPicture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void chain();
    void idsOfASceneAreNotDrawn();
};

void tst_DocumentPicture::chain()
{
    SReadDocuments documents;
    const SPicture picture =
        documentPicture(documents.graphOf("[{'name': 'a', 'model': {'name': 'To Image'}, 'unique_sources': [['left']],"
                                          "  'connection': [[{'name': 'b', 'index_in': 1, 'index _out': 0}]]},"
                                          " {'name': 'b', 'model': {'name': 'Split'}},"
                                          " {'name': 'c', 'model': {'name': 'Nobody'}}]"));
    QCOMPARE(picture.nodes.size(), std::size_t(4));
    QCOMPARE(picture.nodes[0].label, QStringLiteral("a"));
    QCOMPARE(picture.nodes[2].caption, QStringLiteral("Nobody"));
    QVERIFY(picture.nodes[3].kind == ENodeKind::Source);
    QCOMPARE(picture.nodes[3].label, QString());
    QCOMPARE(picture.edges.size(), std::size_t(2));
    const auto toSplit = std::find_if(picture.edges.begin(), picture.edges.end(),
                                      [](const SPictureEdge& edge) { return edge.from == 0 && edge.to == 1; });
    QVERIFY(toSplit != picture.edges.end());
    QCOMPARE(toSplit->type, QStringLiteral("IMG"));
    QCOMPARE(toSplit->outPort, QString());
    QCOMPARE(toSplit->inPort, QStringLiteral("port 1"));
}

void tst_DocumentPicture::idsOfASceneAreNotDrawn()
{
    SReadDocuments documents;
    const SPicture picture = documentPicture(documents.graphOf(
        "{'nodes': [{'id': '00000000-0000-0000-0000-000000000001', 'model': {'name': 'Blur'}}], 'connections': []}"));
    QCOMPARE(picture.nodes.size(), std::size_t(1));
    QCOMPARE(picture.nodes[0].caption, QStringLiteral("Blur"));
    QCOMPARE(picture.nodes[0].label, QString());
}

QTEST_GUILESS_MAIN(tst_DocumentPicture)
#include "tst_DocumentPicture.moc"
