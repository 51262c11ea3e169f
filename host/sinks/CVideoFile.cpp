// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/CVideoFile.h"

#include "host/models/GrayImage.h"
#include "host/sinks/WriteFile.h"

#include <opencv2/imgproc.hpp>

#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

namespace Host {

namespace {

constexpr qint64 mostBytes = qint64(1) << 30;

QString sizeText(const cv::Size& size)
{
    return QStringLiteral("%1 x %2").arg(size.width).arg(size.height);
}

// The encoder makes grey images too bright unless they are colour images.
cv::Mat colorImage(const cv::Mat& image)
{
    if (image.channels() == 3)
        return image;
    cv::Mat color;
    cv::cvtColor(image, color, cv::COLOR_GRAY2BGR);
    return color;
}

// The encoder does not notice a full disk: there must be room for an image as it is.
bool isFull(const QString& file, const cv::Mat& image)
{
    const QStorageInfo disk(QFileInfo(file).path());
    return disk.isValid() && disk.bytesAvailable() < qint64(image.total()) * qint64(image.elemSize());
}

// Images in the file, by the index at its end.
int imagesIn(const QString& file)
{
    const cv::VideoCapture video(QFile::encodeName(file).toStdString(), cv::CAP_OPENCV_MJPEG);
    return video.isOpened() ? int(video.get(cv::CAP_PROP_FRAME_COUNT)) : 0;
}

} // namespace

CVideoFile::CVideoFile(double framesPerSecond)
    : m_framesPerSecond(framesPerSecond)
{
}

QString CVideoFile::partName() const
{
    return m_name.left(m_name.lastIndexOf(QLatin1Char('.'))) + QStringLiteral(".part.avi");
}

QString CVideoFile::add(const cv::Mat& image, QString* file)
{
    if (image.empty())
        return tr("the image is empty");
    const cv::Mat shown = colorImage(eightBitImage(image));
    QString reason;
    if (!m_name.isEmpty() && QFileInfo(partName()).size() >= mostBytes)
        reason = finish();
    if (reason.isEmpty() && m_name.isEmpty())
        reason = begin(shown, *file);
    if (!reason.isEmpty())
        return reason;
    *file = m_name;
    if (shown.size() != m_size)
        return tr("an image is %1, the video %2", "width x height").arg(sizeText(shown.size()), sizeText(m_size));
    if (isFull(m_name, shown))
        return tr("No space left on device");
    m_writer.write(shown);
    ++m_images;
    return {};
}

QString CVideoFile::begin(const cv::Mat& image, const QString& file)
{
    m_name = file;
    m_size = image.size();
    m_images = 0;
    // The encoder says no more than that it cannot.
    QFile part(partName());
    const bool isWritable = part.open(QIODevice::WriteOnly);
    part.close();
    if (isWritable &&
        m_writer.open(QFile::encodeName(partName()).toStdString(), cv::CAP_OPENCV_MJPEG,
                      cv::VideoWriter::fourcc('M', 'J', 'P', 'G'), m_framesPerSecond, m_size, image.channels() == 3))
        return {};
    m_name.clear();
    return isWritable ? tr("the encoder refuses it") : part.errorString();
}

QString CVideoFile::finish()
{
    if (m_name.isEmpty())
        return {};
    m_writer.release();
    const QString part = partName();
    QString reason;
    if (imagesIn(part) != m_images)
        reason = tr("it did not become complete; is the disk full?");
    if (reason.isEmpty())
        reason = renameFile(part, m_name);
    if (!reason.isEmpty())
        QFile::remove(part);
    m_name.clear();
    return reason;
}

} // namespace Host
