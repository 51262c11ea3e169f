// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/support/Reports_p.h"

#include <QMutex>
#include <QMutexLocker>
#include <QSet>

namespace Plugin::Halvex {
namespace {

/// "halvex.usage": what looks like a mistake of whoever uses the library.
Q_LOGGING_CATEGORY(lcUsage, "halvex.usage")

bool isFirstTime(const QString& text)
{
    constexpr int most = 1000;
    static QMutex mutex;
    static QSet<QString> told;
    // Survives removed statement: only the race detector sees it.
    const QMutexLocker lock(&mutex);
    if (told.size() == most || told.contains(text))
        return false;
    told.insert(text);
    return true;
}

} // namespace

void warnOnceWith(const char* text, const QStringList& insertions)
{
    if (!lcUsage().isWarningEnabled())
        return;
    QString said;
    auto next = insertions.cbegin();
    const QString all = QString::fromUtf8(text);
    for (const QChar sign : all) {
        if (sign != QLatin1Char('%')) {
            said += sign;
            continue;
        }
        Q_ASSERT(next != insertions.cend());
        said += *next++;
    }
    if (isFirstTime(said))
        qCWarning(lcUsage, "%s", qUtf8Printable(said));
}

} // namespace Plugin::Halvex
