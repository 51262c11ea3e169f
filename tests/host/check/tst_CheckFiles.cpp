// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CheckFiles.h"

#include "SCheckedService.h"
#include "TestFile.h"
#include "TestTable.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <cstdio>

using namespace Host;

namespace {

const char sound[] = R"([{"name": "a", "model": {"name": "To Image"}, "unique_sources": [["left"]]}])";
const char warned[] = R"([{"name": "a", "model": {"name": "To Image"}, "unique_sources": [["left", "left"]]}])";
const char broken[] = R"([{"name": "a", "model": {"name": "To Imge"}, "unique_sources": [["left"]]}])";

} // namespace

class tst_CheckFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void exitCode_data();
    void exitCode();
    void severalFiles();
    void unreadable();
    void tooLarge();
    void standardInput();
    void formats();

private:
    SCheckOutcome check(const QStringList& files, const SReportOptions& options = {});

    QScopedPointer<QTemporaryDir> m_folder;
};

void tst_CheckFiles::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(QDir::setCurrent(m_folder->path()));
    QVERIFY(write("sound.json", sound) && write("warned.json", warned) && write("broken.json", broken));
}

SCheckOutcome tst_CheckFiles::check(const QStringList& files, const SReportOptions& options)
{
    SCheckedService service(withCameras({"left"}));
    return checkFiles(files, service.check, options);
}

void tst_CheckFiles::exitCode_data()
{
    addColumns<QStringList, bool, int>({"files", "isStrict", "exitCode"});
    const auto row = [](const char* name, const QStringList& files, bool isStrict, int exitCode) {
        addRow(name, files, isStrict, exitCode);
    };
    row("none", {}, false, 0);
    row("sound", {"sound.json"}, false, 0);
    row("sound, strict", {"sound.json"}, true, 0);
    row("warned", {"warned.json"}, false, 0);
    row("warned, strict", {"warned.json"}, true, 1);
    row("broken", {"broken.json"}, false, 1);
    row("broken first", {"broken.json", "sound.json"}, false, 1);
    row("not there", {"none.json"}, false, 2);
    row("not there, and a broken one", {"none.json", "broken.json"}, false, 2);
}

void tst_CheckFiles::exitCode()
{
    QFETCH(QStringList, files);
    QFETCH(bool, isStrict);
    SReportOptions options;
    options.isStrict = isStrict;
    QTEST(check(files, options).exitCode, "exitCode");
}

void tst_CheckFiles::severalFiles()
{
    QCOMPARE(check({"broken.json", "sound.json", "warned.json"}).report,
             QByteArray("broken.json:1:34: error: $[0].model.name: no model 'To Imge' is registered; did you mean 'To "
                        "Image'?\n"
                        "broken.json: 1 error\n"
                        "sound.json: no faults\n"
                        "warned.json:1:75: warning: $[0].unique_sources[0][1]: the camera 'left' feeds 'a' already, at "
                        "1:67: all data would come twice\n"
                        "warned.json: 1 warning\n"));
}

void tst_CheckFiles::unreadable()
{
    const QByteArray report = check({"none.json", "."}).report;
    QVERIFY2(report.startsWith("none.json: error: cannot read: No such file or directory\nnone.json: 1 error\n"),
             report);
    QVERIFY2(report.contains("\n.: error: cannot read: "), report);
}

void tst_CheckFiles::tooLarge()
{
    QFile large("large.json");
    QVERIFY(large.open(QIODevice::WriteOnly) && large.resize(64 * 1024 * 1024 + 1));
    const SCheckOutcome outcome = check({"large.json"});
    QCOMPARE(outcome.report,
             QByteArray("large.json: error: cannot read: it is larger than 64 MiB\nlarge.json: 1 error\n"));
    QCOMPARE(outcome.exitCode, 2);
}

void tst_CheckFiles::standardInput()
{
    QVERIFY(std::freopen("broken.json", "r", stdin));
    const SCheckOutcome outcome = check({"-"});
    QVERIFY2(outcome.report.startsWith("<stdin>:1:34: error: "), outcome.report);
    QCOMPARE(outcome.exitCode, 1);
}

void tst_CheckFiles::formats()
{
    SReportOptions options;
    options.format = EReportFormat::Json;
    const QJsonObject json = QJsonDocument::fromJson(check({"broken.json"}, options).report).object();
    QCOMPARE(json["errors"].toInt(), 1);
    options.format = EReportFormat::Sarif;
    const QJsonObject sarif = QJsonDocument::fromJson(check({"broken.json"}, options).report).object();
    QCOMPARE(sarif["version"].toString(), QString("2.1.0"));
}

QTEST_GUILESS_MAIN(tst_CheckFiles)
#include "tst_CheckFiles.moc"
