// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/AImageFilterModel.h"

#include "host/models/CBackgroundPool.h"
#include "host/models/CImageData.h"

#include <Halvex/graph/DocumentKeys.h>

#include <QMetaProperty>
#include <QPointer>
#include <QString>

#include <stdexcept>
#include <vector>

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

// Those that AImageFilterModel and the subclass have added.
std::vector<QMetaProperty> ownProperties(const AImageFilterModel& model)
{
    std::vector<QMetaProperty> properties;
    const QMetaObject* const meta = model.metaObject();
    for (int i = AImageFilterModel::staticMetaObject.propertyOffset(); i < meta->propertyCount(); ++i)
        properties.push_back(meta->property(i));
    return properties;
}

// Enumerations by the names of their values.
QJsonValue toJson(const QMetaProperty& property, const QVariant& value)
{
    if (property.isEnumType())
        return QString::fromLatin1(property.enumerator().valueToKey(value.toInt()));
    return QJsonValue::fromVariant(value);
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
    for (const QMetaProperty& property : ownProperties(*this))
        settings.insert(QString::fromLatin1(property.name()), toJson(property, property.read(this)));
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
    for (const QMetaProperty& property : ownProperties(*this)) { // who hears of a change may remove the model
        const QJsonValue value = settings.value(QLatin1String(property.name()));
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
