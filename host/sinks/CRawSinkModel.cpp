// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/CRawSinkModel.h"

#include "host/models/FrameInfo.h"
#include "host/sinks/WriteFile.h"

#include <Halvex/service/CVeltraGrabResultData.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <utility>

namespace Host {

using namespace Plugin::Halvex;

namespace {

// The number in "Mono12", "RGB8" or "BayerRG10Packed".
QJsonValue bitsOf(const QString& pixelFormat)
{
    static const QRegularExpression number(QStringLiteral("^[A-Za-z]+(\\d+)"));
    const auto match = number.match(pixelFormat);
    return match.hasMatch() ? QJsonValue(match.captured(1).toInt()) : QJsonValue();
}

QByteArray formatText(const Veltra::SGrabResult& frame, const QString& source)
{
    // Cameras of this kind send values of several bytes with the lowest first, whatever computer they are on.
    const QJsonObject format{{"width", frame.width},
                             {"height", frame.height},
                             {"stride", frame.stride},
                             {"pixel_format", frame.pixelFormat},
                             {"bits", bitsOf(frame.pixelFormat)},
                             {"byte_order", "little-endian"},
                             {"frame", double(frame.frameNumber)},
                             {"source", source.isEmpty() ? QJsonValue() : QJsonValue(source)}};
    return QJsonDocument(format).toJson();
}

// The format first: whoever finds a frame finds what it is.
QString writeRaw(const CNodeDataPtr& data, QString* file)
{
    if (!data)
        return {};
    const Veltra::SGrabResult& frame = *static_cast<const CVeltraGrabResultData&>(*data).grabResult();
    const QByteArray format = formatText(frame, frameInfo(*data).source);
    QString formatFile = *file;
    formatFile.replace(formatFile.size() - 3, 3, QStringLiteral("json"));
    const QString reason = writeFile(formatFile, format.constData(), std::size_t(format.size()));
    if (!reason.isEmpty())
        return reason;
    return writeFile(*file, frame.pixels, std::size_t(frame.stride) * std::size_t(frame.height));
}

} // namespace

CRawSinkModel::CRawSinkModel(QString sinkName)
    : AFileSinkModel(std::move(sinkName), 0)
{
}

QString CRawSinkModel::modelName()
{
    return QString::fromLatin1("Raw Sink");
}

QStringList CRawSinkModel::fileNames() const
{
    return AFileSinkModel::fileNames() << QStringLiteral("frame-*.json");
}

SNodeDataType CRawSinkModel::dataType(ENodePortType, NodePortIndex) const
{
    return CVeltraGrabResultData().type();
}

bool CRawSinkModel::takes(const CNodeData& data) const
{
    const auto* const grab = dynamic_cast<const CVeltraGrabResultData*>(&data);
    return grab && grab->grabResult();
}

CFileWriter::Save CRawSinkModel::makeSave() const
{
    return &writeRaw;
}

} // namespace Host
