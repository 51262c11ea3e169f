// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/WriteFile.h"

#include <QFile>

#include <filesystem>
#include <system_error>

namespace Host {

namespace {

// A disk that fills up takes a part first and tells the reason when it is asked to take the rest.
bool writeAll(QFile& file, const char* bytes, std::size_t size)
{
    std::size_t done = 0;
    while (done < size) {
        const qint64 taken = file.write(bytes + done, qint64(size - done));
        if (taken <= 0)
            return false;
        done += std::size_t(taken);
    }
    return true;
}

} // namespace

QString renameFile(const QString& from, const QString& to)
{
    std::error_code error; // QFile does not replace files
    std::filesystem::rename(QFile::encodeName(from).toStdString(), QFile::encodeName(to).toStdString(), error);
    return error ? QString::fromStdString(error.message()) : QString();
}

QString writeFile(const QString& name, const void* bytes, std::size_t size)
{
    const QString partName = name + QStringLiteral(".part");
    QFile part(partName);
    if (!part.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        return part.errorString();
    QString reason;
    if (!writeAll(part, static_cast<const char*>(bytes), size))
        reason = part.errorString();
    part.close();
    if (reason.isEmpty())
        reason = renameFile(partName, name);
    if (!reason.isEmpty())
        QFile::remove(partName);
    return reason;
}

} // namespace Host
