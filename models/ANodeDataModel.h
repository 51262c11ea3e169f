// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>
#include <Halvex/graph/CNodeDataModel.h>
#include <Halvex/models/ENodeDataModelType.h>
#include <Halvex/platform/CId.h>

#include <QJsonObject>
#include <QString>

namespace Plugin::Halvex {

/**
 * A model with an identity: an id of its own, perhaps a unique name, and a kind.
 *
 * \code
 * class ACameraModel : public ASourceNodeDataModel // which is an ANodeDataModel
 * {
 * public:
 *     explicit ACameraModel(QString serialNumber = noUniqueName()) : ASourceNodeDataModel(std::move(serialNumber)) {}
 *     bool isUnique() override { return hasUniqueName(); }
 * };
 * \endcode
 *
 * Every constructor of this class, ASourceNodeDataModel and ASinkNodeDataModel registers the meta-type name
 * "CNodeDataPtr". Queued signals can carry data as soon as there is any model.
 *
 * Threads and ownership: as CNodeDataModel. id(), uniqueName() and hasUniqueName() never change.
 */
class HALVEX_EXPORT ANodeDataModel : public CNodeDataModel
{
    Q_OBJECT

public:
    /// "Halvex.NoUniqueName": what a model without a unique name is constructed with. A subclass whose constructor
    /// takes a unique name has this as the default.
    static QString noUniqueName();

    /// A model without a unique name if \a uniqueName is noUniqueName(). An empty string is a name.
    explicit ANodeDataModel(QString uniqueName = noUniqueName());
    ~ANodeDataModel() override;

    /// The model's own id, made with the object. It is not the id of its node, and it is not saved.
    Core::CId id() const;

    /// The unique name; null if the model has none.
    QString uniqueName() const;
    /// Whether it was constructed with a unique name.
    bool hasUniqueName() const;

    /// The kind: Sink unless the constructor of a subclass set m_modelType.
    ENodeDataModelType getType();

    /// Whether there is only one such model. Reading a scene document never makes a unique model: it looks for a node
    /// that has one. The node service gives a unique source a scene of its own.
    virtual bool isUnique() = 0;

    /// What CNodeDataModel saves, "is_unique", and "unique_name" if there is one. restore() reads none of it.
    QJsonObject save() const override;

protected:
    /// What getType() returns. Set by the constructor of a subclass.
    ENodeDataModelType m_modelType = ENodeDataModelType::Sink;

private:
    QString m_uniqueName;
    Core::CId m_id;
};

} // namespace Plugin::Halvex
