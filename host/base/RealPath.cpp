// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/RealPath.h"

#include <QDir>
#include <QFileInfo>

namespace Host {

QString realPath(const QString& path)
{
    const QFileInfo file(QDir::cleanPath(path));
    // A pipe has a name in "/dev/fd", and no path behind it.
    if (file.exists())
        return file.canonicalFilePath().isEmpty() ? file.absoluteFilePath() : file.canonicalFilePath();
    const QFileInfo folder(file.path());
    return folder.exists() ? folder.canonicalFilePath() + QLatin1Char('/') + file.fileName() : file.absoluteFilePath();
}

} // namespace Host
