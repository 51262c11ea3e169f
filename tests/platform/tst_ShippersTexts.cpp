// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <QJsonObject>
#include <QPluginLoader>
#include <QtTest>

/// What whoever ships the plugin sets when it is built, in the file that comes of it; other/check.cmake builds that.
class tst_ShippersTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void interfaceIdentifier();
    void textsAreInTheMetadata_data();
    void textsAreInTheMetadata();
};

void tst_ShippersTexts::interfaceIdentifier()
{
    const QPluginLoader loader(QStringLiteral(OTHER_PLUGIN_FILE));
    QCOMPARE(loader.metaData().value(QStringLiteral("IID")).toString(), QStringLiteral("com.example.other-host/2.0"));
    QVERIFY(!loader.isLoaded());
}

void tst_ShippersTexts::textsAreInTheMetadata_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::newRow("copyright") << "Copyright" << QString::fromUtf8("© 2026 \"Größe\" \\ 카메라");
    QTest::newRow("licence, from a file") << "License"
                                          << QString::fromUtf8("Erste Zeile: \"größer\" \\ 라이선스\n"
                                                               "\tline 2; @at@, ${dollar}\n");
    QTest::newRow("address") << "Url"
                             << "https://example.com/?a=1&b=[2]#c";
    QTest::newRow("vendor") << "Vendor"
                            << "Example's $";
}

void tst_ShippersTexts::textsAreInTheMetadata()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    const QPluginLoader loader(QStringLiteral(OTHER_PLUGIN_FILE));
    const QJsonObject metadata = loader.metaData().value(QStringLiteral("MetaData")).toObject();
    QCOMPARE(metadata.value(key).toString(), text);
}

QTEST_GUILESS_MAIN(tst_ShippersTexts)

#include "tst_ShippersTexts.moc"
