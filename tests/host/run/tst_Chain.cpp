// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/Chain.h"

#include "TestFile.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

using namespace Host;

class tst_Chain : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void severalChains();
    void sinksThatWouldMix();
    void textIsKeptAsItIs();
    void refused();
    void whatIsNoChainIsKept();
    void defaultChainNamesTheCameras();
    void starIsEveryCamera();

private:
    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath("a.json");
};

void tst_Chain::textIsKeptAsItIs()
{
    const QByteArray text = " [ {\"name\":\"a\"},\n 2 ]\n";
    QVERIFY(write(m_file, text));
    QString error;
    const SChain chain = readChain(m_file, &error);
    QCOMPARE(error, QString());
    QCOMPARE(chain.name, m_file);
    QCOMPARE(chain.text, text);
    QCOMPARE(chain.elements, QJsonArray({QJsonObject{{"name", "a"}}, 2}));
}

void tst_Chain::refused()
{
    const auto errorOf = [](const QString& file) {
        QString error;
        readChain(file, &error);
        return error;
    };
    QCOMPARE(errorOf("/nowhere"), QStringLiteral("cannot read '/nowhere': No such file or directory"));
}

void tst_Chain::whatIsNoChainIsKept()
{
    for (const char* text : {"[\n  {\"name\": nonsense]", "{}", ""}) {
        QVERIFY(write(m_file, text));
        QString error;
        const SChain chain = withCameras(readChain(m_file, &error), {"left"});
        QCOMPARE(error, QString());
        QCOMPARE(chain.source, QByteArray(text));
        QCOMPARE(chain.text, QByteArray(text));
        QVERIFY(chain.elements.isEmpty());
    }
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

void tst_Chain::starIsEveryCamera()
{
    QVERIFY(write(m_file, R"([{"name": "a", "unique_sources": [["x", "*"], ["y", "y"]]}, {"name": "b"}, 2])"));
    QString error;
    const SChain chain = readChain(m_file, &error);
    const SChain wired = withCameras(chain, {"left", "x"});
    QCOMPARE(wired.elements[0]["unique_sources"].toArray(),
             QJsonArray({QJsonArray{"x", "left"}, QJsonArray{"y", "y"}}));
    QCOMPARE(wired.elements[1], chain.elements[1]);
    QCOMPARE(QJsonDocument::fromJson(wired.text).array(), wired.elements);
    QCOMPARE(wired.source, chain.text);
    // Without a star there is nothing to do.
    QVERIFY(write(m_file, R"( [{"name": "a", "unique_sources": [["x"]]}])"));
    QCOMPARE(withCameras(readChain(m_file, &error), {"left"}).text, content(m_file));
}

void tst_Chain::severalChains()
{
    const QTemporaryDir folder;
    const QString first = folder.filePath("a.json");
    QVERIFY(write(first, "[]"));
    QString error;
    QCOMPARE(readChains({}, {"left"}, &error).at(0).name, QStringLiteral("default chain"));
    const std::vector<SChain> chains = readChains({first, first}, {"left"}, &error);
    QCOMPARE(error, QString());
    QCOMPARE(chains.size(), std::size_t(2));
    QCOMPARE(chains[1].name, first);
    readChains({first, folder.filePath("b.json"), folder.filePath("c.json")}, {"left"}, &error);
    QVERIFY2(error.startsWith(QStringLiteral("cannot read '%1': ").arg(folder.filePath("b.json"))), qPrintable(error));
}

void tst_Chain::sinksThatWouldMix()
{
    const auto chain = [](const char* name, const QStringList& sinks) {
        SChain made;
        made.name = QString(name);
        for (const QString& sink : sinks)
            made.elements.append(QJsonObject{{"model", QJsonObject{{"property", QJsonObject{{"sink_name", sink}}}}}});
        return made;
    };
    QCOMPARE(findClash({}), QString());
    QCOMPARE(findClash({chain("a", {"x", "y"}), chain("b", {"z"})}), QString());
    QCOMPARE(findClash({chain("a", {"x", "y"}), chain("b", {"z", "y"})}),
             QStringLiteral("the sink 'y' is in 'a' and in 'b': their files would mix"));
    QCOMPARE(findClash({chain("a", {"x"}), chain("a", {"x"})}),
             QStringLiteral("the sink 'x' is in 'a' and in 'a': their files would mix"));
}

QTEST_GUILESS_MAIN(tst_Chain)
#include "tst_Chain.moc"
