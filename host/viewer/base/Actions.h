// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QAction>
#include <QKeySequence>
#include <QString>

#include <utility>

namespace Host {

/// An action of \a parent, which owns it, without a text: a widget's retranslate() gives it one.
inline QAction* makeAction(QObject* parent, const char* name, const QKeySequence& shortcut)
{
    auto* const action = new QAction(parent);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(shortcut);
    return action;
}

/// The same; \a slot of \a parent is what it does.
template <typename Receiver, typename Slot>
QAction* makeAction(Receiver* parent, const char* name, const QKeySequence& shortcut, Slot slot)
{
    QAction* const action = makeAction(parent, name, shortcut);
    QObject::connect(action, &QAction::triggered, parent, std::move(slot));
    return action;
}

} // namespace Host
