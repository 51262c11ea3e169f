// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/CFeatures.h"

#include <QHash>
#include <QStandardItemModel>

#include <vector>

namespace Host {

/**
 * The features of a camera by category, both in the camera's order. The first column has their names, the second has
 * room for their widgets.
 *
 * \code
 * tree.setFeatures(features);
 * const SFeature width = CFeatureTree::featureAt(tree.find(QStringLiteral("Width")));
 * \endcode
 */
class CFeatureTree : public QStandardItemModel
{
    Q_OBJECT

public:
    /// What a person may search for: a feature's name. A category has none.
    static constexpr int searchRole = Qt::UserRole + 1;

    explicit CFeatureTree(QObject* parent = nullptr);

    /// Rows stay if the features are those of before, with whatever values: a person may be using their widgets.
    /// Otherwise all of them are new.
    void setFeatures(const std::vector<SFeature>& features);
    const std::vector<SFeature>& features() const { return m_features; }

    /// Where the name of that feature is; invalid if there is none.
    QModelIndex find(const QString& feature) const;

    /// The feature of a row, by the index of its first column in this model or a proxy of it; one without a name for a
    /// category.
    static SFeature featureAt(const QModelIndex& index);

private:
    bool hasRowsFor(const std::vector<SFeature>& features) const;
    void makeRows();
    QStandardItem* makeCategory(const QString& name);

    std::vector<SFeature> m_features;
    QHash<QString, QStandardItem*> m_names; // of the first column, by feature; a camera may have hundreds
};

} // namespace Host

Q_DECLARE_METATYPE(Host::SFeature)
