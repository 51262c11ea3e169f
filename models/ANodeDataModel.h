// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/CNodeDataModel.h"
#include "models/ENodeDataModelType.h"
#include "platform/CId.h"

#include <Halvex/HalvexExport.h>

#include <QString>

namespace Plugin {
namespace Halvex {

/**
 * A model with an identity: an id of its own, perhaps a unique name, and a kind.
 *
 * \code
 * class CCameraModel : public ASourceNodeDataModel // which is an ANodeDataModel
 * {
 * public:
 *     explicit CCameraModel(const QString& serialNumber) : ASourceNodeDataModel(serialNumber) {}
 *     bool isUnique() override { return true; }
 *     ...
 * };
 * \endcode
 *
 * The constructor registers the meta-type name "CNodeDataPtr", so that queued signals can carry data once there is
 * any model.
 *
 * Threads and ownership: as CNodeDataModel.
 */
class HALVEX_EXPORT ANodeDataModel : public CNodeDataModel
{
    Q_OBJECT

public:
    /// \a uniqueName: left out for a model without one; an empty string is a name.
    explicit ANodeDataModel(QString uniqueName = QStringLiteral("Halvex.NoUniqueName"));
    ~ANodeDataModel() override;

    /// Made at construction, never changed, not saved.
    Core::CId id() const;

    /// The unique name; null if the model has none.
    QString uniqueName() const;
    bool hasUniqueName() const;

    /// The kind: Sink unless a subclass's constructor set another.
    ENodeDataModelType getType();

    /// Whether a scene document refers to the one node that has this model instead of describing a new one.
    virtual bool isUnique() = 0;

    /// What CNodeDataModel saves, "is_unique", and "unique_name" if there is one. restore() reads none of it.
    QJsonObject save() const override;

protected:
    ENodeDataModelType m_modelType = ENodeDataModelType::Sink;

private:
    QString m_uniqueName;
    Core::CId m_id;
};

} // namespace Halvex
} // namespace Plugin
