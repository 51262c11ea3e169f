// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/sources/IImageReader.h"

#include <opencv2/videoio.hpp>

#include <QCoreApplication>

#include <memory>

namespace Host {

/// The images of a video. One that ends before its own header says has failed; some formats tell the length only to
/// about one per cent, so that a little less is no fault.
class CVideoReader : public IImageReader
{
    Q_DECLARE_TR_FUNCTIONS(Host::CVideoReader)

public:
    /// Null, with the reason in \a error, if it is no video.
    static std::unique_ptr<CVideoReader> open(const QString& file, QString* error);

    QString description() const override;
    QString file() const override { return m_file; }
    QString origin() const override { return QStringLiteral("%1#%2").arg(m_file).arg(m_read - 1); }
    ERead read(cv::Mat* image, QString* error) override;
    bool rewind(QString* error) override;
    std::optional<quint64> timestampNs() const override { return m_timestampNs; }

private:
    explicit CVideoReader(QString file);

    bool isShort() const;

    const QString m_file;
    cv::VideoCapture m_capture;
    qint64 m_promised = 0; // images, as the header says; 0 if it says nothing
    qint64 m_read = 0;
    std::optional<quint64> m_timestampNs;
};

} // namespace Host
