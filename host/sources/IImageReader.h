// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <opencv2/core.hpp>

#include <QString>

#include <optional>

namespace Host {

/**
 * Reads images one after the other.
 *
 * Threads: one at a time; description() in any.
 */
class IImageReader
{
public:
    enum class ERead
    {
        Image,
        End,
        Failed
    };

    IImageReader() = default;
    virtual ~IImageReader() = default;
    Q_DISABLE_COPY(IImageReader)

    /// "12 images of 'shots'".
    virtual QString description() const = 0;

    /// The file of the image that was read last. For the thread that reads.
    virtual QString file() const = 0;

    /// The image that was read last: its file, or "film.avi#12", counted from 0, for one of several in a file. For the
    /// thread that reads.
    virtual QString origin() const { return file(); }

    /// Reads the next one into \a image, an empty matrix. On failure one line in \a error, which names the file.
    virtual ERead read(cv::Mat* image, QString* error) = 0;

    /// Begins anew. False with the reason in \a error.
    virtual bool rewind(QString* error) = 0;

    /// When the image that was read last is to be shown, in nanoseconds; nothing if the files do not tell.
    virtual std::optional<quint64> timestampNs() const { return {}; }
};

/// Keeps OpenCV from writing to standard error what is told in one line anyway. As often as one likes.
void silenceOpenCv();

} // namespace Host
