// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CRunFolder.h"

#include "TestFile.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTest>

using namespace Host;

namespace {

// A folder to run in, and a run that claims a file and a folder there.
struct SRun
{
    QString open(bool isKept = false) { return folder.open(place.path(), isKept); }
    QString begin()
    {
        const QString error = open();
        return error.isEmpty() ? folder.begin({"chain.json", "fake/frames/frame-*.png"}, {{"command", "x"}}) : error;
    }
    QJsonObject manifest() const { return QJsonDocument::fromJson(content(folder.path() + "/manifest.json")).object(); }

    const QTemporaryDir& place;
    CRunFolder folder;
};

QStringList files(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name);
}

bool writeAll(const QTemporaryDir& place, const QStringList& names)
{
    return std::all_of(names.begin(), names.end(), [&place](const QString& name) {
        const QString file = place.filePath(name);
        return QDir().mkpath(QFileInfo(file).path()) && write(file, "12345");
    });
}

} // namespace

class tst_CRunFolder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void manifestTellsTheFiles();
    void earlierRunGoes_data();
    void earlierRunGoes();
    void filesThatAreCompletedAfterTheEndGo();
    void otherFilesOfASinkStay();
    void filesOfNoRunAreAConflict();
    void folderCalledLikeAFileIsAConflict();
    void claimsOutsideAreLeftAlone_data();
    void claimsOutsideAreLeftAlone();
    void fileThatCannotBeRemoved();
    void twoAtOnceAreRefused();
    void keptRunsHaveFoldersOfTheirOwn();
    void folderThatCannotBeMade();
};

void tst_CRunFolder::manifestTellsTheFiles()
{
    const QTemporaryDir place;
    SRun run{place, {}};
    QCOMPARE(run.folder.finish({}, true), QString());
    QVERIFY(files(place.path()).isEmpty());
    QCOMPARE(run.begin(), QString());
    QVERIFY(run.manifest()["ended"].isNull());
    QVERIFY(writeAll(place, {"chain.json", "fake/frames/frame-000000.png", "fake/other.txt"}));
    QCOMPARE(run.folder.finish({{"error", "none"}}, true), QString());
    const QJsonArray expected{QJsonObject{{"name", "chain.json"}, {"bytes", 5}},
                              QJsonObject{{"name", "fake/frames/frame-000000.png"}, {"bytes", 5}}};
    QCOMPARE(run.manifest()["files"].toArray(), expected);
    QCOMPARE(run.manifest()["command"].toString(), QStringLiteral("x"));
    QCOMPARE(run.manifest()["error"].toString(), QStringLiteral("none"));
    QVERIFY(run.manifest()["ended"].toString() >= run.manifest()["began"].toString());
}

void tst_CRunFolder::earlierRunGoes_data()
{
    QTest::addColumn<bool>("isKilled");
    QTest::newRow("ended") << false;
    QTest::newRow("killed") << true;
}

void tst_CRunFolder::earlierRunGoes()
{
    QFETCH(const bool, isKilled);
    const QTemporaryDir place;
    QVERIFY(writeAll(place, {"mine.txt", "fake/mine.txt", "other/frames/a.png"}));
    {
        SRun earlier{place, {}};
        QCOMPARE(earlier.begin(), QString());
        QVERIFY(writeAll(place, {"chain.json", "fake/frames/frame-000000.png", "fake/frames/frame-000001.png.part"}));
        if (!isKilled)
            QCOMPARE(earlier.folder.finish({}, true), QString());
    }
    SRun run{place, {}};
    QCOMPARE(run.open(), QString());
    QCOMPARE(run.folder.begin({}, {}), QString());
    QCOMPARE(files(place.path()), QStringList({"fake", "manifest.json", "mine.txt", "other"}));
    QCOMPARE(files(place.filePath("fake")), QStringList("mine.txt"));
    QCOMPARE(files(place.filePath("other/frames")), QStringList("a.png"));
}

void tst_CRunFolder::filesThatAreCompletedAfterTheEndGo()
{
    const QTemporaryDir place;
    const QString file = place.filePath("fake/frames/frame-000000.png");
    {
        SRun earlier{place, {}};
        QCOMPARE(earlier.begin(), QString());
        QVERIFY(writeAll(place, {"fake/frames/frame-000000.png.part"}));
        QCOMPARE(earlier.folder.finish({}, false), QString());
        QVERIFY(earlier.manifest()["ended"].isString());
        QVERIFY(earlier.manifest()["files"].isNull());
    }
    QVERIFY(QFile::rename(file + ".part", file));
    SRun run{place, {}};
    QCOMPARE(run.open(), QString());
    QCOMPARE(run.folder.conflict({"fake/frames/frame-*.png"}, {}, {}), QString());
    QCOMPARE(run.folder.begin({}, {}), QString());
    QVERIFY(!QFile::exists(file));
}

void tst_CRunFolder::otherFilesOfASinkStay()
{
    const QTemporaryDir place;
    const QStringList mine{"frame-000007.png", "golden.png", "my-notes.txt"};
    {
        SRun earlier{place, {}};
        QCOMPARE(earlier.begin(), QString());
        QVERIFY(writeAll(place, {"fake/frames/frame-000000.png", "fake/frames/golden.png"}));
        QCOMPARE(earlier.folder.finish({}, true), QString());
    }
    for (const QString& name : mine)
        QVERIFY(writeAll(place, {"fake/frames/" + name}));
    SRun run{place, {}};
    QCOMPARE(run.open(), QString());
    QCOMPARE(run.folder.begin({}, {}), QString());
    QCOMPARE(files(place.filePath("fake/frames")), mine);
}

void tst_CRunFolder::filesOfNoRunAreAConflict()
{
    const QTemporaryDir place;
    QVERIFY(writeAll(place, {"fake/frames/frame-000003.png", "fake/frames/frames.csv", "fake/frames/frame-x.png"}));
    SRun run{place, {}};
    QCOMPARE(run.open(), QString());
    const QStringList claims{"fake/frames/frame-*.png"};
    const QString file = place.filePath("fake/frames/frame-000003.png");
    QCOMPARE(run.folder.conflict(claims, {}, {}),
             QStringLiteral("'%1' is there, and no run wrote it; --keep or another --output leaves it").arg(file));
    QVERIFY(QFile::remove(file));
    QCOMPARE(run.folder.conflict(claims, {}, {}), QString());
    // One that this run is to write, though it is not there.
    QVERIFY(run.folder.conflict(claims, {file}, {}).startsWith("this run uses '"));
}

void tst_CRunFolder::folderCalledLikeAFileIsAConflict()
{
    const QTemporaryDir place;
    QVERIFY(QDir(place.path()).mkpath("chain.json"));
    SRun run{place, {}};
    QCOMPARE(run.open(), QString());
    QCOMPARE(run.folder.conflict({"chain.json"}, {}, {}),
             QStringLiteral("'%1' is there, and no run wrote it; --keep or another --output leaves it")
                 .arg(place.filePath("chain.json")));
}

void tst_CRunFolder::claimsOutsideAreLeftAlone_data()
{
    QTest::addColumn<bool>("isKilled");
    QTest::newRow("ended") << false;
    QTest::newRow("killed") << true;
}

void tst_CRunFolder::claimsOutsideAreLeftAlone()
{
    QFETCH(const bool, isKilled);
    const QTemporaryDir place;
    QVERIFY(writeAll(place, {"precious/a.txt", "out/mine.txt"}));
    const QStringList outside{"../precious/a.txt", place.filePath("precious/a.txt"), "x/../../precious/a.txt"};
    QJsonArray claims{"", "./", 7};
    QJsonArray files;
    for (const QString& name : outside) {
        claims.append(name);
        files.append(QJsonObject{{"name", name}, {"bytes", 5}});
    }
    QJsonObject manifest{{"claims", claims}, {"ended", QJsonValue()}};
    if (!isKilled) {
        manifest.insert("ended", "2026-11-22T11:40:05.123+01:00");
        manifest.insert("files", files);
    }
    QVERIFY(write(place.filePath("out/manifest.json"), QJsonDocument(manifest).toJson()));
    CRunFolder folder;
    QCOMPARE(folder.open(place.filePath("out"), false), QString());
    QCOMPARE(folder.begin({}, {}), QString());
    QVERIFY(QFile::exists(place.filePath("precious/a.txt")));
}

void tst_CRunFolder::fileThatCannotBeRemoved()
{
    const QTemporaryDir place;
    // Nobody may remove what is there, whoever runs this.
    QVERIFY(QFile::link(QStringLiteral("/proc/self"), place.filePath("fake")));
    const QJsonArray claims{"fake/status", "fake/maps", "fake/stat", "fake/cmdline", "fake/mounts", "fake/limits"};
    QVERIFY(write(place.filePath("manifest.json"), QJsonDocument(QJsonObject{{"claims", claims}}).toJson()));
    SRun run{place, {}};
    QCOMPARE(run.open(), QString());
    // The first by its name, each time.
    QCOMPARE(run.folder.begin({}, {}),
             QStringLiteral("cannot remove '%1', which an earlier run left").arg(place.filePath("fake/cmdline")));
}

void tst_CRunFolder::twoAtOnceAreRefused()
{
    const QTemporaryDir place;
    {
        SRun run{place, {}};
        QCOMPARE(run.open(), QString());
        SRun second{place, {}};
        QCOMPARE(second.open(),
                 QStringLiteral("another run writes into the folder '%1' (process %2); --keep or another "
                                "--output keeps them apart")
                     .arg(place.path())
                     .arg(QCoreApplication::applicationPid()));
    }
    SRun after{place, {}};
    QCOMPARE(after.open(), QString());
}

void tst_CRunFolder::keptRunsHaveFoldersOfTheirOwn()
{
    const QTemporaryDir place;
    SRun first{place, {}};
    SRun second{place, {}};
    QCOMPARE(first.open(true), QString());
    QCOMPARE(second.open(true), QString());
    QVERIFY(first.folder.path() != second.folder.path());
    const QRegularExpression stamp(place.path() + R"(/\d{4}-\d\d-\d\dT\d\d-\d\d-\d\d(-2)?$)");
    for (const SRun* run : {&first, &second})
        QVERIFY2(stamp.match(run->folder.path()).hasMatch(), qPrintable(run->folder.path()));
}

void tst_CRunFolder::folderThatCannotBeMade()
{
    CRunFolder folder;
    QVERIFY(folder.open(QStringLiteral("/proc/x"), false).startsWith("cannot make the folder '/proc/x': "));
    QVERIFY(!CRunFolder().open(QStringLiteral("/proc"), false).isEmpty());
    QVERIFY(!CRunFolder().open(QStringLiteral("/proc"), true).isEmpty());
}

QTEST_GUILESS_MAIN(tst_CRunFolder)
#include "tst_CRunFolder.moc"
