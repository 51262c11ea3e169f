// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/WriteFile.h"

#include "host/base/WriteAll.h"

#include <QFile>

#include <filesystem>
#include <system_error>

namespace Host {

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
    if (!writeAll(part, bytes, size))
        reason = part.errorString();
    part.close();
    if (reason.isEmpty())
        reason = renameFile(partName, name);
    if (!reason.isEmpty())
        QFile::remove(partName);
    return reason;
}

} // namespace Host
