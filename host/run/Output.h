// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

namespace Host {

/// Makes the folder and those above it; one that exists is fine. Returns the error, empty on success.
QString makeFolder(const QString& folder);

/// Replaces the contents of the file. Returns the error, empty on success.
QString writeTextFile(const QString& file, const QString& text);

/// Replaces the file by one that is written beside it and then renamed: whatever happens meanwhile, under that name
/// is the old file or the new one, complete. Returns the error, empty on success.
QString replaceFile(const QString& file, const QByteArray& bytes);

/// Replaces \a file as replaceFile() does, or writes into what is no regular file, such as a pipe or a device; "-" is
/// standard output. Returns the error, empty on success.
QString writeOutput(const QString& file, const QByteArray& bytes);

/// Whether writeOutput() could write to \a file now, as far as that can be known. Nothing is changed: neither a file
/// that is there, nor what waits at the other end of a pipe. Returns the error, empty on success.
QString tryOutput(const QString& file);

/// \a file, or "-" if it is another name of what standard output leads to, such as "/dev/stdout".
QString outputName(const QString& file);

/// On standard output, completely. Returns the error, empty on success.
QString printText(const QString& text);

/// On standard error, behind the program's name.
void printErrorLine(const QString& text);

} // namespace Host
