// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/Output.h"

#include "host/base/InputFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace Host {

namespace {

// A device that fills up takes a part first and tells the reason when it is asked to take the rest.
bool writeAll(QFileDevice& out, const QByteArray& bytes)
{
    qint64 done = 0;
    while (done < bytes.size()) {
        const qint64 taken = out.write(bytes.constData() + done, bytes.size() - done);
        if (taken <= 0)
            return false;
        done += taken;
    }
    return true;
}

bool printBytes(const QByteArray& bytes)
{
    return std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), stdout) == std::size_t(bytes.size()) &&
           std::fflush(stdout) == 0;
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
    if (out.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered) && writeAll(out, bytes))
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
    if (!out.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !writeAll(out, bytes))
        return failure(out.errorString());
    return out.commit() ? QString() : failure(out.errorString());
}

QString writeOutput(const QString& file, const QByteArray& bytes)
{
    if (!isStandardStream(file))
        return replaceFile(file, bytes);
    if (printBytes(bytes))
        return {};
    return QStringLiteral("cannot write to standard output: %1").arg(QString::fromLocal8Bit(std::strerror(errno)));
}

bool printText(const QString& text)
{
    return printBytes(text.toUtf8());
}

void printErrorLine(const QString& text)
{
    std::fprintf(stderr, "halvex-host: %s\n", text.toUtf8().constData());
}

} // namespace Host
