// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/AImageFilterModel.h"

#include "host/base/ModelProperties.h"
#include "host/models/CBackgroundPool.h"
#include "host/models/CImageData.h"

#include <Halvex/graph/DocumentKeys.h>

#include <QPointer>
#include <QString>

#include <stdexcept>

namespace Host {

using namespace Plugin::Halvex;

namespace {

CNodeDataPtr filtered(const CNodeDataPtr& data, const std::function<cv::Mat(const cv::Mat&)>& filter)
{
    const auto input = data.dynamicCast<CImageData>();
    if (!input || input->image().empty())
        throw std::invalid_argument("this is no image");
    try {
        return QSharedPointer<CImageData>::create(filter(input->image()), input->info());
    } catch (const cv::Exception& exception) {
        // Without the place in the library's sources that its what() begins with.
        throw std::runtime_error(QString::fromStdString(exception.err).simplified().toStdString());
    }
}

// Numbers for numbers and text for enumerations: everything else would be converted to something.
bool fits(const QMetaProperty& property, const QJsonValue& json)
{
    if (property.isEnumType())
        return json.isString();
    return json.isDouble() && (property.type() == QVariant::Int || property.type() == QVariant::Double);
}

} // namespace

AImageFilterModel::AImageFilterModel()
{
    setPolicy(EPolicy::DropOldest);
    setMostWaiting(16);
}

unsigned int AImageFilterModel::nPorts(ENodePortType portType) const
{
    return portType == ENodePortType::None ? 0 : 1;
}

SNodeDataType AImageFilterModel::dataType(ENodePortType, NodePortIndex) const
{
    return CImageData::dataType();
}

void AImageFilterModel::setPriority(EPriority priority)
{
    setThreadPool(priority == EPriority::Background ? &CBackgroundPool::instance() : nullptr);
    changeSetting(&m_priority, priority);
}

QJsonObject AImageFilterModel::save() const
{
    QJsonObject json = AWorkerNodeDataModel::save();
    QJsonObject settings = json.value(DocumentKeys::property).toObject();
    const auto properties = propertiesOf(*this, AWorkerNodeDataModel::staticMetaObject);
    for (const QMetaProperty& property : properties)
        settings.insert(documentName(property), toJson(property, property.read(this)));
    json.insert(QString(DocumentKeys::property), settings);
    return json;
}

void AImageFilterModel::restore(const QJsonObject& json)
{
    const QPointer<AImageFilterModel> self(this);
    AWorkerNodeDataModel::restore(json);
    const QJsonObject settings = json.value(DocumentKeys::property).toObject();
    if (!self)
        return;
    const auto properties = propertiesOf(*this, AWorkerNodeDataModel::staticMetaObject);
    for (const QMetaProperty& property : properties) { // who hears of a change may remove the model
        const QJsonValue value = settings.value(documentName(property));
        if (fits(property, value))
            property.write(this, value.toVariant());
        if (!self)
            return;
    }
}

AWorkerNodeDataModel::Work AImageFilterModel::makeWork() const
{
    return [filter = makeFilter()](const Inputs& inputs) { return filtered(inputs.front(), filter); };
}

} // namespace Host
