// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QDebug>
#include <QLoggingCategory>
#include <QThread>

#include <atomic>
#include <exception>

namespace Plugin::Halvex {

/// "halvex.graph": what the engine has to say beyond the messages that its operations define.
inline const QLoggingCategory& lcGraph()
{
    static const QLoggingCategory category("halvex.graph");
    return category;
}

/// Runs \a work, which calls foreign code, where nothing may be thrown. What it throws is reported to \a category
/// under the name \a where. Returns whether the work came to its end.
template <typename Work>
bool swallowExceptions(const QLoggingCategory& (*category)(), const char* where, Work&& work) noexcept
{
    try {
        work();
        return true;
    } catch (const std::exception& exception) {
        qCWarning(category, "%s ended with an exception: %s", where, exception.what());
    } catch (...) {
        qCWarning(category, "%s ended with an exception of unknown type", where);
    }
    return false;
}

/// What warnOnce() does, with its insertions in a list.
void warnOnceWith(const char* text, const QStringList& insertions);

/// Warns in "halvex.usage" of a mistake of whoever uses the library. Each "%" in \a text stands for the next of
/// \a insertions, of which there are as many. Once for each text, and of the first thousand only, so that one that is
/// made with each frame fills neither the log nor the memory. The message handler is foreign code.
template <typename... Strings>
void warnOnce(const char* text, const Strings&... insertions)
{
    QStringList all;
    (all.append(insertions), ...);
    warnOnceWith(text, all);
}

/// Warns, if this is the first time for \a hasWarned, that \a operation of \a object is not called in its thread. Of
/// several threads that do so at once one warns.
inline void warnIfInOtherThread(const QObject& object, const char* operation, std::atomic<bool>& hasWarned)
{
    if (object.thread() == QThread::currentThread() || hasWarned.exchange(true))
        return;
    QString text;
    QDebug(&text).nospace() << operation << "() of " << &object << " is called in " << QThread::currentThread()
                            << ", but belongs to " << object.thread();
    qCWarning(lcGraph, "%s", qUtf8Printable(text));
}

} // namespace Plugin::Halvex

/// The first line of an operation of a QObject. Where Q_ASSERT asserts, it warns in "halvex.graph" of a call from
/// another thread than the object's, once for each operation, and the call goes on. Elsewhere it is nothing.
#if defined(QT_NO_DEBUG) && !defined(QT_FORCE_ASSERTS)
#define HALVEX_WARN_IF_IN_OTHER_THREAD() static_cast<void>(0)
#else
#define HALVEX_WARN_IF_IN_OTHER_THREAD()                                                                               \
    do {                                                                                                               \
        static std::atomic<bool> hasWarned{false};                                                                     \
        warnIfInOtherThread(*this, static_cast<const char*>(__func__), hasWarned);                                     \
    } while (false)
#endif
