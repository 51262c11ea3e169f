// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/CPngSinkModel.h"

#include "host/models/CImageData.h"
#include "host/sinks/WritePng.h"

#include <utility>

namespace Host {

using namespace Plugin::Halvex;

namespace {

QString writeFrame(const CNodeDataPtr& frame, QString* file)
{
    return frame ? writePng(*file, frame.staticCast<CImageData>()->image()) : QString();
}

} // namespace

CPngSinkModel::CPngSinkModel(QString sinkName)
    : AFileSinkModel(std::move(sinkName), 0)
{
}

QString CPngSinkModel::modelName()
{
    return QString::fromLatin1("PNG Sink");
}

SNodeDataType CPngSinkModel::dataType(ENodePortType, NodePortIndex) const
{
    return CImageData::dataType();
}

bool CPngSinkModel::takes(const CNodeData& data) const
{
    return dynamic_cast<const CImageData*>(&data) != nullptr;
}

CFileWriter::Save CPngSinkModel::makeSave() const
{
    return &writeFrame;
}

} // namespace Host
