// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/CModelPalette.h"

#include "edit/SEditedScene.h"
#include "host/viewer/edit/CModelTree.h"

#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

using namespace Host;

class tst_CModelPalette : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsModelsByCategory();
    void searchesAndPlacesWithTheKeyboard();
    void placesOnADoubleClick();
    void dragsTheModelsName();

private:
    const SHostService m_service;
};

void tst_CModelPalette::showsModelsByCategory()
{
    const CModelTree tree(*m_service.nodes.registry());
    QStringList categories;
    for (int i = 0; i < tree.rowCount(); ++i)
        categories << tree.index(i, 0).data().toString();
    QCOMPARE(categories, (QStringList{"Filters", "Sinks", "Sources", "Tools"}));
    const QModelIndex filters = tree.index(0, 0);
    QCOMPARE(CModelTree::modelNameAt(filters), QString());
    QCOMPARE(CModelTree::modelNameAt(tree.index(0, 0, filters)), QStringLiteral("Blur"));
}

void tst_CModelPalette::searchesAndPlacesWithTheKeyboard()
{
    CModelPalette palette(m_service.nodes.registry());
    const QSignalSpy placed(&palette, &CModelPalette::placeRequested);
    auto* const search = palette.findChild<QLineEdit*>(QStringLiteral("modelSearch"));
    QTest::keyClick(search, Qt::Key_Return);
    QCOMPARE(placed.count(), 0);
    QTest::keyClicks(search, QStringLiteral("hist"));
    QTest::keyClick(search, Qt::Key_Return);
    QCOMPARE(placed.count(), 1);
    QCOMPARE(placed.front().front().toString(), QStringLiteral("Histogram"));
    search->clear();
    QTest::keyClicks(search, QStringLiteral("none such"));
    QTest::keyClick(search, Qt::Key_Return);
    QCOMPARE(placed.count(), 1);
}

void tst_CModelPalette::placesOnADoubleClick()
{
    CModelPalette palette(m_service.nodes.registry());
    palette.resize(300, 500);
    palette.show();
    const QSignalSpy placed(&palette, &CModelPalette::placeRequested);
    const auto* const view = palette.findChild<QTreeView*>(QStringLiteral("modelView"));
    const QModelIndex blur = view->model()->index(0, 0, view->model()->index(0, 0));
    const QPoint place = view->visualRect(blur).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(placed.count(), 1);
    QCOMPARE(placed.front().front().toString(), QStringLiteral("Blur"));
}

void tst_CModelPalette::dragsTheModelsName()
{
    const CModelTree tree(*m_service.nodes.registry());
    const std::unique_ptr<QMimeData> data(tree.mimeData({tree.index(0, 0, tree.index(0, 0))}));
    QCOMPARE(data->data(CModelTree::mimeType()), QByteArray("Blur"));
}

QTEST_MAIN(tst_CModelPalette)
#include "tst_CModelPalette.moc"
