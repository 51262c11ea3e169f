// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QModelIndex>
#include <QWidget>

#include <memory>

class QLineEdit;
class QSortFilterProxyModel;
class QTreeView;

namespace Plugin::Halvex {
class CNodeDataModelRegistry;
}

namespace Host {

class CModelTree;

/// The models that can be placed, by category, with a search. A double click or Enter asks for one, also Enter in the
/// search, for the first that is found; one can be dragged into the drawing as well, see CModelTree.
class CModelPalette : public QWidget
{
    Q_OBJECT

public:
    /// Shows what \a registry has by now.
    explicit CModelPalette(std::shared_ptr<Plugin::Halvex::CNodeDataModelRegistry> registry, QWidget* parent = nullptr);

Q_SIGNALS:
    void placeRequested(const QString& modelName);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void search(const QString& text);
    void request(const QModelIndex& index);
    QModelIndex firstModel() const;
    void retranslate();

    const std::shared_ptr<Plugin::Halvex::CNodeDataModelRegistry> m_registry;
    CModelTree* m_models = nullptr;
    QSortFilterProxyModel* m_found = nullptr;
    QLineEdit* m_search = nullptr;
    QTreeView* m_view = nullptr;
};

} // namespace Host
