// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/CPngWriter.h"

#include "host/models/CImageData.h"

#include <opencv2/imgcodecs.hpp>

#include <QFile>

#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>
#include <vector>

namespace Host {

using namespace Plugin::Halvex;

namespace {

using Bytes = std::vector<uchar>;

// A file that is to be written, with its image, or what came of it.
class CImageFile : public CNodeData
{
public:
    CImageFile(const QString& fileName, const QSharedPointer<CImageData>& imageData, const QString& reason)
        : name(fileName)
        , image(imageData)
        , error(reason)
    {
    }

    static SNodeDataType dataType() { return {QStringLiteral("HostImageFile"), QStringLiteral("FILE")}; }
    SNodeDataType type() const override { return dataType(); }

    const QString name;
    const QSharedPointer<CImageData> image; // null once it is written
    const QString error;                    // null for success
};

// The image as a PNG, lightly compressed: speed counts for more than size. Empty when the encoder refuses the image.
Bytes encode(const cv::Mat& image)
{
    Bytes png;
    try {
        if (!cv::imencode(".png", image, png, {cv::IMWRITE_PNG_COMPRESSION, 1}))
            png.clear();
    } catch (const cv::Exception&) {
        png.clear();
    }
    return png;
}

// A disk that fills up takes a part first and tells the reason when it is asked to take the rest.
bool writeAll(QFile& file, const Bytes& bytes)
{
    qint64 done = 0;
    while (done < qint64(bytes.size())) {
        const qint64 taken =
            file.write(reinterpret_cast<const char*>(bytes.data()) + done, qint64(bytes.size()) - done);
        if (taken <= 0)
            return false;
        done += taken;
    }
    return true;
}

// Why not, empty on success. The encoder could write the file itself, but it does not notice a full disk.
QString writeFile(const QString& name, const Bytes& bytes)
{
    const QString partName = name + QStringLiteral(".part");
    QFile part(partName);
    if (!part.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        return part.errorString();
    QString reason;
    if (!writeAll(part, bytes))
        reason = part.errorString();
    part.close();
    if (reason.isEmpty()) {
        std::error_code error; // QFile does not replace files
        std::filesystem::rename(QFile::encodeName(partName).toStdString(), QFile::encodeName(name).toStdString(),
                                error);
        if (!error)
            return {};
        reason = QString::fromStdString(error.message());
    }
    QFile::remove(partName);
    return reason;
}

QString writePng(const QString& name, const cv::Mat& image)
{
    const Bytes png = encode(image);
    const QString reason = png.empty() ? QStringLiteral("the image has no PNG form") : writeFile(name, png);
    return reason.isEmpty() ? QString() : QStringLiteral("cannot write '%1': %2").arg(name, reason);
}

} // namespace

CPngWriter::CPngWriter()
{
    setPolicy(EPolicy::DropNewest);
    setMostWaiting(32);
    // Unlike NewestOfEach it keeps no image, with which a camera's buffer may be held.
    m_gathering = EGathering::SameNumber;
    connect(this, &CNodeDataModel::dataUpdated, this, &CPngWriter::onEnded);
}

void CPngWriter::write(const QSharedPointer<CImageData>& image, const QString& file)
{
    setInData(QSharedPointer<CImageFile>::create(file, image, QString()), 0);
}

unsigned int CPngWriter::nPorts(ENodePortType portType) const
{
    return portType == ENodePortType::None ? 0 : 1;
}

SNodeDataType CPngWriter::dataType(ENodePortType, NodePortIndex) const
{
    return CImageFile::dataType();
}

AWorkerNodeDataModel::Work CPngWriter::makeWork() const
{
    // One image after the other, so that needs no guard. The graph's thread would learn too late of a failure: the next
    // image is begun by then.
    return [hasFailed = std::make_shared<bool>(false)](const Inputs& inputs) -> CNodeDataPtr {
        if (*hasFailed)
            return {};
        const auto& file = static_cast<const CImageFile&>(*inputs.front());
        const QString error = writePng(file.name, file.image->image());
        *hasFailed = !error.isEmpty();
        return QSharedPointer<CImageFile>::create(file.name, QSharedPointer<CImageData>(), error);
    };
}

void CPngWriter::onEnded()
{
    const auto file = outData(0).staticCast<CImageFile>();
    if (file->error.isEmpty())
        Q_EMIT written(file->name);
    else
        Q_EMIT failed(file->error);
}

} // namespace Host
