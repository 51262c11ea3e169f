// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QPointer>
#include <QVector>

class QAction;

namespace Host {

/// An action, and the menu that it is in, "File"; empty for none.
struct SCommand
{
    QString menu;
    QPointer<QAction> action;
};

/// The actions of the menus in \a menus and below, those that a person can see, in their order.
QVector<SCommand> commandsOf(const QList<QAction*>& menus, const QString& parentMenu = {});

/**
 * Commands as a list: "File › Open…", and beside it the shortcut. One that cannot be triggered now is not enabled.
 *
 * An action that has gone leaves a row without text, which cannot be chosen.
 */
class CCommandModel : public QAbstractListModel
{
    Q_OBJECT

public:
    static constexpr int shortcutRole = Qt::UserRole;
    static constexpr int actionRole = Qt::UserRole + 1; ///< The `QAction*`, as a QObject's.

    using QAbstractListModel::QAbstractListModel;

    void setCommands(const QVector<SCommand>& commands);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    QVector<SCommand> m_commands;
};

} // namespace Host
