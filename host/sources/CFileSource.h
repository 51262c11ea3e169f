// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/sources/CFrameClaims.h"
#include "host/sources/IFrameSource.h"
#include "host/sources/IImageReader.h"
#include "host/sources/SFileOptions.h"

#include <QCoreApplication>

#include <chrono>
#include <memory>

namespace Host {

/**
 * Images or a video in place of a camera, with a rate or as fast as the graph takes them.
 *
 * No frame is lost here, whatever the rate: while as many are in flight as may be, the next one waits. The numbers of
 * frames count from 0 on, also over the ends of a loop. Their format is Mono8, Mono16, BGR8 or BGR16, whichever the
 * file has; transparency is left out, and other kinds of pixels are refused.
 */
class CFileSource : public IFrameSource
{
    Q_DECLARE_TR_FUNCTIONS(Host::CFileSource)

public:
    /// Opens the files and reads the first image. Null, with the reason in \a error, if that fails.
    static std::unique_ptr<CFileSource> open(const SFileOptions& options, QString* error);

    /// \a reader gives at least one image.
    CFileSource(SFileOptions options, std::unique_ptr<IImageReader> reader);

    /// Reads the first image, for what describes the source. Once.
    bool readFirst(QString* error);

    QString description() const override { return m_description; }
    QString pixelFormat() const override { return m_pixelFormat; }
    bool start(QString* error) override;
    SGrab grab(std::chrono::milliseconds timeout) override;
    quint64 underruns() const override { return 0; }
    QString stallText(const QString& time, EStall stall, const SGrabStatistics& before) const override;
    QString endText() const override;

private:
    using Clock = std::chrono::steady_clock;

    bool waitUntilDue(std::chrono::milliseconds timeout);
    IImageReader::ERead readNext(QString* error);
    Veltra::SGrabResult takeFrame();
    bool convert(QString* error);

    const SFileOptions m_options;
    const std::unique_ptr<IImageReader> m_reader;
    const CFrameClaims m_claims;
    QString m_description;
    QString m_pixelFormat;
    cv::Mat m_next; // read and not yet given; empty if there is none
    std::shared_ptr<const void> m_claim;
    Clock::time_point m_started;
    Clock::time_point m_due;
    quint64 m_given = 0;
};

} // namespace Host
