// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/CVideoSinkModel.h"

#include "host/models/CImageData.h"
#include "host/sinks/CVideoFile.h"

#include <Halvex/graph/DocumentKeys.h>

#include <QJsonObject>
#include <QPointer>

#include <memory>
#include <utility>

namespace Host {

using namespace Plugin::Halvex;

CVideoSinkModel::CVideoSinkModel(QString sinkName)
    : AFileSinkModel(std::move(sinkName), 1)
{
}

QString CVideoSinkModel::modelName()
{
    return QString::fromLatin1("Video Sink");
}

void CVideoSinkModel::setFramesPerSecond(double rate)
{
    if (!(rate >= 0.01 && rate <= 10000.0) || rate == m_framesPerSecond)
        return;
    m_framesPerSecond = rate;
    Q_EMIT framesPerSecondChanged();
}

SNodeDataType CVideoSinkModel::dataType(ENodePortType, NodePortIndex) const
{
    return CImageData::dataType();
}

QJsonObject CVideoSinkModel::save() const
{
    QJsonObject json = AFileSinkModel::save();
    QJsonObject settings = json.value(DocumentKeys::property).toObject();
    settings.insert(QString(DocumentKeys::framesPerSecond), m_framesPerSecond);
    json.insert(QString(DocumentKeys::property), settings);
    return json;
}

void CVideoSinkModel::restore(const QJsonObject& json)
{
    const QPointer<CVideoSinkModel> self(this);
    AFileSinkModel::restore(json);
    if (self)
        setFramesPerSecond(json.value(DocumentKeys::property)[DocumentKeys::framesPerSecond].toDouble());
}

bool CVideoSinkModel::takes(const CNodeData& data) const
{
    return dynamic_cast<const CImageData*>(&data) != nullptr;
}

CFileWriter::Save CVideoSinkModel::makeSave() const
{
    return [video = std::make_shared<CVideoFile>(m_framesPerSecond)](const CNodeDataPtr& frame, QString* file) {
        if (frame)
            return video->add(frame.staticCast<CImageData>()->image(), file);
        *file = video->name();
        return video->finish();
    };
}

} // namespace Host
