// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/SRunOptions.h"

#include "host/base/RealPath.h"
#include "host/sources/CImageFiles.h"

namespace Host {

SNodeSetting SNodeSetting::read(const QString& text)
{
    const int sign = text.indexOf(QLatin1Char('='));
    const QString place = text.left(sign).trimmed();
    const int dot = place.lastIndexOf(QLatin1Char('.'));
    if (sign < 0 || dot < 1)
        return {};
    return {place.left(dot).trimmed(), place.mid(dot + 1).trimmed(), text.mid(sign + 1).trimmed()};
}

QStringList SRunOptions::writtenFiles() const
{
    QStringList written = documents();
    written.removeAll(QString());
    written.removeAll(QStringLiteral("-"));
    return written;
}

QStringList SRunOptions::filesInUse() const
{
    QStringList used;
    for (const SFileOptions& each : files)
        used << (each.kind == SFileOptions::EKind::Images ? CImageFiles::find(each.place) : QStringList(each.place));
    return used + writtenFiles();
}

QString SRunOptions::sharedFile() const
{
    QStringList used;
    const QStringList read = chains + QStringList(save == load ? QString() : load);
    for (const QString& file : read)
        used << realPath(file);
    for (const SFileOptions& each : files)
        used << realPath(each.place);
    const QStringList written = writtenFiles();
    for (const QString& file : written) {
        if (used.contains(realPath(file)))
            return file;
        used << realPath(file);
    }
    return {};
}

std::vector<SourceOptions> SRunOptions::sources() const
{
    std::vector<SourceOptions> all(cameras.begin(), cameras.end());
    all.insert(all.end(), files.begin(), files.end());
    return all;
}

} // namespace Host
