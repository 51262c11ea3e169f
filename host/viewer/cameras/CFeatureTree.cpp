// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CFeatureTree.h"

#include <algorithm>

namespace Host {

namespace {

constexpr int featureRole = Qt::UserRole + 2;

} // namespace

CFeatureTree::CFeatureTree(QObject* parent)
    : QStandardItemModel(0, 2, parent)
{
}

void CFeatureTree::setFeatures(const std::vector<SFeature>& features)
{
    const bool hasRows = hasRowsFor(features);
    m_features = features;
    if (!hasRows)
        makeRows();
    for (const SFeature& feature : m_features)
        m_names.value(feature.name)->setData(QVariant::fromValue(feature), featureRole);
}

bool CFeatureTree::hasRowsFor(const std::vector<SFeature>& features) const
{
    const auto isSame = [](const SFeature& one, const SFeature& other) {
        return one.name == other.name && one.category == other.category && one.type == other.type;
    };
    return std::equal(features.begin(), features.end(), m_features.begin(), m_features.end(), isSame);
}

void CFeatureTree::makeRows()
{
    removeRows(0, rowCount());
    m_names.clear();
    QHash<QString, QStandardItem*> categories;
    for (const SFeature& feature : m_features) {
        auto* const name = new QStandardItem(feature.name);
        name->setToolTip(feature.help.isEmpty() ? feature.name : feature.name + QLatin1Char('\n') + feature.help);
        name->setData(feature.name, searchRole);
        m_names.insert(feature.name, name);
        QStandardItem*& category = categories[feature.category];
        if (!category)
            category = makeCategory(feature.category);
        category->appendRow({name, new QStandardItem});
    }
}

QStandardItem* CFeatureTree::makeCategory(const QString& name)
{
    auto* const category = new QStandardItem(name);
    QFont font;
    font.setBold(true);
    category->setFont(font);
    appendRow(category);
    return category;
}

QModelIndex CFeatureTree::find(const QString& feature) const
{
    const QStandardItem* const name = m_names.value(feature);
    return name ? name->index() : QModelIndex();
}

SFeature CFeatureTree::featureAt(const QModelIndex& index)
{
    return index.data(featureRole).value<SFeature>();
}

} // namespace Host
