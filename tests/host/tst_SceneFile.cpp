// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/SceneFile.h"

#include <QFile>
#include <QJsonArray>
#include <QTemporaryDir>
#include <QTest>

using namespace Host;

class tst_SceneFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void reads();
    void refused_data();
    void refused();
    void deviceWithoutEndIsRefused();
    void orderDoesNotMatter();
    void uniqueNodesGoByTheirNames();
    void differences_data();
    void differences();
};

void tst_SceneFile::reads()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("a.json"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write("{\"nodes\": [1]}") > 0);
    file.close();
    QString error;
    QCOMPARE(readSceneFile(file.fileName(), &error), QJsonObject({{"nodes", QJsonArray{1}}}));
    QCOMPARE(error, QString());
}

void tst_SceneFile::refused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("error");
    QTest::newRow("empty") << QByteArray("") << "cannot load '%1': no JSON: line 1, column 1 (offset 0): illegal value";
    QTest::newRow("cut off") << QByteArray("{\n  \"nodes\": [")
                             << "cannot load '%1': no JSON: line 2, column 13 (offset 14): unterminated array";
    QTest::newRow("behind other characters than ASCII")
        << QByteArray("{\n\"\xc3\xa4\xc3\xa4\": nonsense}")
        << "cannot load '%1': no JSON: line 2, column 9 (offset 12): illegal value";
    QTest::newRow("array") << QByteArray("[]") << "cannot load '%1': the top level is no object";
    QTest::newRow("nested too deeply") << QByteArray(100000, '[') << "cannot load '%1': no JSON: line 1, column ";
}

void tst_SceneFile::refused()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, error);
    const QTemporaryDir folder;
    QFile file(folder.filePath("a.json"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
    file.close();
    QString told;
    QVERIFY(readSceneFile(file.fileName(), &told).isEmpty());
    QVERIFY2(told.startsWith(error.arg(file.fileName())), qPrintable(told));
}

void tst_SceneFile::deviceWithoutEndIsRefused()
{
    QString error;
    readSceneFile(QStringLiteral("/dev/zero"), &error);
    QCOMPARE(error, QStringLiteral("cannot load '/dev/zero': it is larger than 64 MiB"));
}

void tst_SceneFile::orderDoesNotMatter()
{
    const QJsonObject a{{"id", "a"}, {"model", QJsonObject{{"name", "A"}, {"is_unique", false}}}};
    const QJsonObject b{{"id", "b"}};
    const QJsonObject left{{"nodes", QJsonArray{a, b}}, {"connections", QJsonArray{1, 2, 2}}};
    const QJsonObject right{{"connections", QJsonArray{2, 1, 2}}, {"nodes", QJsonArray{b, a}}};
    QCOMPARE(sceneDifference(left, right), QString());
}

void tst_SceneFile::uniqueNodesGoByTheirNames()
{
    const auto document = [](const char* id, const char* name, bool isUnique) {
        const QJsonObject model{{"name", "Camera Source"}, {"is_unique", isUnique}, {"unique_name", name}};
        const QJsonObject blur{{"id", "b"}, {"model", QJsonObject{{"name", "Blur"}}}};
        return QJsonObject{{"nodes", QJsonArray{QJsonObject{{"id", id}, {"model", model}}, blur}},
                           {"connections", QJsonArray{QJsonObject{{"out_id", id}, {"in_id", "b"}}}}};
    };
    QCOMPARE(sceneDifference(document("1", "left", true), document("2", "left", true)), QString());
    QVERIFY(!sceneDifference(document("1", "left", true), document("1", "right", true)).isEmpty());
    QVERIFY(!sceneDifference(document("1", "left", false), document("2", "left", false)).isEmpty());
    QVERIFY(!sceneDifference(document("1", "left", true), document("1", "left", false)).isEmpty());
    QJsonObject unconnected = document("2", "left", true);
    unconnected.insert("connections", QJsonArray{QJsonObject{{"out_id", "1"}, {"in_id", "b"}}});
    QVERIFY(!sceneDifference(document("1", "left", true), unconnected).isEmpty());
}

void tst_SceneFile::differences_data()
{
    QTest::addColumn<QJsonObject>("right");
    QTest::addColumn<QString>("difference");
    const QJsonArray nodes{"a", "b"};
    QTest::newRow("node missing") << QJsonObject{{"nodes", QJsonArray{"a"}}, {"connections", QJsonArray{1}}}
                                  << "only the first has, in nodes: [\"b\"]";
    QTest::newRow("node too many") << QJsonObject{{"nodes", QJsonArray{"a", "b", "b"}}, {"connections", QJsonArray{1}}}
                                   << "only the second has, in nodes: [\"b\"]";
    QTest::newRow("connection") << QJsonObject{{"nodes", nodes}, {"connections", QJsonArray{2}}}
                                << "only the first has, in connections: [1]";
    QTest::newRow("other key") << QJsonObject{{"nodes", nodes}, {"connections", QJsonArray{1}}, {"x", 1}}
                               << "what is neither node nor connection";
}

void tst_SceneFile::differences()
{
    QFETCH(QJsonObject, right);
    QFETCH(QString, difference);
    const QJsonObject left{{"nodes", QJsonArray{"a", "b"}}, {"connections", QJsonArray{1}}};
    QCOMPARE(sceneDifference(left, right), difference);
}

QTEST_GUILESS_MAIN(tst_SceneFile)
#include "tst_SceneFile.moc"
