// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <opencv2/videoio.hpp>

#include <QCoreApplication>
#include <QString>

namespace Host {

/**
 * Writes images one after the other into a video: motion JPEG in AVI, by the encoder that OpenCV has built in, 8 bits
 * per channel. It needs no other library, and every player knows it.
 *
 * A video is written beside its name, as "video-000000.part.avi", and then renamed: under its own name it is complete.
 * One that has 1 GiB is completed, and the next image begins another, since AVI ends at 2 GiB.
 *
 * Threads: one at a time. The destructor completes the video.
 */
class CVideoFile
{
    Q_DECLARE_TR_FUNCTIONS(Host::CVideoFile)

public:
    /// \a framesPerSecond, above 0, is how fast it plays.
    explicit CVideoFile(double framesPerSecond);
    ~CVideoFile() { finish(); }
    CVideoFile(const CVideoFile&) = delete;
    CVideoFile& operator=(const CVideoFile&) = delete;

    /// Adds \a image to the video that is open, whose name \a file then is, or begins one of the name \a file. Returns
    /// why not; empty on success.
    QString add(const cv::Mat& image, QString* file);

    /// Completes the video that is open, if any; the next image begins another. Returns why not; empty on success, and
    /// what could not be completed is taken away.
    QString finish();

    QString name() const { return m_name; }

private:
    QString partName() const;
    QString begin(const cv::Mat& image, const QString& file);

    const double m_framesPerSecond;
    cv::VideoWriter m_writer;
    QString m_name; // empty while none is open
    cv::Size m_size;
    int m_images = 0;
};

} // namespace Host
