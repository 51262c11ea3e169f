// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/CModelTree.h"

#include "host/viewer/base/ModelText.h"

#include <Halvex/scene/CNodeDataModelRegistry.h>

#include <QMimeData>

#include <map>

namespace Host {

using namespace Plugin::Halvex;

namespace {

constexpr int modelNameRole = Qt::UserRole + 1;
constexpr int englishRole = Qt::UserRole + 3;

} // namespace

CModelTree::CModelTree(const CNodeDataModelRegistry& registry, QObject* parent)
    : QStandardItemModel(parent)
{
    std::map<QString, QStringList> modelsOf;
    for (const auto& entry : registry.registeredModelsCategoryAssociation())
        modelsOf[entry.second] << entry.first;
    for (auto& entry : modelsOf) {
        auto* const category = new QStandardItem;
        category->setData(entry.first, englishRole);
        category->setFlags(Qt::ItemIsEnabled);
        entry.second.sort(Qt::CaseInsensitive);
        for (const QString& name : qAsConst(entry.second)) {
            auto* const model = new QStandardItem;
            model->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled);
            model->setData(name, modelNameRole);
            model->setData(name, englishRole);
            category->appendRow(model);
        }
        appendRow(category);
    }
    retranslate();
}

void CModelTree::retranslate()
{
    const auto translate = [](QStandardItem& item) {
        const QString name = item.data(englishRole).toString();
        item.setText(modelText(name));
        item.setData(QStringLiteral("%1 %2").arg(item.text(), name), searchRole);
    };
    for (int i = 0; i < rowCount(); ++i) {
        translate(*item(i));
        for (int j = 0; j < item(i)->rowCount(); ++j)
            translate(*item(i)->child(j));
    }
}

QString CModelTree::modelNameAt(const QModelIndex& index)
{
    return index.data(modelNameRole).toString();
}

QMimeData* CModelTree::mimeData(const QModelIndexList& indexes) const
{
    auto* const data = new QMimeData;
    if (!indexes.isEmpty())
        data->setData(mimeType(), modelNameAt(indexes.front()).toUtf8());
    return data;
}

} // namespace Host
