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
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    const QByteArray marker = QByteArrayLiteral("QTMETADATA !");
#else
    const QByteArray marker = QByteArrayLiteral("qt-project!\0"); // a note's owner, as the linker keeps notes
#endif
    const auto start = content.indexOf(marker);
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
    void namesInterfaceAndClass();
    void textsInOrder();
    void dependsOnTheHostsCore();
    void isReadWithoutLoading();
    void anyTextComesThrough();
};

void tst_PluginMetadata::beginsWithTheOldestQtThatCanLoadIt()
{
    // The format's version, then Qt's, then the demands on build and processor.
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCOMPARE(metadataBlock().left(4), QByteArray::fromHex("00050c00"));
#else
    QCOMPARE(metadataBlock().left(3), QByteArray::fromHex("0106") + char(QT_VERSION_MINOR));
    constexpr int newestProcessor = 0x0f;                    // beside a bit for a debug build
    QVERIFY((metadataBlock().at(3) & newestProcessor) <= 1); // any processor of x86_64
#endif
}

void tst_PluginMetadata::namesInterfaceAndClass()
{
    const QCborMap map = metadataMap();
    QCOMPARE(map.keys(), (QVector<QCborValue>{2, 3, 4})); // numbers, in order
    QCOMPARE(map.value(2).toString(), QString(HALVEX_PLUGIN_IID));
    QCOMPARE(map.value(3).toString(), QString("CHalvexPlugin"));
}

void tst_PluginMetadata::textsInOrder()
{
    const QCborMap map = texts();
    QCOMPARE(map.keys(), (QVector<QCborValue>{"CompatVersion", "Copyright", "Dependencies", "Description", "License",
                                              "Name", "Required", "Url", "Vendor", "Version"}));
    QCOMPARE(map.value("CompatVersion"), QCborValue("1.3.1"));
    QCOMPARE(map.value("Description"), QCborValue("The Halvex plugin for the Veltra application framework."));
    QCOMPARE(map.value("Name"), QCborValue("Halvex"));
    QCOMPARE(map.value("Version"), QCborValue("1.3.1"));

    const QJsonObject configured = QJsonDocument::fromJson(contentOf(HALVEX_JSON_FILE)).object();
    for (const QString& key : {QString("Copyright"), QString("License"), QString("Url"), QString("Vendor")}) {
        QVERIFY2(configured.value(key).isString(), qPrintable(key));
        QCOMPARE(map.value(key).toString(), configured.value(key).toString());
    }
}

void tst_PluginMetadata::dependsOnTheHostsCore()
{
    QCOMPARE(texts().value("Required"), QCborValue(true));
    const QCborMap core{{"Name", "AppCore"}, {"Version", "1.3.1"}};
    QCOMPARE(texts().value("Dependencies"), QCborValue(QCborArray{core}));
}

void tst_PluginMetadata::isReadWithoutLoading()
{
    CPluginFile file(HALVEX_PLUGIN_FILE);
    const QJsonObject read = file.loader().metaData();
    QCOMPARE(read.value(QStringLiteral("IID")).toString(), QString(HALVEX_PLUGIN_IID));
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
