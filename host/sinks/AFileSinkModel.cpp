// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/AFileSinkModel.h"

#include "host/sinks/CFrameTable.h"

#include <Halvex/graph/DocumentKeys.h>

#include <QDir>
#include <QJsonObject>
#include <QPointer>

#include <utility>

namespace Host {

using namespace Plugin::Halvex;

namespace {

// Under "property". Frozen: documents hold them.
constexpr QLatin1String sinkNameKey = DocumentKeys::makeKey("sink_name");
constexpr QLatin1String writeEveryKey = DocumentKeys::makeKey("write_every");

} // namespace

AFileSinkModel::AFileSinkModel(QString sinkName, int writeEvery)
    : m_defaultWriteEvery(writeEvery)
    , m_writeEvery(writeEvery)
    , m_sinkName(std::move(sinkName))
    , m_writer([this] { return makeSave(); })
{
    connect(&m_writer, &CFileWriter::written, this, &AFileSinkModel::onWritten);
    connect(&m_writer, &CFileWriter::failed, this, &AFileSinkModel::onFailed);
    connect(&m_writer, &CNodeDataModel::computingStarted, this, &CNodeDataModel::computingStarted);
    connect(&m_writer, &CNodeDataModel::computingFinished, this, &CNodeDataModel::computingFinished);
}

void AFileSinkModel::setWriteEvery(int frames)
{
    if (frames < 0 || frames == m_writeEvery)
        return;
    m_writeEvery = frames;
    Q_EMIT writeEveryChanged();
}

void AFileSinkModel::setOutput(const QString& folder, int every)
{
    Q_ASSERT(every >= 1);
    m_folder = folder;
    m_every = every;
}

void AFileSinkModel::notifyFailure(const QObject* context, std::function<void(const QString&)> handler)
{
    connect(this, &AFileSinkModel::failed, context, std::move(handler));
}

QString AFileSinkModel::caption()
{
    return m_sinkName.isEmpty() ? kind() : QStringLiteral("%1: %2").arg(kind(), m_sinkName);
}

unsigned int AFileSinkModel::nPorts(ENodePortType portType) const
{
    return portType == ENodePortType::In ? 1 : 0;
}

void AFileSinkModel::setInData(CNodeDataPtr data, NodePortIndex)
{
    if (data && takes(*data)) {
        const quint64 number = m_delivered++;
        const auto every = quint64(m_writeEvery > 0 ? m_writeEvery : m_every);
        if (number % every == 0 && !m_folder.isEmpty() && m_error.isEmpty())
            m_writer.write(data, numberedFile(number));
    }
    // Empty data too: the listeners and the base class then let go of the frame they hold.
    getDataFlowProxy()->setData(data);
}

CNodeDataPtr AFileSinkModel::outData(NodePortIndex)
{
    return {};
}

ENodeValidationState AFileSinkModel::validationState() const
{
    return m_error.isEmpty() ? ENodeValidationState::Valid : ENodeValidationState::Error;
}

QJsonObject AFileSinkModel::save() const
{
    QJsonObject json = ASinkNodeDataModel::save();
    QJsonObject settings;
    if (!m_sinkName.isEmpty())
        settings.insert(QString(sinkNameKey), m_sinkName);
    if (m_writeEvery != m_defaultWriteEvery)
        settings.insert(QString(writeEveryKey), m_writeEvery);
    if (!settings.isEmpty())
        json.insert(QString(DocumentKeys::property), settings);
    return json;
}

void AFileSinkModel::restore(const QJsonObject& json)
{
    const QJsonValue settings = json.value(DocumentKeys::property);
    const QPointer<AFileSinkModel> self(this); // who hears of a change may remove the model
    const QJsonValue name = settings[sinkNameKey];
    if (!name.isUndefined() && name.toString() != m_sinkName) {
        m_sinkName = name.toString();
        Q_EMIT sinkNameChanged();
    }
    if (self)
        setWriteEvery(settings[writeEveryKey].toInt(-1));
}

QStringList AFileSinkModel::fileNames() const
{
    return {fileName(), CFrameTable::fileName()};
}

// "out/frame-000012.png"
QString AFileSinkModel::numberedFile(quint64 number) const
{
    const QString digits = QStringLiteral("%1").arg(number, 6, 10, QLatin1Char('0'));
    return QDir(m_folder).filePath(fileName().replace(QLatin1Char('*'), digits));
}

void AFileSinkModel::onWritten(const QString& file)
{
    ++m_written;
    // A file may hold several frames.
    if (m_files.empty() || m_files.back() != file)
        m_files.push_back(file);
}

void AFileSinkModel::onFailed(const QString& error)
{
    m_error = error;
    Q_EMIT failed(error);
}

} // namespace Host
