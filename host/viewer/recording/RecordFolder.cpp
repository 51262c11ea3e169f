// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/recording/RecordFolder.h"

#include "host/base/FolderName.h"

#include <QDateTime>
#include <QDir>

namespace Host {

QString makeRecordFolder(const QString& parentFolder, const QString& name)
{
    const QDir parent(parentFolder);
    if (parentFolder.isEmpty() || !parent.mkpath(QStringLiteral(".")))
        return {};
    const QString time = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH-mm-ss"));
    const QString named = name + QLatin1Char(' ') + time;
    const QString first = !name.isEmpty() && makesAFolder(named) ? named : time;
    QString folder = first;
    for (int number = 2; parent.exists(folder); ++number)
        folder = QStringLiteral("%1 %2").arg(first).arg(number);
    return parent.mkdir(folder) ? parent.absoluteFilePath(folder) : QString();
}

} // namespace Host
