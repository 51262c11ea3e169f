// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CHostProgram.h"
#include "TestFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <memory>

#include <fcntl.h>
#include <unistd.h>

namespace {

// Nothing before main() reads it. clazy:excludeall=non-pod-global-static
const QByteArray sound = R"([{"name": "a", "model": {"name": "To Image"}, "unique_sources": [["*"]]}])";

} // namespace

/// The check of documents as a user meets it.
class tst_HalvexHostCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void shippedChain();
    void brokenChain();
    void standardInput();
    void camerasOfTheRun();
    void warningsWithStrict();
    void json();
    void sarif();
    void fileThatIsNotThere();
    void fullStandardOutput();
    void closedPipe();

private:
    std::unique_ptr<CHostProgram> m_program;
    QString m_file;
};

void tst_HalvexHostCheck::init()
{
    m_program = std::make_unique<CHostProgram>();
    m_file = m_program->file("chain.json");
    QVERIFY(write(m_file, sound));
}

void tst_HalvexHostCheck::shippedChain()
{
    QCOMPARE(m_program->exec({"check", DEMO_CHAIN, m_file}), 0);
    QCOMPARE(m_program->output(), QStringLiteral("%1: no faults\n%2: no faults\n").arg(DEMO_CHAIN, m_file));
    QCOMPARE(m_program->exec({"check", "--camera", "fake-1", "--camera", "fake-2", DEMO_CHAIN}), 0);
    QCOMPARE(m_program->output(), QStringLiteral("%1: no faults\n").arg(DEMO_CHAIN));
}

void tst_HalvexHostCheck::brokenChain()
{
    QVERIFY(write(m_file, QByteArray(sound).replace("}]", ", \"colour\": 1,\n \"connection\": [[\"b\"]]}]")));
    QCOMPARE(m_program->exec({"check", m_file}), 1);
    QCOMPARE(m_program->output(),
             QStringLiteral("%1:1:74: error: $[0].colour: unknown key 'colour'; allowed "
                            "are 'connection', 'model', 'name' and 'unique_sources'\n"
                            "%1:2:18: error: $[0].connection[0][0]: no element is named 'b'; there is "
                            "only 'a'\n"
                            "%1: 2 errors\n")
                 .arg(m_file));
    QVERIFY(m_program->errorLines().isEmpty());
}

void tst_HalvexHostCheck::standardInput()
{
    m_program->process().setStandardInputFile(m_file);
    QCOMPARE(m_program->exec({"check", "--camera", "fake", "-"}), 0);
    QCOMPARE(m_program->output(), QStringLiteral("<stdin>: no faults\n"));
}

void tst_HalvexHostCheck::camerasOfTheRun()
{
    QVERIFY(write(m_file, QByteArray(sound).replace("*", "left")));
    QCOMPARE(m_program->exec({"check", m_file}), 0);
    QCOMPARE(m_program->exec({"check", m_file, "--camera", "right"}), 1);
    QVERIFY(m_program->output().contains("no camera of the run and no element is named 'left'"));
}

void tst_HalvexHostCheck::warningsWithStrict()
{
    QVERIFY(write(m_file, QByteArray(sound).replace("\"*\"", "\"*\", \"*\"")));
    QCOMPARE(m_program->exec({"check", m_file}), 0);
    QVERIFY(m_program->output().contains(": warning: "));
    QCOMPARE(m_program->exec({"check", "--strict", m_file}), 1);
}

void tst_HalvexHostCheck::json()
{
    QVERIFY(write(m_file, "["));
    QCOMPARE(m_program->exec({"check", "--json", m_file}), 1);
    const QJsonObject report = QJsonDocument::fromJson(m_program->output().toUtf8()).object();
    QCOMPARE(report["errors"].toInt(), 1);
    QCOMPARE(report["files"][0]["file"].toString(), m_file);
    QCOMPARE(report["files"][0]["faults"][0]["rule"].toString(), QStringLiteral("syntax"));
}

void tst_HalvexHostCheck::sarif()
{
    QCOMPARE(m_program->exec({"check", "--sarif", m_file}), 0);
    const QJsonObject report = QJsonDocument::fromJson(m_program->output().toUtf8()).object();
    QCOMPARE(report["version"].toString(), QStringLiteral("2.1.0"));
}

void tst_HalvexHostCheck::fileThatIsNotThere()
{
    QCOMPARE(m_program->exec({"check", m_file + '2', m_file}), 2);
    QCOMPARE(m_program->output(),
             QStringLiteral("%12: error: cannot read: No such file or directory\n%12: 1 error\n%1: no faults\n")
                 .replace("%1", m_file));
}

void tst_HalvexHostCheck::fullStandardOutput()
{
    m_program->process().setStandardOutputFile(QStringLiteral("/dev/full"));
    QCOMPARE(m_program->exec({"check", m_file}), 1);
}

void tst_HalvexHostCheck::closedPipe()
{
    int ends[2] = {};
    QCOMPARE(pipe2(ends, O_CLOEXEC), 0);
    m_program->process().setStandardOutputFile(QStringLiteral("/proc/self/fd/%1").arg(ends[1]));
    m_program->start({"check", "-"});
    QVERIFY(m_program->process().waitForStarted());
    // Nobody reads any more by the time that there is something to check.
    for (const int end : ends)
        close(end);
    QCOMPARE(m_program->process().write(sound), qint64(sound.size()));
    m_program->process().closeWriteChannel();
    QVERIFY(m_program->waitForEnd());
    QCOMPARE(m_program->process().exitCode(), 1);
}

QTEST_GUILESS_MAIN(tst_HalvexHostCheck)
#include "tst_HalvexHostCheck.moc"
