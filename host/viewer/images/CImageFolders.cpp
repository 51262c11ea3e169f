// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CImageFolders.h"

#include <QStandardPaths>

namespace Host {

namespace {

QString orPictures(const QString& folder)
{
    return folder.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::PicturesLocation) : folder;
}

} // namespace

QString CImageFolders::images() const
{
    return orPictures(m_images);
}

QString CImageFolders::recordings() const
{
    return orPictures(m_recordings);
}

void CImageFolders::setImages(const QString& folder)
{
    if (folder == m_images)
        return;
    m_images = folder;
    Q_EMIT imagesChanged(folder);
}

void CImageFolders::setRecordings(const QString& folder)
{
    if (folder == m_recordings)
        return;
    m_recordings = folder;
    Q_EMIT recordingsChanged(folder);
}

} // namespace Host
