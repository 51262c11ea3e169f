// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/Output.h"

#include "TestFile.h"

#include <QTemporaryDir>
#include <QTest>

#include <csignal>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace Host;

namespace {

// For as long as it lives no file of this process grows beyond so many bytes: a disk that is full.
class CFullDisk
{
public:
    explicit CFullDisk(rlim_t bytes)
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }

    ~CFullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    Q_DISABLE_COPY(CFullDisk)

private:
    rlimit m_before{};
    void (*m_handler)(int);
};

} // namespace

class tst_Output : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void replacesAFile();
    void followsALink();
    void fullDiskLeavesTheOldFile();
    void refused();
    void pipeIsWrittenTo();
    void trialChangesNothing();
    void namesOfStandardOutput();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file; // a file in it that is not there yet
};

void tst_Output::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_file = m_folder->filePath("a.json");
}

void tst_Output::replacesAFile()
{
    for (const QByteArray& text : {QByteArray("first"), QByteArray()}) {
        QCOMPARE(replaceFile(m_file, text), QString());
        QCOMPARE(content(m_file), text);
    }
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList{"a.json"});
}

void tst_Output::followsALink()
{
    const QString link = m_folder->filePath("link.json");
    QVERIFY(write(m_file, "first"));
    QVERIFY(QFile::link(m_file, link));
    QCOMPARE(replaceFile(link, "second"), QString());
    QCOMPARE(content(m_file), QByteArray("second"));
}

void tst_Output::fullDiskLeavesTheOldFile()
{
    QVERIFY(write(m_file, "old"));
    const auto replaceOn = [this](rlim_t room, int size) {
        const CFullDisk disk(room);
        return replaceFile(m_file, QByteArray(size, 'x'));
    };
    // No room, room for a part, room for a part of much.
    for (const auto& disk : {std::pair(0, 1), std::pair(1000, 5000), std::pair(20000, 200000)}) {
        QCOMPARE(replaceOn(rlim_t(disk.first), disk.second),
                 QStringLiteral("cannot write '%1': File too large").arg(m_file));
        QCOMPARE(content(m_file), QByteArray("old"));
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList{"a.json"});
    }
}

void tst_Output::refused()
{
    const QString below = m_folder->filePath("nowhere/a.json");
    QCOMPARE(replaceFile(below, "x"), QStringLiteral("cannot write '%1': No such file or directory").arg(below));
    for (const QString& file : {m_folder->filePath("."), QStringLiteral("/dev/full")})
        QCOMPARE(replaceFile(file, "x"), QStringLiteral("cannot write '%1': Not a regular file").arg(file));
    QVERIFY(QDir(m_folder->path()).isEmpty());
    // No file took the device's place.
    QVERIFY(!QFileInfo(QStringLiteral("/dev/full")).isFile());
}

void tst_Output::pipeIsWrittenTo()
{
    QCOMPARE(mkfifo(QFile::encodeName(m_file).constData(), 0600), 0);
    QCOMPARE(tryOutput(m_file), QString());
    const int reader = open(QFile::encodeName(m_file).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    for (const QString& name : {m_file, QStringLiteral("/dev/fd/%1").arg(reader)})
        QCOMPARE(tryOutput(name), QString());
    QCOMPARE(writeOutput(m_file, "text"), QString());
    QFile file;
    QVERIFY(file.open(reader, QIODevice::ReadOnly, QFile::AutoCloseHandle));
    QCOMPARE(file.read(5), QByteArray("text"));
    QVERIFY(!QFileInfo(m_file).isFile());
    QCOMPARE(writeOutput("/dev/full", "x"), QString("cannot write '/dev/full': No space left on device"));
}

void tst_Output::trialChangesNothing()
{
    QCOMPARE(tryOutput("-"), QString());
    QCOMPARE(tryOutput(m_file), QString());
    QVERIFY(QDir(m_folder->path()).isEmpty());
    QVERIFY(write(m_file, "old"));
    QCOMPARE(tryOutput(m_file), QString());
    QCOMPARE(content(m_file), QByteArray("old"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList{"a.json"});
    QCOMPARE(tryOutput(m_file + "/b"), QStringLiteral("cannot write '%1/b': Not a directory").arg(m_file));
    QCOMPARE(tryOutput(m_folder->path()), QStringLiteral("cannot write '%1': Is a directory").arg(m_folder->path()));
    QCOMPARE(tryOutput("/nowhere/a"), QString("cannot write '/nowhere/a': No such file or directory"));
}

void tst_Output::namesOfStandardOutput()
{
    for (const char* name : {"-", "/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"})
        QCOMPARE(outputName(name), QString("-"));
    QVERIFY(write(m_file, "text"));
    for (const QString& name : {m_file, QString("/nowhere/a"), QString()})
        QCOMPARE(outputName(name), name);
}

QTEST_GUILESS_MAIN(tst_Output)
#include "tst_Output.moc"
