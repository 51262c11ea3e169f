// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QDialog>
#include <QVector>

class QLineEdit;
class QListView;
class QSortFilterProxyModel;

namespace Host {

class CCommandModel;
struct SCommand;

/**
 * All that the program can do, to be found by words and done by keyboard: each word that is typed stands somewhere in
 * the text of an action or of its menu.
 *
 * \code
 * CCommandPalette palette(window);
 * palette.setCommands(commandsOf(window->menuBar()->actions()));
 * palette.exec();
 * \endcode
 *
 * Enter, or a click, closes it and triggers the action; Escape closes it.
 */
class CCommandPalette : public QDialog
{
    Q_OBJECT

public:
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
    void trigger();
    void retranslate();

    CCommandModel* const m_commands;
    QSortFilterProxyModel* const m_found;
    QLineEdit* const m_search;
    QListView* const m_list;
};

} // namespace Host
