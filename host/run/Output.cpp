// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/Output.h"

#include <QFile>

#include <cstdio>
#include <filesystem>

namespace Host {

QString makeFolder(const QString& folder)
{
    std::error_code error;
    std::filesystem::create_directories(QFile::encodeName(folder).toStdString(), error);
    if (!error)
        return {};
    return QStringLiteral("cannot make the folder '%1': %2").arg(folder, QString::fromStdString(error.message()));
}

QString writeTextFile(const QString& file, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    QFile out(file);
    if (out.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered) &&
        out.write(bytes) == bytes.size())
        return {};
    return QStringLiteral("cannot write '%1': %2").arg(file, out.errorString());
}

bool printText(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    return std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), stdout) == std::size_t(bytes.size()) &&
           std::fflush(stdout) == 0;
}

void printErrorLine(const QString& text)
{
    std::fprintf(stderr, "halvex-host: %s\n", text.toUtf8().constData());
}

} // namespace Host
