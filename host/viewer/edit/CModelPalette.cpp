// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/CModelPalette.h"

#include "host/viewer/edit/CModelTree.h"

#include <Halvex/scene/CNodeDataModelRegistry.h>

#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <QVBoxLayout>

#include <utility>

namespace Host {

CModelPalette::CModelPalette(std::shared_ptr<Plugin::Halvex::CNodeDataModelRegistry> registry, QWidget* parent)
    : QWidget(parent)
    , m_registry(std::move(registry))
    , m_models(new CModelTree(*m_registry, this))
    , m_found(new QSortFilterProxyModel(this))
    , m_search(new QLineEdit(this))
    , m_view(new QTreeView(this))
{
    m_found->setSourceModel(m_models);
    m_found->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_found->setFilterRole(CModelTree::searchRole);
    m_found->setRecursiveFilteringEnabled(true);
    m_search->setObjectName(QStringLiteral("modelSearch"));
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    m_view->setObjectName(QStringLiteral("modelView"));
    m_view->setModel(m_found);
    m_view->setHeaderHidden(true);
    m_view->setDragEnabled(true);
    m_view->setDragDropMode(QAbstractItemView::DragOnly);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setExpandsOnDoubleClick(false);
    m_view->expandAll();
    m_view->installEventFilter(this);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(8, 8, 8, 8);
    column->setSpacing(8);
    column->addWidget(m_search);
    column->addWidget(m_view);
    connect(m_search, &QLineEdit::textChanged, this, &CModelPalette::search);
    connect(m_view, &QTreeView::doubleClicked, this, &CModelPalette::request);
    setFocusProxy(m_search);
    retranslate();
}

bool CModelPalette::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        request(m_view->currentIndex());
        return true;
    }
    if (watched == m_search && key == Qt::Key_Down) {
        m_view->setFocus();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void CModelPalette::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void CModelPalette::search(const QString& text)
{
    m_found->setFilterFixedString(text);
    m_view->expandAll();
    m_view->setCurrentIndex(text.isEmpty() ? QModelIndex() : firstModel());
}

void CModelPalette::request(const QModelIndex& index)
{
    const QString name = CModelTree::modelNameAt(index);
    if (!name.isEmpty())
        Q_EMIT placeRequested(name);
}

QModelIndex CModelPalette::firstModel() const
{
    return m_found->index(0, 0, m_found->index(0, 0));
}

void CModelPalette::retranslate()
{
    m_models->retranslate();
    setAccessibleName(tr("Models"));
    m_search->setPlaceholderText(tr("Search models"));
    m_search->setAccessibleName(tr("Search models"));
    m_view->setAccessibleName(tr("Models by category"));
}

} // namespace Host
