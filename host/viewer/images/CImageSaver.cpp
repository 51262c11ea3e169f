// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CImageSaver.h"

#include "host/models/CImageData.h"
#include "host/sinks/WriteFile.h"
#include "host/sinks/WritePng.h"
#include "host/viewer/images/CImageFolders.h"

#include <QBuffer>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace Host {

namespace {

constexpr int mostWaiting = 1000; // more than a person asks for before the first is written

QString writeView(const QString& file, const QImage& view)
{
    QByteArray png;
    QBuffer buffer(&png);
    if (!buffer.open(QIODevice::WriteOnly) || !view.save(&buffer, "PNG"))
        return CImageSaver::tr("the image has no PNG form");
    return writeFile(file, png.constData(), std::size_t(png.size()));
}

} // namespace

CImageSaver::CImageSaver(QWidget* window, CImageFolders& folders, QObject* parent)
    : QObject(parent)
    , m_window(window)
    , m_folders(folders)
{
    m_writer.setMostWaiting(mostWaiting);
    connect(&m_writer, &CTaskRunner::computingFinished, this, &CImageSaver::onWritten);
}

void CImageSaver::deleteWhenDone()
{
    m_isLeft = true;
    if (!m_programLock)
        deleteLater();
}

void CImageSaver::askForImage(const QSharedPointer<const CImageData>& image)
{
    if (!image)
        return;
    const QString number = QString::number(image->info().frameNumber);
    ask(tr("Save image"), tr("image-%1").arg(number), [=](const QString& file) { saveImage(image, file); });
}

void CImageSaver::askForView(const QImage& view)
{
    if (!view.isNull())
        ask(tr("Save view"), tr("view"), [=](const QString& file) { saveView(view, file); });
}

// Not with exec(): frames go on meanwhile, and may end the view.
void CImageSaver::ask(const QString& title, const QString& name, const std::function<void(const QString&)>& save)
{
    auto* const dialog = new QFileDialog(m_window, title, m_folders.images(), tr("PNG images (*.png)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("png"));
    dialog->selectFile(name + QStringLiteral(".png"));
    connect(dialog, &QFileDialog::fileSelected, this, [this, save](const QString& file) {
        m_folders.setImages(QFileInfo(file).absolutePath());
        save(file);
    });
    dialog->open();
}

void CImageSaver::saveImage(const QSharedPointer<const CImageData>& image, const QString& file)
{
    save(file, [=] { return writePng(file, image->image()); });
}

void CImageSaver::saveView(const QImage& view, const QString& file)
{
    save(file, [=] { return writeView(file, view); });
}

void CImageSaver::save(const QString& file, const std::function<QString()>& write)
{
    m_programLock = std::make_unique<QEventLoopLocker>();
    m_writer.run([this, file, write]() -> CTaskRunner::Done {
        return [this, file, error = write()] {
            const QString name = QDir::toNativeSeparators(file);
            Q_EMIT ended(error.isEmpty() ? tr("Saved %1").arg(name) : tr("Cannot save %1: %2").arg(name, error));
        };
    });
}

void CImageSaver::onWritten()
{
    if (m_writer.statistics().pending > 0)
        return;
    m_programLock.reset();
    if (m_isLeft)
        deleteLater();
}

} // namespace Host
