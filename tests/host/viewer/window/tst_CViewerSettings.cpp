// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CViewerSettings.h"

#include "TestFile.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Host;

class tst_CViewerSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void whatIsSetIsThereNextTime();
    void recentFiles();
    void nonsenseInTheFile();

private:
    QTemporaryDir m_folder;
};

void tst_CViewerSettings::defaults()
{
    const CViewerSettings settings(m_folder.filePath("new.ini"));
    QVERIFY(settings.geometry().isEmpty());
    QVERIFY(settings.layout().isEmpty());
    QVERIFY(settings.language().isEmpty());
    QVERIFY(settings.recentFiles().isEmpty());
    QVERIFY(settings.imageFolder().isEmpty());
    QVERIFY(settings.recordFolder().isEmpty());
    QCOMPARE(settings.colors(), CViewerSettings::EColors::AsDesktop);
}

void tst_CViewerSettings::whatIsSetIsThereNextTime()
{
    const QString file = m_folder.filePath("set.ini");
    {
        CViewerSettings settings(file);
        settings.setGeometry("geometry");
        settings.setLayout("layout");
        settings.setLanguage("ko");
        settings.setImageFolder("/images");
        settings.setRecordFolder("/recordings");
        settings.setColors(CViewerSettings::EColors::Dark);
    }
    const CViewerSettings settings(file);
    QCOMPARE(settings.geometry(), QByteArray("geometry"));
    QCOMPARE(settings.layout(), QByteArray("layout"));
    QCOMPARE(settings.language(), QString("ko"));
    QCOMPARE(settings.imageFolder(), QString("/images"));
    QCOMPARE(settings.recordFolder(), QString("/recordings"));
    QCOMPARE(settings.colors(), CViewerSettings::EColors::Dark);
}

void tst_CViewerSettings::recentFiles()
{
    CViewerSettings settings(m_folder.filePath("recent.ini"));
    for (int i = 0; i < CViewerSettings::mostRecentFiles + 3; ++i)
        settings.addRecentFile(QString("/scenes/%1.json").arg(i));
    QCOMPARE(settings.recentFiles().size(), int(CViewerSettings::mostRecentFiles));
    QCOMPARE(settings.recentFiles().constFirst(), QString("/scenes/10.json"));
    settings.addRecentFile("/scenes/8.json");
    QCOMPARE(settings.recentFiles().constFirst(), QString("/scenes/8.json"));
    QCOMPARE(settings.recentFiles().count("/scenes/8.json"), 1);
    settings.addRecentFile("relative.json");
    QCOMPARE(settings.recentFiles().constFirst(), QDir::current().filePath("relative.json"));
}

void tst_CViewerSettings::nonsenseInTheFile()
{
    const QString file = m_folder.filePath("odd.ini");
    QVERIFY(write(file, "[General]\ncolors=17\nlanguage=\n\x01\x02"));
    const CViewerSettings settings(file);
    QCOMPARE(settings.colors(), CViewerSettings::EColors::AsDesktop);
}

QTEST_GUILESS_MAIN(tst_CViewerSettings)
#include "tst_CViewerSettings.moc"
