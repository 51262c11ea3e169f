// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CLineReader.h"

#include <unistd.h>

namespace Host {

CLineReader::CLineReader(std::FILE* stream)
    : m_notifier(fileno(stream), QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &CLineReader::read);
    // A shell stops whatever reads the terminal from the background.
    const bool isInBackground = isatty(fileno(stream)) == 1 && tcgetpgrp(fileno(stream)) != getpgrp();
    m_notifier.setEnabled(!isInBackground);
}

void CLineReader::read()
{
    char bytes[4096];
    const auto got = ::read(int(m_notifier.socket()), bytes, sizeof bytes);
    if (got <= 0) {
        m_notifier.setEnabled(false);
        return;
    }
    m_rest.append(bytes, int(got));
    for (int end = m_rest.indexOf('\n'); end >= 0; end = m_rest.indexOf('\n')) {
        const QString line = QString::fromUtf8(m_rest.left(end)).trimmed();
        m_rest.remove(0, end + 1);
        if (!line.isEmpty())
            Q_EMIT lineRead(line);
    }
}

} // namespace Host
