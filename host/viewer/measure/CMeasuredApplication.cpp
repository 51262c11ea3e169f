// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/measure/CMeasuredApplication.h"

#include <QEvent>
#include <QWidget>

#include <algorithm>

namespace Host {

namespace {

bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return true;
    default:
        return false;
    }
}

double milliseconds(CMeasuredApplication::Clock::duration time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

} // namespace

void CMeasuredApplication::startMeasuring()
{
    m_intervals.clear();
    m_hasPicture = false;
    m_longestInput = 0.0;
    m_isMeasuring = true;
}

void CMeasuredApplication::endMeasuring()
{
    m_isMeasuring = false;
}

bool CMeasuredApplication::notify(QObject* receiver, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::UpdateRequest) {
        const bool isDone = QApplication::notify(receiver, event);
        const auto* const widget = qobject_cast<QWidget*>(receiver);
        if (widget && widget->isWindow())
            notePicture();
        return isDone;
    }
    if (m_isInput || !isInput(type))
        return QApplication::notify(receiver, event);
    m_isInput = true;
    const auto start = Clock::now();
    const bool isDone = QApplication::notify(receiver, event);
    m_longestInput = std::max(m_longestInput, milliseconds(Clock::now() - start));
    m_isInput = false;
    return isDone;
}

void CMeasuredApplication::notePicture()
{
    const auto now = Clock::now();
    if (m_hasPicture && m_isMeasuring)
        m_intervals.push_back(milliseconds(now - m_lastPicture));
    m_lastPicture = now;
    m_hasPicture = true;
    Q_EMIT painted();
}

} // namespace Host
