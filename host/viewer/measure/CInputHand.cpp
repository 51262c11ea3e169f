// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/measure/CInputHand.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <chrono>

namespace Host {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds interval{20};

class CSentEvent : public QEvent
{
public:
    CSentEvent()
        : QEvent(QEvent::User)
    {
    }

    const Clock::time_point sent = Clock::now();
};

} // namespace

CInputHand::CInputHand(QWidget& widget)
    : m_widget(&widget)
    , m_thread([this] {
        while (!m_isEnding) {
            QCoreApplication::postEvent(this, new CSentEvent);
            std::this_thread::sleep_for(interval);
        }
    })
{
}

CInputHand::~CInputHand()
{
    m_isEnding = true;
    m_thread.join();
}

void CInputHand::customEvent(QEvent* event)
{
    if (!m_widget)
        return;
    const Clock::time_point sent = static_cast<CSentEvent*>(event)->sent;
    act();
    ++m_count;
    m_longest = std::max(m_longest, std::chrono::duration<double, std::milli>(Clock::now() - sent).count());
}

void CInputHand::act()
{
    const QPoint middle = m_widget->rect().center();
    const QPoint place = middle + QPoint(m_count % 200 - 100, m_count % 60 - 30);
    constexpr int inputs = 10;
    if (m_count % inputs == 0) {
        // As often in as out, so that all zooms come.
        const int turn = m_count / inputs % 12 < 6 ? 120 : -120;
        QWheelEvent wheel(place, m_widget->mapToGlobal(place), {}, {0, turn}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(m_widget, &wheel);
    } else if (m_count % inputs == inputs / 2) {
        const Qt::Key key = m_count / inputs % 2 == 0 ? Qt::Key_Right : Qt::Key_Left;
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent press(type, key, Qt::NoModifier);
            QCoreApplication::sendEvent(m_widget, &press);
        }
    } else {
        QMouseEvent move(QEvent::MouseMove, place, m_widget->mapToGlobal(place), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(m_widget, &move);
    }
}

} // namespace Host
