// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CFeatureTree.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace Host;

namespace {

SFeature feature(const QString& category, const QString& name, const QString& value = {})
{
    SFeature made;
    made.category = category;
    made.name = name;
    made.type = QStringLiteral("integer");
    made.plainValue = value;
    return made;
}

} // namespace

class tst_CFeatureTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void featuresByCategory();
    void valuesChangeAndRowsStay();
    void otherFeaturesHaveOtherRows();
    void helpIsShown();
};

void tst_CFeatureTree::featuresByCategory()
{
    CFeatureTree tree;
    const QAbstractItemModelTester tester(&tree);
    tree.setFeatures({feature("Image", "Width", "512"), feature("Gain", "GainRaw", "3"), feature("Image", "Height")});
    QCOMPARE(tree.rowCount(), 2);
    const QModelIndex image = tree.index(0, 0);
    QCOMPARE(image.data().toString(), "Image");
    QCOMPARE(tree.index(0, 0, image).data().toString(), "Width");
    QCOMPARE(tree.index(1, 0, image).data().toString(), "Height");
    QCOMPARE(tree.find("GainRaw").parent().data().toString(), "Gain");
    QCOMPARE(CFeatureTree::featureAt(tree.find("GainRaw")).plainValue, "3");
    // A category is no feature, whatever it is called.
    QVERIFY(!tree.find("Image").isValid());
    QVERIFY(CFeatureTree::featureAt(image).name.isEmpty());
}

void tst_CFeatureTree::valuesChangeAndRowsStay()
{
    CFeatureTree tree;
    const QAbstractItemModelTester tester(&tree);
    tree.setFeatures({feature("Image", "Width", "512"), feature("Image", "Height", "256")});
    const QPersistentModelIndex width = tree.find("Width");
    const QSignalSpy changes(&tree, &QAbstractItemModel::dataChanged);
    tree.setFeatures({feature("Image", "Width", "64"), feature("Image", "Height", "256")});
    QVERIFY(width.isValid());
    QCOMPARE(CFeatureTree::featureAt(width).plainValue, "64");
    QVERIFY(!changes.isEmpty());
}

void tst_CFeatureTree::otherFeaturesHaveOtherRows()
{
    CFeatureTree tree;
    const QAbstractItemModelTester tester(&tree);
    tree.setFeatures({feature("Image", "Width", "512")});
    SFeature other = feature("Image", "Width", "wide");
    other.type = QStringLiteral("text"); // its widget is another one
    const QPersistentModelIndex before = tree.find("Width");
    tree.setFeatures({other});
    QVERIFY(!before.isValid());
    QCOMPARE(tree.rowCount(), 1);
    tree.setFeatures({});
    QCOMPARE(tree.rowCount(), 0);
}

void tst_CFeatureTree::helpIsShown()
{
    CFeatureTree tree;
    SFeature width = feature("Image", "Width");
    width.help = QStringLiteral("Of the image, in pixels");
    tree.setFeatures({width, feature("Image", "Height")});
    QCOMPARE(tree.find("Width").data(Qt::ToolTipRole).toString(), "Width\nOf the image, in pixels");
    QCOMPARE(tree.find("Height").data(Qt::ToolTipRole).toString(), "Height");
}

QTEST_MAIN(tst_CFeatureTree)
#include "tst_CFeatureTree.moc"
