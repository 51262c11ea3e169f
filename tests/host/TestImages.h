// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <opencv2/imgcodecs.hpp>
#include <opencv2/videoio.hpp>

#include <QDir>
#include <QFile>
#include <QString>

/// An image of 32 x 24 pixels that all have one value.
inline cv::Mat plainImage(int type, double value)
{
    return cv::Mat(24, 32, type, cv::Scalar::all(value));
}

inline bool writeImage(const QString& file, const cv::Mat& image)
{
    return cv::imwrite(file.toStdString(), image);
}

/// Grey images "shot-0.png", "shot-1.png"... in \a folder, which it makes; the value of each is its number.
inline bool writeImages(const QString& folder, int count)
{
    bool isWritten = QDir().mkpath(folder);
    for (int i = 0; i < count; ++i)
        isWritten =
            isWritten && writeImage(QStringLiteral("%1/shot-%2.png").arg(folder).arg(i), plainImage(CV_8UC1, i));
    return isWritten;
}

/// A video of 320 x 240 pixels with 25 frames per second, whose images get brighter.
inline bool writeVideo(const QString& file, int frames)
{
    cv::VideoWriter writer(file.toStdString(), cv::VideoWriter::fourcc('M', 'J', 'P', 'G'), 25.0, cv::Size(320, 240));
    for (int i = 0; i < frames && writer.isOpened(); ++i)
        writer.write(cv::Mat(240, 320, CV_8UC3, cv::Scalar::all(8 * i)));
    return writer.isOpened();
}

/// Leaves so much of a file, from 0 to 1.
inline bool cutFile(const QString& name, double share)
{
    QFile file(name);
    return file.resize(qint64(share * double(file.size())));
}
