// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/SceneFile.h"

#include "TestFile.h"
#include "TestJson.h"
#include "TestTable.h"

#include <QTemporaryDir>

using namespace Host;

namespace {

QJsonObject object(const char* text)
{
    return json(text).toObject();
}

} // namespace

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
    void differences();

private:
    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath("a.json");
};

void tst_SceneFile::reads()
{
    QVERIFY(write(m_file, "{\"nodes\": [1]}"));
    QString error;
    QCOMPARE(readSceneFile(m_file, &error), object("{'nodes': [1]}"));
    QCOMPARE(error, QString());
}

void tst_SceneFile::refused_data()
{
    addColumns<QByteArray, QString>({"bytes", "error"});
    addRow("empty", QByteArray(""), "no JSON: line 1, column 1 (offset 0): illegal value");
    addRow("cut off", QByteArray("{\n  \"nodes\": ["), "no JSON: line 2, column 13 (offset 14): unterminated array");
    addRow("behind other characters than ASCII", QByteArray("{\n\"\xc3\xa4\xc3\xa4\": nonsense}"),
           "no JSON: line 2, column 9 (offset 12): illegal value");
    addRow("array", QByteArray("[]"), "the top level is no object");
    addRow("nested too deeply", QByteArray(100000, '['), "no JSON: line 1, column ");
}

void tst_SceneFile::refused()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, error);
    QVERIFY(write(m_file, bytes));
    QString told;
    QVERIFY(readSceneFile(m_file, &told).isEmpty());
    QVERIFY2(told.startsWith(QStringLiteral("cannot load '%1': %2").arg(m_file, error)), qPrintable(told));
}

void tst_SceneFile::deviceWithoutEndIsRefused()
{
    QString error;
    readSceneFile(QStringLiteral("/dev/zero"), &error);
    QCOMPARE(error, QStringLiteral("cannot load '/dev/zero': it is larger than 64 MiB"));
}

void tst_SceneFile::orderDoesNotMatter()
{
    const QJsonObject left =
        object("{'nodes': [{'id': 'a', 'model': {'name': 'A'}}, {'id': 'b'}], 'connections': [1, 2, 2]}");
    const QJsonObject right =
        object("{'connections': [2, 1, 2], 'nodes': [{'id': 'b'}, {'model': {'name': 'A'}, 'id': 'a'}]}");
    QCOMPARE(sceneDifference(left, right), QString());
}

void tst_SceneFile::uniqueNodesGoByTheirNames()
{
    const auto document = [](const char* id, const char* name, const char* isUnique = "true",
                             const char* outId = nullptr) {
        const QString text = QStringLiteral("{'nodes': [{'id': '%1', 'model': {'is_unique': %3, 'unique_name': '%2'}}, "
                                            "{'id': 'b'}], 'connections': [{'out_id': '%4', 'in_id': 'b'}]}");
        return json(text.arg(id, name, isUnique, outId ? outId : id).toUtf8()).toObject();
    };
    QCOMPARE(sceneDifference(document("1", "left"), document("2", "left")), QString());
    QVERIFY(!sceneDifference(document("1", "left"), document("1", "right")).isEmpty());
    QVERIFY(!sceneDifference(document("1", "left", "false"), document("2", "left", "false")).isEmpty());
    QVERIFY(!sceneDifference(document("1", "left"), document("1", "left", "false")).isEmpty());
    QVERIFY(!sceneDifference(document("1", "left"), document("2", "left", "true", "1")).isEmpty());
}

void tst_SceneFile::differences()
{
    const auto difference = [](const char* other) {
        return sceneDifference(object("{'nodes': ['a', 'b'], 'connections': [1]}"), object(other));
    };
    QCOMPARE(difference("{'nodes': ['a'], 'connections': [1]}"), QString("only the first has, in nodes: [\"b\"]"));
    QCOMPARE(difference("{'nodes': ['a', 'b', 'b'], 'connections': [1]}"),
             QString("only the second has, in nodes: [\"b\"]"));
    QCOMPARE(difference("{'nodes': ['a', 'b'], 'connections': [2]}"),
             QString("only the first has, in connections: [1]"));
    QCOMPARE(difference("{'nodes': ['a', 'b'], 'connections': [1], 'x': 1}"),
             QString("what is neither node nor connection"));
}

QTEST_GUILESS_MAIN(tst_SceneFile)
#include "tst_SceneFile.moc"
