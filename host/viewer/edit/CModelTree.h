// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QStandardItemModel>

#include <memory>

namespace Plugin::Halvex {
class CNodeDataModelRegistry;
}

namespace Host {

/// The models of a registry by category, both sorted, as they are when it is made. A model can be dragged: its mime
/// type is mimeType(), its data the model's name in UTF-8.
class CModelTree : public QStandardItemModel
{
    Q_OBJECT

public:
    explicit CModelTree(const Plugin::Halvex::CNodeDataModelRegistry& registry, QObject* parent = nullptr);

    static QString mimeType() { return QStringLiteral("application/x-halvex-model"); }

    /// Shows names and categories in the language of now.
    void retranslate();

    /// What a person may search for: a name as it is shown, and as documents have it.
    static constexpr int searchRole = Qt::UserRole + 2;

    /// The name of the model at \a index; empty for a category.
    static QString modelNameAt(const QModelIndex& index);

    QStringList mimeTypes() const override { return {mimeType()}; }
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
};

} // namespace Host
