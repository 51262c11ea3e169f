// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QEvent>
#include <QWidget>

namespace Host {

/// For the event filter of a field in a panel that scrolls: turning the wheel over the panel scrolls it, only a field
/// that was chosen takes it. Whether \a event is for the panel, so that \a field is not to get it.
inline bool isWheelForPanel(const QWidget& field, QEvent* event)
{
    if (event->type() != QEvent::Wheel || field.hasFocus())
        return false;
    event->ignore();
    return true;
}

} // namespace Host
