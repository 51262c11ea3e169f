// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>

inline QByteArray content(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

inline bool write(const QString& name, const QByteArray& bytes)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

inline QStringList pngFiles(const QString& folder)
{
    return QDir(folder).entryList({"*.png"}, QDir::Files, QDir::Name);
}
