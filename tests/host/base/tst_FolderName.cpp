// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/FolderName.h"

#include <QFile>
#include <QTest>

using namespace Host;

class tst_FolderName : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void usable();
    void unusable();
    void length();
    void filesOfTheGraph();
    void filesOfTheRun();
};

void tst_FolderName::usable()
{
    for (const char* name : {"fake-1", "10.0.0.2", "two words", "größe", "📷"}) {
        QVERIFY2(makesAFolder(name), name);
        QVERIFY2(makesASinkFolder(name), name);
    }
}

void tst_FolderName::unusable()
{
    for (const char* name : {"", "..", ".a", "/etc", "a/b", "a\nb", "a\u2028b"}) {
        QVERIFY2(!makesAFolder(name), name);
        QVERIFY2(!makesACameraFolder(name), name);
        QVERIFY2(!makesASinkFolder(name), name);
    }
}

void tst_FolderName::length()
{
    QVERIFY(makesAFolder(QString(255, 'x')));
    QVERIFY(!makesAFolder(QString(256, 'x')));
    const QString wide = QStringLiteral("ä");
    if (QFile::encodeName(wide).size() == 2)
        QVERIFY(!makesAFolder(wide.repeated(128)));
}

void tst_FolderName::filesOfTheGraph()
{
    for (const char* name : {"graph.txt", "graph.dot"}) {
        QVERIFY2(makesAFolder(name), name);
        QVERIFY2(!makesASinkFolder(name), name);
    }
}

void tst_FolderName::filesOfTheRun()
{
    for (const char* name : {"manifest.json", "chain.json", "chain-2.json", "chain-17.json"}) {
        QVERIFY2(makesAFolder(name), name);
        QVERIFY2(!makesACameraFolder(name), name);
    }
    for (const char* name : {"fake-1", "10.0.0.2", "chain", "chain-2", "chain-a.json", "my chain.json", "chainXjson"})
        QVERIFY2(makesACameraFolder(name), name);
}

QTEST_GUILESS_MAIN(tst_FolderName)
#include "tst_FolderName.moc"
