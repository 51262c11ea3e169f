// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CJsonTree.h"

#include "TestTable.h"

using namespace Host;

class tst_CJsonTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void path_data();
    void path();
    void pathOfAnItem();
};

void tst_CJsonTree::path_data()
{
    addColumns<QString, QString>({"key", "path"});
    const auto row = [](const char* name, const QString& key, const char* path) { addRow(name, key, QString(path)); };
    row("word", "index_in", "$.index_in");
    row("blank", "index _out", "$['index _out']");
    row("digit", "1a", "$['1a']");
    row("empty", "", "$['']");
    row("quote", "it's", R"($['it\'s'])");
    row("double quote", R"(a"b)", R"($['a"b'])");
    row("backslash", R"(a\b)", R"($['a\\b'])");
    row("ends of lines", "a\n\r\tb", R"($['a\n\r\tb'])");
    row("zero byte", QString(QChar(0)), R"($['\u0000'])");
    row("separator of lines", QString(QChar(0x2028)), R"($['\u2028'])");
    row("not English", "größe 📷", "$['größe 📷']");
    row("long", QString(100, 'k'), QByteArray("$." + QByteArray(100, 'k')).constData());
}

void tst_CJsonTree::path()
{
    QFETCH(QString, key);
    CJsonTree tree;
    SJsonNode& root = tree.add(nullptr);
    root.type = QJsonValue::Object;
    SJsonNode& member = tree.add(&root);
    member.key = key;
    QTEST(pathOf(member), "path");
}

void tst_CJsonTree::pathOfAnItem()
{
    CJsonTree tree;
    SJsonNode& root = tree.add(nullptr);
    QCOMPARE(pathOf(root), QString("$"));
    root.type = QJsonValue::Array;
    tree.add(&root);
    QCOMPARE(pathOf(tree.add(&root)), QString("$[1]"));
}

QTEST_GUILESS_MAIN(tst_CJsonTree)
#include "tst_CJsonTree.moc"
