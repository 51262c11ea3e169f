// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QEvent>
#include <QWheelEvent>
#include <QWidget>

namespace Host {

/// Where the pointer was when the wheel was turned, in the widget that hears of it.
inline QPointF pointerOf(const QWheelEvent& event)
{
#if QT_VERSION < QT_VERSION_CHECK(5, 14, 0)
    return event.posF();
#else
    return event.position();
#endif
}

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
