// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/CPngSinkModel.h"

#include "host/models/CImageData.h"

#include <Halvex/graph/DocumentKeys.h>

#include <opencv2/imgcodecs.hpp>

#include <QDir>
#include <QFile>
#include <QJsonObject>

#include <utility>

namespace Host {

using namespace Plugin::Halvex;

namespace {

// Under "property". Frozen: documents hold it.
const QString sinkNameKey = QStringLiteral("sink_name");

using Bytes = std::vector<uchar>;

// The image as a PNG, lightly compressed: the graph waits for it. Empty when the encoder refuses the image.
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

// Empty when every byte is written. The encoder could write the file itself, but it does not notice a full disk.
QString writeFile(const QString& name, const Bytes& bytes)
{
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        return file.errorString();
    const auto size = qint64(bytes.size());
    if (file.write(reinterpret_cast<const char*>(bytes.data()), size) == size)
        return {};
    QString reason = file.errorString();
    file.close();
    QFile::remove(name);
    return reason;
}

} // namespace

CPngSinkModel::CPngSinkModel(QString sinkName)
    : m_sinkName(std::move(sinkName))
{
}

QString CPngSinkModel::modelName()
{
    return QStringLiteral("PNG Sink");
}

void CPngSinkModel::setOutput(const QString& folder, int every)
{
    Q_ASSERT(every >= 1);
    m_folder = folder;
    m_every = quint64(every);
}

void CPngSinkModel::notifyFailure(const QObject* context, std::function<void(const QString&)> handler)
{
    connect(this, &CPngSinkModel::failed, context, std::move(handler));
}

QString CPngSinkModel::caption()
{
    return m_sinkName.isEmpty() ? QStringLiteral("PNG files") : QStringLiteral("PNG files: %1").arg(m_sinkName);
}

unsigned int CPngSinkModel::nPorts(ENodePortType portType) const
{
    return portType == ENodePortType::In ? 1 : 0;
}

SNodeDataType CPngSinkModel::dataType(ENodePortType, NodePortIndex) const
{
    return CImageData::dataType();
}

void CPngSinkModel::setInData(CNodeDataPtr data, NodePortIndex)
{
    if (const auto input = data.dynamicCast<CImageData>()) {
        const quint64 number = m_delivered++;
        if (number % m_every == 0 && !m_folder.isEmpty() && m_error.isEmpty())
            write(input->image(), number);
    }
    // Empty data too: the listeners and the base class then let go of the image they hold.
    getDataFlowProxy()->setData(data);
}

CNodeDataPtr CPngSinkModel::outData(NodePortIndex)
{
    return {};
}

ENodeValidationState CPngSinkModel::validationState() const
{
    return m_error.isEmpty() ? ENodeValidationState::Valid : ENodeValidationState::Error;
}

QJsonObject CPngSinkModel::save() const
{
    QJsonObject json = ASinkNodeDataModel::save();
    if (!m_sinkName.isEmpty())
        json.insert(QString(DocumentKeys::property), QJsonObject{{sinkNameKey, m_sinkName}});
    return json;
}

void CPngSinkModel::restore(const QJsonObject& json)
{
    const QJsonValue name = json.value(DocumentKeys::property)[sinkNameKey];
    if (!name.isUndefined())
        m_sinkName = name.toString();
}

void CPngSinkModel::write(const cv::Mat& image, quint64 number)
{
    const QString file = QDir(m_folder).filePath(QStringLiteral("frame-%1.png").arg(number, 6, 10, QLatin1Char('0')));
    const Bytes png = encode(image);
    if (png.empty())
        return fail(file, QStringLiteral("the image has no PNG form"));
    const QString reason = writeFile(file, png);
    if (!reason.isEmpty())
        return fail(file, reason);
    m_files.push_back(file);
}

void CPngSinkModel::fail(const QString& file, const QString& reason)
{
    m_error = QStringLiteral("cannot write '%1': %2").arg(file, reason);
    Q_EMIT failed(m_error);
}

} // namespace Host
