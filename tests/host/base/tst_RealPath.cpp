// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/RealPath.h"

#include "TestFile.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Host;

class tst_RealPath : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void linksAndDots();
    void fileThatIsNotThereYet();
    void relativePath();

private:
    QScopedPointer<QTemporaryDir> m_folder;
    QString m_real;
};

void tst_RealPath::init()
{
    m_folder.reset(new QTemporaryDir);
    // The folder for temporary files may be a link itself.
    m_real = QDir(m_folder->path()).canonicalPath();
    QVERIFY(QDir(m_real).mkpath("real/inner"));
    QVERIFY(write(m_real + "/real/file", "x"));
    QVERIFY(QFile::link(m_real + "/real", m_real + "/link"));
    QVERIFY(QFile::link(m_real + "/real/file", m_real + "/file link"));
}

void tst_RealPath::linksAndDots()
{
    QCOMPARE(realPath(m_real + "/link/file"), m_real + "/real/file");
    QCOMPARE(realPath(m_real + "/file link"), m_real + "/real/file");
    QCOMPARE(realPath(m_real + "/real/inner/../file"), m_real + "/real/file");
    QCOMPARE(realPath(m_real + "/link/"), m_real + "/real");
}

void tst_RealPath::fileThatIsNotThereYet()
{
    QCOMPARE(realPath(m_real + "/link/new"), m_real + "/real/new");
    QCOMPARE(realPath(m_real + "/link/inner/../new"), m_real + "/real/new");
    QCOMPARE(realPath(m_real + "/nowhere/new"), m_real + "/nowhere/new");
    QCOMPARE(realPath(m_real + "/nowhere/../link/new/"), m_real + "/real/new");
}

void tst_RealPath::relativePath()
{
    QVERIFY(QDir::setCurrent(m_real + "/link"));
    QCOMPARE(realPath("file"), m_real + "/real/file");
    QCOMPARE(realPath("new"), m_real + "/real/new");
    QVERIFY(QDir::setCurrent(QDir::rootPath()));
}

QTEST_GUILESS_MAIN(tst_RealPath)
#include "tst_RealPath.moc"
