// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QList>
#include <QObject>

#include <functional>
#include <vector>

class QAction;
class QKeySequence;

namespace Host {

class CGraphView;

/// What a person can do with a graph, as actions of its view, with texts, shortcuts and object names.
class CGraphActions : public QObject
{
    Q_OBJECT

public:
    /// \a view owns the actions.
    explicit CGraphActions(CGraphView& view);

    QList<QAction*> actions() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void add(const char* name, const QKeySequence& shortcut, const std::function<void()>& run);
    void addEdits();
    void addViews();
    void updateEnabled();
    void remove();
    void copy();
    void paste();
    void duplicate();
    void selectAll();
    QAction* find(const char* name) const;
    void retranslate();

    CGraphView& m_view;
    QList<QAction*> m_actions;
};

} // namespace Host
