// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "sequences/CEventLog.h"

namespace Sequences {

QString textOf(const SEvent& event)
{
    static const char* const formats[] = {"added %1",
                                          "active %1",
                                          "removing %1",
                                          "removed",
                                          "%1 created %2",
                                          "%1 deleted %2",
                                          "%1 connected %2: %3-%4",
                                          "%1 disconnected %2: %3-%4",
                                          "%2 shows %3",
                                          "%2 asked at %4 for",
                                          "%2 received %3 at %4",
                                          "%2 gone",
                                          "connection %2 gone",
                                          "visited %2",
                                          "saved",
                                          "saved a connection",
                                          "= %2"};
    QString text = formats[std::size_t(event.event)];
    text.replace("%1", QString::number(event.scene));
    text.replace("%2", QString::number(event.object));
    text.replace("%3", QString::number(event.first));
    text.replace("%4", QString::number(event.second));
    for (const int number : event.list)
        text += ' ' + QString::number(number);
    return event.isLate ? text + " (late)" : text;
}

QStringList CEventLog::texts() const
{
    QStringList texts;
    for (const SEvent& event : m_events)
        texts << textOf(event);
    return texts;
}

} // namespace Sequences
