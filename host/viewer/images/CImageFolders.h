// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QObject>
#include <QString>

namespace Host {

/**
 * The folders that a person chose last for images and for recordings, the same for all docks. The person's pictures
 * folder before the first choice.
 *
 * It remembers nothing beyond the program: whoever does, listens to the signals.
 *
 * Threads: the window's.
 */
class CImageFolders : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    QString images() const;
    QString recordings() const;

    /// Empty for the pictures folder.
    void setImages(const QString& folder);
    void setRecordings(const QString& folder);

Q_SIGNALS:
    /// Another folder was set; empty for the pictures folder.
    void imagesChanged(const QString& folder);
    void recordingsChanged(const QString& folder);

private:
    QString m_images;
    QString m_recordings;
};

} // namespace Host
