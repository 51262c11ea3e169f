// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CPluginFile.h"

#include <QCborArray>
#include <QCborMap>
#include <QCborValue>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

namespace {

QByteArray contentOf(const char* path)
{
    QFile file(QString::fromUtf8(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What follows the marker, in the plugin's file itself.
QByteArray metadataBlock()
{
    const QByteArray content = contentOf(HALVEX_PLUGIN_FILE);
    const QByteArray marker = "QTMETADATA !";
    const int start = content.indexOf(marker);
    return start == -1 ? QByteArray() : content.mid(start + marker.size());
}

QCborMap metadataMap()
{
    return QCborValue::fromCbor(metadataBlock().mid(4)).toMap();
}

QCborMap texts()
{
    return metadataMap().value(4).toMap();
}

} // namespace

/// The block that a host reads before it loads the plugin.
class tst_PluginMetadata : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beginsWithTheOldestQtThatCanLoadIt();
    void keysAreNumbersInOrder();
    void namesInterfaceAndClass();
    void textKeysAreInOrder();
    void fixedTexts_data();
    void fixedTexts();
    void dependsOnTheHostsCore();
    void shippersTextsAreThoseOfTheBuild_data();
    void shippersTextsAreThoseOfTheBuild();
    void isReadWithoutLoading();
    void anyTextComesThrough();
};

void tst_PluginMetadata::beginsWithTheOldestQtThatCanLoadIt()
{
    // The format's version, then Qt's, then no demands on build and processor.
    QCOMPARE(metadataBlock().left(4), QByteArray::fromHex("00050c00"));
}

void tst_PluginMetadata::keysAreNumbersInOrder()
{
    const QCborMap map = metadataMap();
    QCOMPARE(map.keys(), (QVector<QCborValue>{2, 3, 4}));
}

void tst_PluginMetadata::namesInterfaceAndClass()
{
    QCOMPARE(metadataMap().value(2).toString(), QStringLiteral(HALVEX_PLUGIN_IID));
    QCOMPARE(metadataMap().value(3).toString(), QStringLiteral("CHalvexPlugin"));
}

void tst_PluginMetadata::textKeysAreInOrder()
{
    QCOMPARE(texts().keys(), (QVector<QCborValue>{"CompatVersion", "Copyright", "Dependencies", "Description",
                                                  "License", "Name", "Required", "Url", "Vendor", "Version"}));
}

void tst_PluginMetadata::fixedTexts_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::newRow("compatible version") << "CompatVersion"
                                        << "1.3.1";
    QTest::newRow("description") << "Description"
                                 << "The Halvex plugin for the Veltra application framework.";
    QTest::newRow("name") << "Name"
                          << "Halvex";
    QTest::newRow("version") << "Version"
                             << "1.3.1";
}

void tst_PluginMetadata::fixedTexts()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    QCOMPARE(texts().value(key).toString(), text);
}

void tst_PluginMetadata::dependsOnTheHostsCore()
{
    QCOMPARE(texts().value(QStringLiteral("Required")), QCborValue(true));
    const QCborArray dependencies = texts().value(QStringLiteral("Dependencies")).toArray();
    QCOMPARE(dependencies.size(), 1);
    QCOMPARE(dependencies.at(0).toMap(),
             (QCborMap{{QStringLiteral("Name"), QStringLiteral("AppCore")}, {QStringLiteral("Version"), "1.3.1"}}));
}

void tst_PluginMetadata::shippersTextsAreThoseOfTheBuild_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("copyright") << "Copyright";
    QTest::newRow("licence") << "License";
    QTest::newRow("address") << "Url";
    QTest::newRow("vendor") << "Vendor";
}

void tst_PluginMetadata::shippersTextsAreThoseOfTheBuild()
{
    QFETCH(QString, key);
    const QJsonObject configured = QJsonDocument::fromJson(contentOf(HALVEX_JSON_FILE)).object();
    QVERIFY(configured.value(key).isString());
    QCOMPARE(texts().value(key).toString(), configured.value(key).toString());
}

void tst_PluginMetadata::isReadWithoutLoading()
{
    CPluginFile file(HALVEX_PLUGIN_FILE);
    const QJsonObject read = file.loader().metaData();
    QCOMPARE(read.value(QStringLiteral("IID")).toString(), QStringLiteral(HALVEX_PLUGIN_IID));
    QCOMPARE(read.value(QStringLiteral("className")).toString(), QStringLiteral("CHalvexPlugin"));
    QCOMPARE(read.value(QStringLiteral("MetaData")).toObject(), texts().toJsonObject());
    QVERIFY(!file.loader().isLoaded());
    QVERIFY(!isLibraryMapped());
}

void tst_PluginMetadata::anyTextComesThrough()
{
    // The test's own plugin gets its texts the way in which a shipper's get into the library.
    CPluginFile file(TEST_MODELS_PLUGIN_FILE);
    const QJsonObject read = file.loader().metaData().value(QStringLiteral("MetaData")).toObject();
    QCOMPARE(read.value(QStringLiteral("Vendor")).toString(),
             QString::fromUtf8("\"Größe\" 카메라 \\n; 'x' [y] $z \x01\x1f\x7f"));
    QCOMPARE(read.value(QStringLiteral("License")).toString(),
             QStringLiteral("First line\n\tSecond: \"quoted\", back\\slash, [brackets]; @at@, ${dollar}\n"));
    QVERIFY(!file.loader().isLoaded());
}

QTEST_GUILESS_MAIN(tst_PluginMetadata)

#include "tst_PluginMetadata.moc"
