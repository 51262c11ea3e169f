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
    void textsAreInTheMetadata();
};

void tst_ShippersTexts::textsAreInTheMetadata()
{
    const QPluginLoader loader(QStringLiteral(OTHER_PLUGIN_FILE));
    QCOMPARE(loader.metaData()["IID"].toString(), QString("com.example.other-host/2.0"));
    QVERIFY(!loader.isLoaded());

    const QJsonObject metadata = loader.metaData()["MetaData"].toObject();
    QCOMPARE(metadata["Copyright"].toString(), QString::fromUtf8("© 2026 \"Größe\" \\ 카메라"));
    QCOMPARE(metadata["License"].toString(),
             QString::fromUtf8("Erste Zeile: \"größer\" \\ 라이선스\n\tline 2; @at@, ${dollar}\n")); // from a file
    QCOMPARE(metadata["Url"].toString(), QString("https://example.com/?a=1&b=[2]#c"));
    QCOMPARE(metadata["Vendor"].toString(), QString("Example's $"));
}

QTEST_GUILESS_MAIN(tst_ShippersTexts)

#include "tst_ShippersTexts.moc"
