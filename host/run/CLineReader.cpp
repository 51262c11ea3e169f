// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CLineReader.h"

#include <cerrno>
#include <utility>

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
    // The notifier tells again when there is something to read.
    if (got < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (got <= 0) {
        m_notifier.setEnabled(false);
        takeLine(std::exchange(m_rest, {}));
        return;
    }
    m_rest.append(bytes, int(got));
    takeLines();
}

void CLineReader::takeLines()
{
    for (int end = m_rest.indexOf('\n'); end >= 0; end = m_rest.indexOf('\n')) {
        const QByteArray line = m_rest.left(end);
        m_rest.remove(0, end + 1);
        takeLine(line);
    }
    if (m_rest.size() <= mostBytes)
        return;
    takeLine(m_rest);
    m_isSkipped = true;
    m_rest.clear();
}

void CLineReader::takeLine(const QByteArray& bytes)
{
    if (std::exchange(m_isSkipped, false))
        return;
    const QString line = QString::fromUtf8(bytes).trimmed();
    if (bytes.size() > mostBytes)
        Q_EMIT lineLeftOut(line);
    else if (!line.isEmpty())
        Q_EMIT lineRead(line);
}

} // namespace Host
