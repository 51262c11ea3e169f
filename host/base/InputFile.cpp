// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/InputFile.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

namespace Host {

namespace {

constexpr qint64 maxSize = qint64(64) * 1024 * 1024;

} // namespace

bool isStandardStream(const QString& file)
{
    return file == QLatin1String("-");
}

QString inputName(const QString& file)
{
    return isStandardStream(file) ? QStringLiteral("<stdin>") : file;
}

QByteArray readInput(const QString& file, QString* error)
{
    QFile in(file);
    const bool isOpen = isStandardStream(file) ? in.open(stdin, QIODevice::ReadOnly) : in.open(QIODevice::ReadOnly);
    // Not all at once: a device may have no end.
    QByteArray bytes = isOpen ? in.read(maxSize + 1) : QByteArray();
    if (!isOpen || in.error() != QFileDevice::NoError)
        *error = in.errorString();
    else if (bytes.size() > maxSize)
        *error = QCoreApplication::translate("Host::InputFile", "it is larger than 64 MiB");
    return bytes;
}

QByteArray readDocument(const QString& file, QString* error)
{
    QString reason;
    const QByteArray bytes = readInput(file, &reason);
    if (!reason.isEmpty())
        *error = QCoreApplication::translate("Host::InputFile", "cannot read '%1': %2").arg(inputName(file), reason);
    return bytes;
}

} // namespace Host
