// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QMutex>
#include <QMutexLocker>
#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <functional>

/// Catches Qt's messages while it lives. One at a time.
class CMessageCatcher
{
public:
    CMessageCatcher()
    {
        s_current = this;
        m_previous = qInstallMessageHandler(&CMessageCatcher::handle);
    }
    ~CMessageCatcher()
    {
        qInstallMessageHandler(m_previous);
        s_current = nullptr;
    }
    Q_DISABLE_COPY(CMessageCatcher)

    /// The texts caught so far; with a category, those of that category.
    QStringList texts(const char* category = nullptr) const
    {
        const QMutexLocker lock(&m_mutex);
        QStringList found;
        for (const SMessage& message : m_messages) {
            if (!category || message.category == QLatin1String(category))
                found << message.text;
        }
        return found;
    }

    std::function<void()> onMessage; ///< What the handler does besides.

private:
    struct SMessage
    {
        QString category;
        QString text;
    };

    static void handle(QtMsgType, const QMessageLogContext& context, const QString& text)
    {
        {
            const QMutexLocker lock(&s_current->m_mutex);
            s_current->m_messages.append({QString::fromLatin1(context.category), text});
        }
        if (s_current->onMessage)
            s_current->onMessage();
    }

    mutable QMutex m_mutex;
    QList<SMessage> m_messages;
    QtMessageHandler m_previous = nullptr;
    static inline CMessageCatcher* s_current = nullptr;
};
