// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/CPngSinkModel.h"

#include "host/models/CImageData.h"

#include <Halvex/graph/DocumentKeys.h>

#include <QDir>
#include <QJsonObject>

#include <utility>

namespace Host {

using namespace Plugin::Halvex;

namespace {

// Under "property". Frozen: documents hold it.
const QString sinkNameKey = QStringLiteral("sink_name");

} // namespace

CPngSinkModel::CPngSinkModel(QString sinkName)
    : m_sinkName(std::move(sinkName))
{
    connect(&m_writer, &CPngWriter::written, this, [this](const QString& file) { m_files.push_back(file); });
    connect(&m_writer, &CPngWriter::failed, this, &CPngSinkModel::onFailed);
    connect(&m_writer, &CNodeDataModel::computingStarted, this, &CNodeDataModel::computingStarted);
    connect(&m_writer, &CNodeDataModel::computingFinished, this, &CNodeDataModel::computingFinished);
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
            m_writer.write(input, fileName(number));
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
    if (name.isUndefined() || name.toString() == m_sinkName)
        return;
    m_sinkName = name.toString();
    Q_EMIT sinkNameChanged();
}

QString CPngSinkModel::fileName(quint64 number) const
{
    return QDir(m_folder).filePath(QStringLiteral("frame-%1.png").arg(number, 6, 10, QLatin1Char('0')));
}

void CPngSinkModel::onFailed(const QString& error)
{
    m_error = error;
    Q_EMIT failed(error);
}

} // namespace Host
