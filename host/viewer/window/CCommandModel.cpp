// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CCommandModel.h"

#include <QAction>
#include <QMenu>
#include <QRegularExpression>

namespace Host {

namespace {

// "&Open…" and "ファイル(&F)" as a person reads them.
QString plainText(const QString& text)
{
    QString plain = text;
    return plain.remove(QRegularExpression(QStringLiteral("\\(&.\\)|&")));
}

QString joined(const QString& menu, const QString& text)
{
    return menu.isEmpty() ? text : QStringLiteral("%1 › %2").arg(menu, text);
}

} // namespace

QVector<SCommand> commandsOf(const QList<QAction*>& menus, const QString& parentMenu)
{
    QVector<SCommand> commands;
    for (QAction* const action : menus) {
        const QString text = plainText(action->text());
        if (action->menu())
            commands += commandsOf(action->menu()->actions(), joined(parentMenu, text));
        else if (!action->isSeparator() && action->isVisible() && !text.isEmpty())
            commands.append({parentMenu, action});
    }
    return commands;
}

void CCommandModel::setCommands(const QVector<SCommand>& commands)
{
    beginResetModel();
    m_commands = commands;
    endResetModel();
}

int CCommandModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_commands.size();
}

QVariant CCommandModel::data(const QModelIndex& index, int role) const
{
    const SCommand command = m_commands.value(index.row());
    if (!command.action)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return joined(command.menu, plainText(command.action->text()));
    case shortcutRole:
        return command.action->shortcut().toString(QKeySequence::NativeText);
    case actionRole:
        return QVariant::fromValue<QObject*>(command.action);
    default:
        return {};
    }
}

Qt::ItemFlags CCommandModel::flags(const QModelIndex& index) const
{
    const SCommand command = m_commands.value(index.row());
    if (!command.action || !command.action->isEnabled())
        return QAbstractListModel::flags(index) & ~Qt::ItemIsEnabled;
    return QAbstractListModel::flags(index);
}

} // namespace Host
