// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/Output.h"

#include "host/base/InputFile.h"
#include "host/base/WriteAll.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

namespace Host {

namespace {

QString lastError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

QString printBytes(const QByteArray& bytes)
{
    const auto size = std::size_t(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0)
        return {};
    return QStringLiteral("cannot write to standard output: %1").arg(lastError());
}

QString failure(const QString& file, const QString& reason)
{
    return QCoreApplication::translate("Host::Output", "cannot write '%1': %2").arg(file, reason);
}

QString writeInto(const QString& file, const QByteArray& bytes)
{
    QFile out(file);
    if (out.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered) &&
        writeAll(out, bytes.constData(), std::size_t(bytes.size())))
        return {};
    return failure(file, out.errorString());
}

// A pipe or a device, in whose place no file may be put.
bool isStream(const QString& file)
{
    const QFileInfo present(file);
    return present.exists() && !present.isFile() && !present.isDir();
}

} // namespace

QString makeFolder(const QString& folder)
{
    std::error_code error;
    std::filesystem::create_directories(QFile::encodeName(folder).toStdString(), error);
    if (!error)
        return {};
    return QCoreApplication::translate("Host::Output", "cannot make the folder '%1': %2")
        .arg(folder, QString::fromStdString(error.message()));
}

QString writeTextFile(const QString& file, const QString& text)
{
    return writeInto(file, text.toUtf8());
}

QString replaceFile(const QString& file, const QByteArray& bytes)
{
    // Renaming would put a file in the place of a device.
    const QFileInfo present(file);
    if (present.exists() && !present.isFile())
        return failure(file, QCoreApplication::translate("Host::Output", "Not a regular file"));
    QSaveFile out(file);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        !writeAll(out, bytes.constData(), std::size_t(bytes.size())))
        return failure(file, out.errorString());
    return out.commit() ? QString() : failure(file, out.errorString());
}

QString writeOutput(const QString& file, const QByteArray& bytes)
{
    if (isStandardStream(file))
        return printBytes(bytes);
    return isStream(file) ? writeInto(file, bytes) : replaceFile(file, bytes);
}

QString tryOutput(const QString& file)
{
    if (isStandardStream(file))
        return {};
    // A pipe that was opened and closed would have ended for its reader.
    if (isStream(file))
        return access(QFile::encodeName(file).constData(), W_OK) == 0 ? QString() : failure(file, lastError());
    QSaveFile trial(file);
    if (QFileInfo(file).isDir() || !trial.open(QIODevice::WriteOnly))
        return failure(file, QFileInfo(file).isDir() ? QStringLiteral("Is a directory") : trial.errorString());
    trial.cancelWriting();
    return {};
}

QString outputName(const QString& file)
{
    struct stat named = {};
    struct stat standard = {};
    const bool isStandard = stat(QFile::encodeName(file).constData(), &named) == 0 &&
                            fstat(STDOUT_FILENO, &standard) == 0 && named.st_dev == standard.st_dev &&
                            named.st_ino == standard.st_ino;
    return isStandard ? QStringLiteral("-") : file;
}

QString printText(const QString& text)
{
    return printBytes(text.toUtf8());
}

void printErrorLine(const QString& text)
{
    std::fprintf(stderr, "%s: %s\n", qUtf8Printable(QCoreApplication::applicationName()), text.toUtf8().constData());
}

} // namespace Host
