// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/Output.h"

#include "host/base/InputFile.h"
#include "host/base/WriteAll.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace Host {

namespace {

QString printBytes(const QByteArray& bytes)
{
    const auto size = std::size_t(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0)
        return {};
    return QStringLiteral("cannot write to standard output: %1").arg(QString::fromLocal8Bit(std::strerror(errno)));
}

} // namespace

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
        writeAll(out, bytes.constData(), std::size_t(bytes.size())))
        return {};
    return QStringLiteral("cannot write '%1': %2").arg(file, out.errorString());
}

QString replaceFile(const QString& file, const QByteArray& bytes)
{
    const auto failure = [&file](const QString& reason) {
        return QStringLiteral("cannot write '%1': %2").arg(file, reason);
    };
    // Renaming would put a file in the place of a device.
    const QFileInfo present(file);
    if (present.exists() && !present.isFile())
        return failure(QStringLiteral("Not a regular file"));
    QSaveFile out(file);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        !writeAll(out, bytes.constData(), std::size_t(bytes.size())))
        return failure(out.errorString());
    return out.commit() ? QString() : failure(out.errorString());
}

QString writeOutput(const QString& file, const QByteArray& bytes)
{
    return isStandardStream(file) ? printBytes(bytes) : replaceFile(file, bytes);
}

QString printText(const QString& text)
{
    return printBytes(text.toUtf8());
}

void printErrorLine(const QString& text)
{
    std::fprintf(stderr, "halvex-host: %s\n", text.toUtf8().constData());
}

} // namespace Host
