// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QFile>
#include <QString>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

/// A file that a sink cannot get done with before release(): who opens it waits for a reader. What is written must be
/// less than a pipe holds. It is to go after the writer is done.
class CBlockedFile
{
public:
    explicit CBlockedFile(const QString& file)
        : m_part(QFile::encodeName(file + QStringLiteral(".part")))
    {
        if (::mkfifo(m_part.constData(), 0600) != 0)
            qFatal("cannot make %s", m_part.constData());
    }
    ~CBlockedFile()
    {
        release();
        ::close(m_reader);
    }
    Q_DISABLE_COPY(CBlockedFile)

    void release()
    {
        if (m_reader < 0)
            m_reader = ::open(m_part.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    }

private:
    const QByteArray m_part;
    int m_reader = -1;
};
