// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CCommandPalette.h"

#include "host/viewer/base/Theme.h"
#include "host/viewer/window/CCommandModel.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QRegularExpression>
#include <QSortFilterProxyModel>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

namespace Host {

namespace {

// The text, and the shortcut at the right.
class CCommandDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::paint(painter, option, index);
        const QPalette::ColorGroup group = option.state & QStyle::State_Enabled ? QPalette::Active : QPalette::Disabled;
        const auto role = option.state & QStyle::State_Selected ? QPalette::HighlightedText : QPalette::Text;
        QPalette colors = option.palette;
        colors.setCurrentColorGroup(group);
        QApplication::style()->drawItemText(painter, option.rect.adjusted(0, 0, -gridStep, 0),
                                            Qt::AlignRight | Qt::AlignVCenter, colors, group != QPalette::Disabled,
                                            index.data(CCommandModel::shortcutRole).toString(), role);
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, gridStep);
    }
};

} // namespace

CCommandPalette::CCommandPalette(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
    , m_commands(new CCommandModel(this))
    , m_found(new QSortFilterProxyModel(this))
    , m_search(new QLineEdit(this))
    , m_list(new QListView(this))
{
    m_found->setSourceModel(m_commands);
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    m_list->setModel(m_found);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setItemDelegate(new CCommandDelegate(m_list));
    m_list->setFocusPolicy(Qt::NoFocus);
    m_list->setUniformItemSizes(true);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(gridStep, gridStep, gridStep, gridStep);
    layout->setSpacing(gridStep);
    layout->addWidget(m_search);
    layout->addWidget(m_list);
    connect(m_search, &QLineEdit::textChanged, this, &CCommandPalette::search);
    connect(m_search, &QLineEdit::returnPressed, this, &CCommandPalette::trigger);
    connect(m_list, &QListView::clicked, this, &CCommandPalette::trigger);
    resize(64 * gridStep, 48 * gridStep);
    retranslate();
}

void CCommandPalette::setCommands(const QVector<SCommand>& commands)
{
    m_commands->setCommands(commands);
    m_search->clear();
    search();
}

QStringList CCommandPalette::texts() const
{
    QStringList texts;
    for (int row = 0; row < m_found->rowCount(); ++row)
        texts << m_found->index(row, 0).data().toString();
    return texts;
}

void CCommandPalette::search()
{
    QString everyWord = QStringLiteral("^");
    const QStringList words = m_search->text().simplified().split(QLatin1Char(' '));
    for (const QString& word : words)
        everyWord += QStringLiteral("(?=.*%1)").arg(QRegularExpression::escape(word));
    everyWord += QLatin1Char('.'); // an action that has gone has no text
    m_found->setFilterRegularExpression(QRegularExpression(everyWord, QRegularExpression::CaseInsensitiveOption));
    // The first, also where it cannot be triggered now.
    m_list->selectionModel()->setCurrentIndex(m_found->index(0, 0), QItemSelectionModel::ClearAndSelect);
}

void CCommandPalette::trigger()
{
    const QModelIndex index = m_list->currentIndex();
    if (!(index.flags() & Qt::ItemIsEnabled))
        return;
    const QPointer<QAction> action = qobject_cast<QAction*>(index.data(CCommandModel::actionRole).value<QObject*>());
    accept(); // before: the action may open a dialog of its own
    if (action)
        action->trigger();
}

bool CCommandPalette::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_search || event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Up && key != Qt::Key_Down && key != Qt::Key_PageUp && key != Qt::Key_PageDown)
        return QDialog::eventFilter(watched, event);
    QApplication::sendEvent(m_list, event);
    return true;
}

void CCommandPalette::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (const QWidget* const window = parentWidget())
        move(window->mapToGlobal(QPoint((window->width() - width()) / 2, 10 * gridStep)));
    m_search->setFocus();
}

void CCommandPalette::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void CCommandPalette::retranslate()
{
    setWindowTitle(tr("Commands"));
    m_search->setPlaceholderText(tr("What do you want to do?"));
    m_search->setAccessibleName(tr("Search commands"));
    m_list->setAccessibleName(tr("Commands"));
}

} // namespace Host
