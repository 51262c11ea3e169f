// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/images/CViewModel.h"

#include <Halvex/graph/DocumentKeys.h>

#include <QJsonObject>
#include <QPointer>

namespace Host {

using namespace Plugin::Halvex;

namespace {

// Under "property". Frozen: documents hold it.
constexpr QLatin1String viewNameKey = DocumentKeys::makeKey("view_name");

bool isShowable(const cv::Mat& image)
{
    const bool hasDepth = image.depth() == CV_8U || image.depth() == CV_16U;
    return !image.empty() && hasDepth && (image.channels() == 1 || image.channels() == 3);
}

} // namespace

CViewModel::~CViewModel() = default;

QString CViewModel::modelName()
{
    return QStringLiteral("Image View");
}

void CViewModel::setViewName(const QString& name)
{
    if (name == m_viewName)
        return;
    m_viewName = name;
    Q_EMIT viewNameChanged();
}

QString CViewModel::caption()
{
    return m_viewName.isEmpty() ? tr("Image view") : m_viewName;
}

unsigned int CViewModel::nPorts(ENodePortType portType) const
{
    return portType == ENodePortType::In ? 1 : 0;
}

SNodeDataType CViewModel::dataType(ENodePortType, NodePortIndex) const
{
    return CImageData::dataType();
}

void CViewModel::setInData(CNodeDataPtr data, NodePortIndex)
{
    const QPointer<CViewModel> self(this); // who hears of the image may remove the model
    const auto image = data.dynamicCast<const CImageData>();
    const bool isImage = image && isShowable(image->image());
    m_image = isImage ? image : nullptr;
    m_error = data && !isImage ? tr("This is no image that can be shown.") : QString();
    m_delivered += isImage ? 1 : 0;
    Q_EMIT imageChanged();
    if (self)
        getDataFlowProxy()->setData(data);
}

CNodeDataPtr CViewModel::outData(NodePortIndex)
{
    return {};
}

ENodeValidationState CViewModel::validationState() const
{
    return m_error.isEmpty() ? ENodeValidationState::Valid : ENodeValidationState::Error;
}

QJsonObject CViewModel::save() const
{
    QJsonObject json = ASinkNodeDataModel::save();
    if (!m_viewName.isEmpty())
        json.insert(QString(DocumentKeys::property), QJsonObject{{viewNameKey, m_viewName}});
    return json;
}

void CViewModel::restore(const QJsonObject& json)
{
    const QJsonValue name = json.value(DocumentKeys::property)[viewNameKey];
    if (name.isString())
        setViewName(name.toString());
}

} // namespace Host
