// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/Output.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

#include <sys/resource.h>

using namespace Host;

namespace {

QByteArray content(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

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
    void namesOfFolders_data();
    void namesOfFolders();
    void replacesAFile();
    void followsALink();
    void fullDiskLeavesTheOldFile_data();
    void fullDiskLeavesTheOldFile();
    void refused_data();
    void refused();
};

void tst_Output::namesOfFolders_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isFolder");
    QTest::newRow("word") << "fake-1" << true;
    QTest::newRow("address") << "10.0.0.2" << true;
    QTest::newRow("empty") << "" << false;
    QTest::newRow("dots") << ".." << false;
    QTest::newRow("hidden") << ".a" << false;
    QTest::newRow("slash") << "a/b" << false;
    QTest::newRow("line break") << "a\nb" << false;
}

void tst_Output::namesOfFolders()
{
    QFETCH(QString, name);
    QFETCH(bool, isFolder);
    QCOMPARE(makesAFolder(name), isFolder);
}

void tst_Output::replacesAFile()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("a.json");
    QCOMPARE(replaceFile(file, "first"), QString());
    QCOMPARE(content(file), QByteArray("first"));
    QCOMPARE(replaceFile(file, ""), QString());
    QCOMPARE(content(file), QByteArray());
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{"a.json"});
}

void tst_Output::followsALink()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("a.json");
    QCOMPARE(replaceFile(file, "first"), QString());
    QVERIFY(QFile::link(file, folder.filePath("link.json")));
    QCOMPARE(replaceFile(folder.filePath("link.json"), "second"), QString());
    QCOMPARE(content(file), QByteArray("second"));
}

void tst_Output::fullDiskLeavesTheOldFile_data()
{
    QTest::addColumn<int>("room");
    QTest::addColumn<int>("size");
    QTest::newRow("no room") << 0 << 1;
    QTest::newRow("room for a part") << 1000 << 5000;
    QTest::newRow("room for a part of much") << 20000 << 200000;
}

void tst_Output::fullDiskLeavesTheOldFile()
{
    QFETCH(int, room);
    QFETCH(int, size);
    const QTemporaryDir folder;
    const QString file = folder.filePath("a.json");
    QCOMPARE(replaceFile(file, "old"), QString());
    QString error;
    {
        const CFullDisk disk{rlim_t(room)};
        error = replaceFile(file, QByteArray(size, 'x'));
    }
    QCOMPARE(error, QStringLiteral("cannot write '%1': File too large").arg(file));
    QCOMPARE(content(file), QByteArray("old"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{"a.json"});
}

void tst_Output::refused_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing folder") << "nowhere/a.json"
                                    << "No such file or directory";
    QTest::newRow("folder") << "."
                            << "Not a regular file";
    QTest::newRow("device") << "/dev/full"
                            << "Not a regular file";
}

void tst_Output::refused()
{
    QFETCH(QString, file);
    QFETCH(QString, reason);
    const QTemporaryDir folder;
    const QString name = QDir(folder.path()).filePath(file);
    QCOMPARE(replaceFile(name, "text"), QStringLiteral("cannot write '%1': %2").arg(name, reason));
    QVERIFY(QDir(folder.path()).isEmpty());
    // No file took the device's place.
    QVERIFY(!QFileInfo(QStringLiteral("/dev/full")).isFile());
}

QTEST_GUILESS_MAIN(tst_Output)
#include "tst_Output.moc"
