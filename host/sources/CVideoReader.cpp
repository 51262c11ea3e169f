// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sources/CVideoReader.h"

#include "host/base/Shown.h"

#include <QFile>

#include <cmath>
#include <utility>

namespace Host {

std::unique_ptr<CVideoReader> CVideoReader::open(const QString& file, QString* error)
{
    silenceOpenCv();
    std::unique_ptr<CVideoReader> video(new CVideoReader(file));
    return video->rewind(error) ? std::move(video) : nullptr;
}

CVideoReader::CVideoReader(QString file)
    : m_file(std::move(file))
{
}

QString CVideoReader::description() const
{
    return tr("video %1", "one that stands in for a camera").arg(shown(m_file));
}

// Opened anew: not every format can be put back.
bool CVideoReader::rewind(QString* error)
{
    QFile file(m_file);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = tr("cannot read the video %1: %2").arg(shown(m_file), file.errorString());
        return false;
    }
    try {
        // By name, because some of OpenCV's other ways ask cameras at the computer's USB for what is no video.
        m_capture.open(QFile::encodeName(m_file).toStdString(), cv::CAP_FFMPEG);
    } catch (const cv::Exception&) {
        m_capture.release();
    }
    if (!m_capture.isOpened()) {
        *error = tr("cannot read the video %1: no video, or one in a format that is not known here").arg(shown(m_file));
        return false;
    }
    const double frames = m_capture.get(cv::CAP_PROP_FRAME_COUNT);
    m_promised = frames > 0.0 && frames < 1e12 ? std::llround(frames) : 0;
    m_read = 0;
    return true;
}

IImageReader::ERead CVideoReader::read(cv::Mat* image, QString* error)
{
    bool isRead = false;
    try {
        isRead = m_capture.read(*image) && !image->empty();
    } catch (const cv::Exception&) {
    }
    if (isRead) {
        ++m_read;
        m_timestampNs = quint64(std::max(0.0, m_capture.get(cv::CAP_PROP_POS_MSEC)) * 1e6);
        return ERead::Image;
    }
    if (!isShort())
        return ERead::End;
    *error = m_read == 0 ? tr("no frame of the video %1 can be read").arg(shown(m_file))
                         : tr("the video %1 ends after %2 of %3 frames: a part of it is missing or broken")
                               .arg(shown(m_file), QString::number(m_read), QString::number(m_promised));
    return ERead::Failed;
}

bool CVideoReader::isShort() const
{
    return m_read + 1 + m_promised / 100 < m_promised || m_read == 0;
}

} // namespace Host
