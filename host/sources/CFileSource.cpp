// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sources/CFileSource.h"

#include "host/base/Shown.h"
#include "host/sources/CImageFiles.h"
#include "host/sources/CVideoReader.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <iterator>
#include <thread>
#include <utility>

namespace Host {

namespace {

struct SMatFormat
{
    int matType;
    const char* name; // GenICam
};

constexpr SMatFormat matFormats[] = {{CV_8UC1, "Mono8"}, {CV_16UC1, "Mono16"}, {CV_8UC3, "BGR8"}, {CV_16UC3, "BGR16"}};

// Empty for what is none of these.
QString formatOf(const cv::Mat& image)
{
    const auto* const found = std::find_if(std::begin(matFormats), std::end(matFormats),
                                           [&](const SMatFormat& format) { return format.matType == image.type(); });
    return found == std::end(matFormats) ? QString() : QString::fromLatin1(found->name);
}

std::unique_ptr<IImageReader> openReader(const SFileOptions& options, QString* error)
{
    if (options.kind == SFileOptions::EKind::Video)
        return CVideoReader::open(options.place, error);
    return CImageFiles::open(options.place, error);
}

} // namespace

std::unique_ptr<CFileSource> CFileSource::open(const SFileOptions& options, QString* error)
{
    std::unique_ptr<IImageReader> reader = openReader(options, error);
    if (!reader)
        return nullptr;
    auto source = std::make_unique<CFileSource>(options, std::move(reader));
    return source->readFirst(error) ? std::move(source) : nullptr;
}

CFileSource::CFileSource(SFileOptions options, std::unique_ptr<IImageReader> reader)
    : m_options(std::move(options))
    , m_reader(std::move(reader))
    , m_claims(m_options.framesInFlight)
{
}

bool CFileSource::readFirst(QString* error)
{
    if (readNext(error) != IImageReader::ERead::Image)
        return false;
    m_pixelFormat = formatOf(m_next);
    m_description = QStringLiteral("%1 (%2), %3 x %4 %5")
                        .arg(m_reader->description(), m_options.name)
                        .arg(m_next.cols)
                        .arg(m_next.rows)
                        .arg(m_pixelFormat);
    return true;
}

bool CFileSource::start(QString*)
{
    if (m_started == Clock::time_point())
        m_started = m_due = Clock::now();
    return true;
}

IFrameSource::SGrab CFileSource::grab(std::chrono::milliseconds timeout)
{
    Q_ASSERT(m_started != Clock::time_point());
    const auto end = Clock::now() + timeout;
    if (!waitUntilDue(timeout))
        return {};
    if (!m_claim)
        m_claim = m_claims.take(std::max(std::chrono::milliseconds(0),
                                         std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now())));
    if (!m_claim)
        return {};
    QString error;
    const IImageReader::ERead read = m_next.empty() ? readNext(&error) : IImageReader::ERead::Image;
    if (read != IImageReader::ERead::Image)
        return SGrab::none(read == IImageReader::ERead::End ? EGrab::Ended : EGrab::Lost, error);
    return {EGrab::Frame, Veltra::CGrabResultPtr(takeFrame()), std::move(m_claim), {}, m_reader->origin()};
}

// False when that takes longer.
bool CFileSource::waitUntilDue(std::chrono::milliseconds timeout)
{
    const auto now = Clock::now();
    std::this_thread::sleep_until(std::min(m_due, now + timeout));
    return m_due <= now + timeout;
}

// Into m_next.
IImageReader::ERead CFileSource::readNext(QString* error)
{
    IImageReader::ERead read = m_reader->read(&m_next, error);
    if (read == IImageReader::ERead::End && m_options.isLooped)
        read = m_reader->rewind(error) ? m_reader->read(&m_next, error) : IImageReader::ERead::Failed;
    if (read == IImageReader::ERead::Image && !convert(error))
        read = IImageReader::ERead::Failed;
    return read;
}

bool CFileSource::convert(QString* error)
{
    if (m_next.channels() == 4 && (m_next.depth() == CV_8U || m_next.depth() == CV_16U)) {
        cv::Mat opaque;
        cv::cvtColor(m_next, opaque, cv::COLOR_BGRA2BGR);
        m_next = opaque;
    }
    if (!formatOf(m_next).isEmpty())
        return true;
    *error = tr("cannot read %1: its pixels are %2; it takes 8 or 16 bits, grey or colour")
                 .arg(shown(m_reader->file()), QString::fromStdString(cv::typeToString(m_next.type())));
    return false;
}

Veltra::SGrabResult CFileSource::takeFrame()
{
    const auto image = std::make_shared<const cv::Mat>(std::exchange(m_next, cv::Mat()));
    const auto now = Clock::now();
    Veltra::SGrabResult frame;
    frame.pixels = reinterpret_cast<const std::byte*>(image->data);
    frame.stride = int(image->step);
    frame.size = image->step * std::size_t(image->rows);
    frame.width = image->cols;
    frame.height = image->rows;
    frame.pixelFormat = formatOf(*image);
    frame.frameNumber = m_given++;
    frame.timestampNs = m_reader->timestampNs().value_or(
        quint64(std::chrono::duration_cast<std::chrono::nanoseconds>(now - m_started).count()));
    frame.complete = true;
    frame.owner = image;
    if (m_options.framesPerSecond > 0.0) {
        // One that is late does not hurry those behind it.
        m_due +=
            std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(1.0 / m_options.framesPerSecond));
        m_due = std::max(m_due, now);
    }
    return frame;
}

QString CFileSource::stallText(const QString& time, EStall, const SGrabStatistics&) const
{
    return QStringLiteral("the graph holds as many frames of '%1' as may be in flight (%2), and gave none back for %3; "
                          "try more (--buffers %4), or a longer --timeout")
        .arg(m_options.name)
        .arg(m_options.framesInFlight)
        .arg(time)
        .arg(4 * m_options.framesInFlight);
}

QString CFileSource::endText() const
{
    return m_options.kind == SFileOptions::EKind::Video ? QStringLiteral("at the end of the video")
                                                        : QStringLiteral("at the end of the images");
}

} // namespace Host
