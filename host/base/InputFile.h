// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QByteArray>
#include <QString>

namespace Host {

/// Whether \a file is "-": standard input where something is read, standard output where something is written.
bool isStandardStream(const QString& file);

/// How messages name a file that is read: "<stdin>" for "-".
QString inputName(const QString& file);

/// What \a file holds, at most 64 MiB. On failure the reason in \a error, which does not name the file.
QByteArray readInput(const QString& file, QString* error);

/// What \a file holds, as readInput() reads it. On failure one line in \a error that names the file.
QByteArray readDocument(const QString& file, QString* error);

} // namespace Host
