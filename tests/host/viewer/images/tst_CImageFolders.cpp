// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CImageFolders.h"

#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>

using namespace Host;

class tst_CImageFolders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void picturesBeforeTheFirstChoice();
    void choicesAreTold();
};

void tst_CImageFolders::picturesBeforeTheFirstChoice()
{
    const CImageFolders folders;
    QCOMPARE(folders.images(), QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
    QCOMPARE(folders.recordings(), folders.images());
}

void tst_CImageFolders::choicesAreTold()
{
    CImageFolders folders;
    const QSignalSpy images(&folders, &CImageFolders::imagesChanged);
    const QSignalSpy recordings(&folders, &CImageFolders::recordingsChanged);
    folders.setImages(QStringLiteral("/images"));
    QCOMPARE(images.count(), 1);
    QCOMPARE(images.at(0).at(0).toString(), QStringLiteral("/images"));
    QCOMPARE(recordings.count(), 0);
    folders.setRecordings(QStringLiteral("/recordings"));
    QCOMPARE(recordings.count(), 1);
    QCOMPARE(recordings.at(0).at(0).toString(), QStringLiteral("/recordings"));
    folders.setImages(QStringLiteral("/images"));
    QCOMPARE(images.count(), 1);
    QCOMPARE(folders.images(), QStringLiteral("/images"));
    QCOMPARE(folders.recordings(), QStringLiteral("/recordings"));
}

QTEST_GUILESS_MAIN(tst_CImageFolders)
#include "tst_CImageFolders.moc"
