// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QDialog>
#include <QList>
#include <QPointer>
#include <QVector>

class QAction;
class QLineEdit;
class QListWidget;

namespace Host {

/**
 * All that the program can do, to be found by words and done by keyboard: each word that is typed stands somewhere in
 * the text of an action or of its menu.
 *
 * \code
 * CCommandPalette palette(window);
 * palette.setActions(commandsOf(*window->menuBar()));
 * palette.exec();
 * \endcode
 *
 * Enter, or a click, closes it and triggers the action; Escape closes it.
 */
class CCommandPalette : public QDialog
{
    Q_OBJECT

public:
    /// An action, and the menu that it is in, "File"; empty for none.
    struct SCommand
    {
        QString menu;
        QPointer<QAction> action;
    };

    explicit CCommandPalette(QWidget* parent = nullptr);

    /// Begins anew with these, and an empty search.
    void setCommands(const QVector<SCommand>& commands);

    /// What is listed now, in its order.
    QStringList texts() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void search();
    void addItem(const SCommand& command, int number);
    void trigger();
    void retranslate();

    QVector<SCommand> m_commands;
    QLineEdit* const m_search;
    QListWidget* const m_list;
};

/// The actions of the menus in \a menus and below, those that a person can see, in their order.
QVector<CCommandPalette::SCommand> commandsOf(const QList<QAction*>& menus, const QString& parentMenu = {});

} // namespace Host
