// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/graph/CNodeDataModel.h>

#include "graph/support/JsonObject_p.h"

#include <Halvex/graph/DocumentKeys.h>

#include <QPointer>

namespace Plugin::Halvex {

CNodeDataModel::CNodeDataModel() = default;

CNodeDataModel::~CNodeDataModel()
{
    // Here rather than by the member's own destructor: the object's destructor is foreign code and may ask for it.
    m_info.reset();
}

bool CNodeDataModel::captionVisible() const
{
    return true;
}

QString CNodeDataModel::portCaption(ENodePortType, NodePortIndex) const
{
    return QString();
}

bool CNodeDataModel::portCaptionVisible(ENodePortType, NodePortIndex) const
{
    return false;
}

CNodeDataModel::EConnectionPolicy CNodeDataModel::portOutConnectionPolicy(NodePortIndex) const
{
    return EConnectionPolicy::Many;
}

ENodeValidationState CNodeDataModel::validationState() const
{
    // Survives returned value: the number is 0.
    return ENodeValidationState::Valid;
}

QString CNodeDataModel::validationMessage() const
{
    return QString();
}

void CNodeDataModel::setInfo(Core::AppCoreComponents::BaseInfoPtr info)
{
    if (info == m_info)
        return;

    // The last reference to the old object may run a destructor of the host's, which may destroy this model.
    // Survives exchanged neighbours: an exchange of pointers runs no foreign code.
    const QPointer<CNodeDataModel> self(this);
    m_info.swap(info);
    info.reset();
    if (!self)
        return;

    // A copy, because a handler may inject another object while the others still read this one.
    const Core::AppCoreComponents::BaseInfoPtr held = m_info;
    Q_EMIT infoInjected(held);
}

Core::AppCoreComponents::BaseInfoPtr CNodeDataModel::getInfo()
{
    return m_info;
}

QJsonObject CNodeDataModel::save() const
{
    return jsonObject({{DocumentKeys::name, mutableSelf(*this).name()}});
}

} // namespace Plugin::Halvex
