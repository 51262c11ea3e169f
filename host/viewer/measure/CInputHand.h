// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <atomic>
#include <thread>

namespace Host {

/**
 * A hand on mouse and keyboard of one widget: fifty times a second, from a thread of its own, it moves, turns the wheel
 * or presses an arrow key, as a window system sends these, and notes how long each has waited for the main thread.
 *
 * Threads: the widget's; the destructor ends the other.
 */
class CInputHand : public QObject
{
    Q_OBJECT

public:
    explicit CInputHand(QWidget& widget);
    ~CInputHand() override;

    /// From the moment that an input was sent until the widget was done with it, in milliseconds.
    double longest() const { return m_longest; }
    int count() const { return m_count; }

protected:
    void customEvent(QEvent* event) override;

private:
    void act();

    const QPointer<QWidget> m_widget;
    double m_longest = 0.0;
    int m_count = 0;
    std::atomic<bool> m_isEnding{false}; // says only that, any order would do: join() orders the rest
    std::thread m_thread;
};

} // namespace Host
