// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CFileClaim.h"

#include "TestFile.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Host;

class tst_CFileClaim : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numberedFiles();
    void plainFile();
    void coversWhatIsNotThereYet();
};

void tst_CFileClaim::numberedFiles()
{
    const QTemporaryDir place;
    // A folder may be called as it likes.
    QVERIFY(QDir(place.path()).mkpath("c*m/a"));
    const QStringList others{"frame-.png", "frame-1.jpg", "frame-1.png.bak", "golden.png", "frame-x.png"};
    const QStringList parts{"frame-000002.part.png", "frame-000003.png.part"};
    const QStringList all = others + parts + QStringList{"frame-000001.png", "frame-1000000.png"};
    for (const QString& name : all)
        QVERIFY(write(place.filePath("c*m/a/" + name), "x"));
    const CFileClaim claim(place.path(), QStringLiteral("c*m/a/frame-*.png"));
    QVERIFY(QDir(place.path()).mkpath("c*m/a/frame-000004.png"));
    QCOMPARE(claim.filesAndFolders(),
             QStringList({"c*m/a/frame-000001.png", "c*m/a/frame-000004.png", "c*m/a/frame-1000000.png"}));
    QCOMPARE(claim.filesAndParts(), QStringList({"c*m/a/frame-000001.png", "c*m/a/frame-000002.part.png",
                                                 "c*m/a/frame-000003.png.part", "c*m/a/frame-1000000.png"}));
    QCOMPARE(CFileClaim(place.path(), QStringLiteral("nowhere/frame-*.png")).filesAndFolders(), QStringList());
}

void tst_CFileClaim::plainFile()
{
    const QTemporaryDir place;
    for (const char* name : {"chain.json", "chain.json.part", "chain.part.json"})
        QVERIFY(write(place.filePath(name), "x"));
    QCOMPARE(CFileClaim(place.path(), QStringLiteral("chain.json")).filesAndParts(), QStringList("chain.json"));
}

void tst_CFileClaim::coversWhatIsNotThereYet()
{
    const QTemporaryDir place;
    const QString folder = QFileInfo(place.path()).canonicalFilePath();
    QVERIFY(QDir(folder).mkpath("a") && write(place.filePath("real.json"), "x"));
    QVERIFY(QFile::link(place.filePath("real.json"), place.filePath("chain.json")));
    const CFileClaim claim(folder, QStringLiteral("a/frame-*.png"));
    QVERIFY(claim.covers(folder + "/a/frame-000001.png"));
    QVERIFY(!claim.covers(folder + "/a/golden.png"));
    QVERIFY(!claim.covers(folder + "/frame-000001.png"));
    QVERIFY(CFileClaim(folder, QStringLiteral("chain.json")).covers(folder + "/real.json"));
}

QTEST_GUILESS_MAIN(tst_CFileClaim)
#include "tst_CFileClaim.moc"
