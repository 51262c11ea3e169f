// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/ANodeDataModel.h>

#include <Halvex/graph/DocumentKeys.h>

#include <QPointer>

namespace Plugin::Halvex {

QString ANodeDataModel::noUniqueName()
{
    return QStringLiteral("Halvex.NoUniqueName");
}

ANodeDataModel::ANodeDataModel(QString uniqueName)
    : m_uniqueName(std::move(uniqueName))
    , m_id(Core::CId::createId())
{
    qRegisterMetaType<CNodeDataPtr>("CNodeDataPtr");
}

ANodeDataModel::~ANodeDataModel() = default;

Core::CId ANodeDataModel::id() const
{
    return m_id;
}

QString ANodeDataModel::uniqueName() const
{
    return hasUniqueName() ? m_uniqueName : QString();
}

bool ANodeDataModel::hasUniqueName() const
{
    return m_uniqueName != noUniqueName();
}

ENodeDataModelType ANodeDataModel::getType()
{
    return m_modelType;
}

QJsonObject ANodeDataModel::save() const
{
    // name() and isUnique() are the subclass's, and may remove the node that owns this model.
    const QPointer<const ANodeDataModel> self(this);
    QJsonObject json = CNodeDataModel::save();
    if (!self)
        return json;
    json.insert(QString(DocumentKeys::isUnique), mutableSelf(*this).isUnique());
    if (self && hasUniqueName())
        json.insert(QString(DocumentKeys::uniqueName), uniqueName());
    return json;
}

} // namespace Plugin::Halvex
