// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CPositionsFile.h"

#include "TestFile.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Host;
using Positions = QMap<QString, QPointF>;

class tst_CPositionsFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void eachDocumentHasItsOwn();
    void unknownDocumentAndUnreadableFile();
    void documentThatIsGoneIsForgotten();
    void failureIsTold();

private:
    QString document(const char* name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};

void tst_CPositionsFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_file = m_folder->filePath("own/positions.json");
    for (const char* name : {"a.json", "b.json"})
        QVERIFY(write(document(name), "{}"));
}

void tst_CPositionsFile::eachDocumentHasItsOwn()
{
    const CPositionsFile positions(m_file);
    const Positions first{{"one", QPointF(1.5, -2)}, {"two", QPointF(300, 0)}};
    const Positions second{{"one", QPointF(7, 8)}};
    QCOMPARE(positions.save(document("a.json"), first), QString());
    QCOMPARE(positions.save(document("b.json"), second), QString());
    const CPositionsFile again(m_file);
    QCOMPARE(again.load(document("a.json")), first);
    QCOMPARE(again.load(document("b.json")), second);
    QCOMPARE(again.save(document("a.json"), second), QString());
    QCOMPARE(again.load(document("a.json")), second);
}

void tst_CPositionsFile::unknownDocumentAndUnreadableFile()
{
    const CPositionsFile positions(m_file);
    QVERIFY(positions.load(document("a.json")).isEmpty());
    QCOMPARE(positions.save(document("a.json"), {{"one", QPointF(1, 2)}}), QString());
    QVERIFY(positions.load(document("b.json")).isEmpty());
    QVERIFY(write(m_file, "[ no object"));
    QVERIFY(positions.load(document("a.json")).isEmpty());
}

void tst_CPositionsFile::documentThatIsGoneIsForgotten()
{
    const CPositionsFile positions(m_file);
    QCOMPARE(positions.save(document("a.json"), {{"one", QPointF(1, 2)}}), QString());
    QVERIFY(QFile::remove(document("a.json")));
    QCOMPARE(positions.save(document("b.json"), {{"one", QPointF(1, 2)}}), QString());
    QVERIFY(positions.load(document("a.json")).isEmpty());
    QVERIFY(!positions.load(document("b.json")).isEmpty());
}

void tst_CPositionsFile::failureIsTold()
{
    const CPositionsFile positions(document("a.json") + "/positions.json"); // a.json is no folder
    QVERIFY(!positions.save(document("b.json"), {}).isEmpty());
}

QTEST_GUILESS_MAIN(tst_CPositionsFile)
#include "tst_CPositionsFile.moc"
