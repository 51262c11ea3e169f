// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/documents/NodeLabels.h"

#include "SReadDocuments.h"

#include <QTest>

using namespace Host;

namespace {

QByteArray sceneNode(const char* id, const QByteArray& model)
{
    return QByteArray("{'id': '00000000-0000-0000-0000-00000000000") + id + "', 'model': {" + model + "}}";
}

} // namespace

class tst_NodeLabels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void chainKeepsItsNames();
    void severalCameras();
    void cameraGivesWay();
    void nodesOfASceneAreNumberedInTheFlow();
    void cameraKeepsItsNameToItself();

private:
    QStringList labels(const QByteArray& text);

    SReadDocuments m_documents;
};

void tst_NodeLabels::chainKeepsItsNames()
{
    QCOMPARE(labels("[{'name': 'b', 'model': {'name': 'To Image'}, 'unique_sources': [['*']], 'connection': [['a']]},"
                    " {'name': 'a', 'model': {'name': 'Blur'}}]"),
             QStringList({"b", "a", "camera"}));
}

void tst_NodeLabels::severalCameras()
{
    QCOMPARE(labels("[{'name': 'a', 'model': {'name': 'To Image'}, 'unique_sources': [['left', 'right']]}]"),
             QStringList({"a", "camera left", "camera right"}));
}

void tst_NodeLabels::cameraGivesWay()
{
    QCOMPARE(labels("[{'name': 'camera', 'model': {'name': 'To Image'}, 'unique_sources': [['*']]}]"),
             QStringList({"camera", "camera 2"}));
}

void tst_NodeLabels::nodesOfASceneAreNumberedInTheFlow()
{
    const QByteArray image = "'name': 'To Image'";
    const QByteArray sink = "'name': 'PNG Sink', 'property': {'sink_name': 'edges'}";
    const QByteArray text = "{'nodes': [" + sceneNode("1", image) + ',' + sceneNode("2", image) + ',' +
                            sceneNode("3", sink) + ',' + sceneNode("4", "'name': 'Camera Source', 'is_unique': true") +
                            "], 'connections': ["
                            "{'out_id': '00000000-0000-0000-0000-000000000004', 'out_index': 0,"
                            " 'in_id': '00000000-0000-0000-0000-000000000001', 'in_index': 0}]}";
    // What nothing leads to comes first.
    QCOMPARE(labels(text), QStringList({"To Image 2", "To Image", "PNG Sink edges", "camera"}));
}

void tst_NodeLabels::cameraKeepsItsNameToItself()
{
    const QByteArray text = "{'nodes': [" + sceneNode("1", "'name': 'To Image'") + ',' +
                            sceneNode("2", "'name': 'Camera Source', 'is_unique': true, 'unique_name': 'To Image'") +
                            "], 'connections': []}";
    QCOMPARE(labels(text), QStringList({"To Image 2", "camera"}));
}

QStringList tst_NodeLabels::labels(const QByteArray& text)
{
    return nodeLabels(m_documents.graphOf(text));
}

QTEST_GUILESS_MAIN(tst_NodeLabels)
#include "tst_NodeLabels.moc"
