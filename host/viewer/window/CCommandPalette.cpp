// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CCommandPalette.h"

#include "host/viewer/base/Theme.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QRegularExpression>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <algorithm>

namespace Host {

namespace {

constexpr int shortcutRole = Qt::UserRole;
constexpr int numberRole = Qt::UserRole + 1;

// "&Open…" and "ファイル(&F)" as a person reads them.
QString plainText(const QString& text)
{
    QString plain = text;
    return plain.remove(QRegularExpression(QStringLiteral("\\(&.\\)|&")));
}

QString fullText(const CCommandPalette::SCommand& command)
{
    const QString text = plainText(command.action->text());
    return command.menu.isEmpty() ? text : QStringLiteral("%1 › %2").arg(command.menu, text);
}

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
        QApplication::style()->drawItemText(
            painter, option.rect.adjusted(0, 0, -gridStep, 0), Qt::AlignRight | Qt::AlignVCenter,
            [&] {
                QPalette palette = option.palette;
                palette.setCurrentColorGroup(group);
                return palette;
            }(),
            group != QPalette::Disabled, index.data(shortcutRole).toString(), role);
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, gridStep);
    }
};

} // namespace

CCommandPalette::CCommandPalette(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
    , m_search(new QLineEdit(this))
    , m_list(new QListWidget(this))
{
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
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
    connect(m_list, &QListWidget::itemClicked, this, &CCommandPalette::trigger);
    resize(64 * gridStep, 48 * gridStep);
    retranslate();
}

void CCommandPalette::setCommands(const QVector<SCommand>& commands)
{
    m_commands = commands;
    m_search->clear();
    search();
}

QStringList CCommandPalette::texts() const
{
    QStringList texts;
    for (int i = 0; i < m_list->count(); ++i)
        texts << m_list->item(i)->text();
    return texts;
}

void CCommandPalette::search()
{
    const QStringList words = m_search->text().simplified().split(QLatin1Char(' '));
    m_list->clear();
    for (int i = 0; i < m_commands.size(); ++i) {
        const SCommand& command = m_commands.at(i);
        if (!command.action)
            continue;
        const QString text = fullText(command);
        if (std::all_of(words.begin(), words.end(),
                        [&text](const QString& word) { return text.contains(word, Qt::CaseInsensitive); }))
            addItem(command, i);
    }
    m_list->setCurrentRow(0);
}

void CCommandPalette::addItem(const SCommand& command, int number)
{
    auto* const item = new QListWidgetItem(fullText(command), m_list);
    item->setData(numberRole, number);
    item->setData(shortcutRole, command.action->shortcut().toString(QKeySequence::NativeText));
    if (!command.action->isEnabled())
        item->setFlags(item->flags() & ~Qt::ItemIsEnabled);
}

void CCommandPalette::trigger()
{
    const QListWidgetItem* const item = m_list->currentItem();
    if (!item || !(item->flags() & Qt::ItemIsEnabled))
        return;
    const QPointer<QAction> action = m_commands.at(item->data(numberRole).toInt()).action;
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

QVector<CCommandPalette::SCommand> commandsOf(const QList<QAction*>& menus, const QString& parentMenu)
{
    QVector<CCommandPalette::SCommand> commands;
    for (QAction* const action : menus) {
        const QString text = plainText(action->text());
        if (action->menu())
            commands += commandsOf(action->menu()->actions(),
                                   parentMenu.isEmpty() ? text : QStringLiteral("%1 › %2").arg(parentMenu, text));
        else if (!action->isSeparator() && action->isVisible() && !text.isEmpty())
            commands.append({parentMenu, action});
    }
    return commands;
}

} // namespace Host
