// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/base/CTaskRunner.h"

#include <QEventLoopLocker>
#include <QImage>
#include <QObject>
#include <QPointer>
#include <QSharedPointer>
#include <QString>

#include <memory>

class QWidget;

namespace Host {

class CImageData;
class CImageFolders;

/**
 * Writes single images into PNG files that a person chooses, on a worker.
 *
 * \code
 * connect(&saver, &CImageSaver::ended, &status, &CImageStatus::setMessage);
 * saver.askForImage(model.image()); // what it was when the person asked, however long the choice takes
 * \endcode
 *
 * What still waits when this object is destroyed is not written: an owner that goes before leaves it alone with
 * deleteWhenDone(). While it writes, the program does not end with its last window.
 *
 * Threads: the window's.
 */
class CImageSaver : public QObject
{
    Q_OBJECT

public:
    /// Dialogs belong to \a window, which may go before this object does. \a folders outlives the last question.
    CImageSaver(QWidget* window, CImageFolders& folders, QObject* parent = nullptr);

    /// Deletes this object when all is written; at once if there is nothing to write.
    void deleteWhenDone();

    /// In the full depth that it has. Null does nothing.
    void askForImage(const QSharedPointer<const CImageData>& image);

    /// What is seen. Null does nothing.
    void askForView(const QImage& view);

    /// The same without asking.
    void saveImage(const QSharedPointer<const CImageData>& image, const QString& file);
    void saveView(const QImage& view, const QString& file);

Q_SIGNALS:
    /// A file is written, or cannot be: \a message says which. Once for each that was to be saved.
    void ended(const QString& message);

private:
    void ask(const QString& title, const QString& name, const std::function<void(const QString&)>& save);
    void save(const QString& file, const std::function<QString()>& write);

    void onWritten();

    const QPointer<QWidget> m_window;
    CImageFolders& m_folders;
    bool m_isLeft = false;                           // deleteWhenDone() was called
    std::unique_ptr<QEventLoopLocker> m_programLock; // while it writes
    CTaskRunner m_writer{CTaskRunner::EPolicy::DropNewest};
};

} // namespace Host
