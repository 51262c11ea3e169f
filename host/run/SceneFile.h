// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QJsonDocument>
#include <QJsonObject>
#include <QString>

namespace Host {

/// What \a file holds, "-" for standard input, at most 64 MiB. On failure one line in \a error that names the file and
/// the reason.
QByteArray readDocument(const QString& file, QString* error);

/// What \a bytes, read from \a file, say. If they are no JSON, one line in \a error that names the file, the reason
/// and the place in it.
QJsonDocument parseDocument(const QString& file, const QByteArray& bytes, QString* error);

/// The JSON object that \a file holds, at most 64 MiB. On failure an empty one, and in \a error one line that names
/// the file, the reason and the place in it.
QJsonObject readSceneFile(const QString& file, QString* error);

/// What keeps two scene documents from being the same scene: the first object that only one of them has, in one
/// line. Empty when they are the same but for the order of nodes and connections, and for the ids of unique nodes,
/// which go by their unique names.
QString sceneDifference(const QJsonObject& left, const QJsonObject& right);

/// Compares two files, says on standard output what came of it and returns the exit code: 0 for the same scene,
/// 1 for different ones, 2, with a line on standard error, when a file cannot be read.
int compareSceneFiles(const QString& left, const QString& right);

} // namespace Host
