// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/Chain.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

using namespace Host;

class tst_Chain : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textIsKeptAsItIs();
    void refused_data();
    void refused();
    void missingFile();
    void defaultChainNamesTheCameras();
};

void tst_Chain::textIsKeptAsItIs()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("a.json"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QByteArray text = " [ {\"name\":\"a\"},\n 2 ]\n";
    QCOMPARE(file.write(text), qint64(text.size()));
    file.close();
    QString error;
    const SChain chain = readChain(file.fileName(), &error);
    QCOMPARE(error, QString());
    QCOMPARE(chain.name, file.fileName());
    QCOMPARE(chain.text, text);
    QCOMPARE(chain.elements, QJsonArray({QJsonObject{{"name", "a"}}, 2}));
}

void tst_Chain::refused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("error");
    QTest::newRow("no JSON") << QByteArray("[\n  {\"name\": nonsense]")
                             << "cannot load '%1': no JSON: line 2, column 14 (offset 15): illegal value";
    QTest::newRow("no array") << QByteArray("{}") << "cannot load '%1': the top level is no array";
}

void tst_Chain::refused()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, error);
    const QTemporaryDir folder;
    QFile file(folder.filePath("a.json"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), qint64(text.size()));
    file.close();
    QString told;
    readChain(file.fileName(), &told);
    QCOMPARE(told, error.arg(file.fileName()));
}

void tst_Chain::missingFile()
{
    QString error;
    readChain(QStringLiteral("/nowhere/a.json"), &error);
    QCOMPARE(error, QStringLiteral("cannot read '/nowhere/a.json': No such file or directory"));
}

void tst_Chain::defaultChainNamesTheCameras()
{
    const SChain chain = defaultChain({"left", "right"});
    QCOMPARE(QJsonDocument::fromJson(chain.text).array(), chain.elements);
    int fed = 0;
    for (const QJsonValue& element : chain.elements) {
        const QJsonValue sources = element[QStringLiteral("unique_sources")];
        if (sources.isUndefined())
            continue;
        ++fed;
        QCOMPARE(sources.toArray(), QJsonArray({QJsonArray{"left", "right"}}));
    }
    QCOMPARE(fed, 2);
}

QTEST_GUILESS_MAIN(tst_Chain)
#include "tst_Chain.moc"
