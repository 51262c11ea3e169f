// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/CFrameTable.h"

#include "host/models/FrameInfo.h"

#include <QDateTime>
#include <QFileInfo>
#include <QRegularExpression>

namespace Host {

namespace {

// "2026-11-22T11:40:05.123456Z". Frames are timed by a clock that nobody sets; the way from it to the time of day is
// asked for once, so that setting that one does not move frames.
QByteArray timeOfDay(std::chrono::steady_clock::time_point time)
{
    using namespace std::chrono;
    static const auto way = system_clock::now().time_since_epoch() - steady_clock::now().time_since_epoch();
    const qint64 us = duration_cast<microseconds>(time.time_since_epoch() + way).count();
    const QDateTime seconds = QDateTime::fromSecsSinceEpoch(us / 1000000, Qt::UTC);
    return seconds.toString(QStringLiteral("yyyy-MM-ddThh:mm:ss")).toLatin1() + '.' +
           QByteArray::number(us % 1000000).rightJustified(6, '0') + 'Z';
}

// A name with a comma, a quote or a line break stands in quotes, those within it twice.
QByteArray quoted(const QString& name)
{
    static const QRegularExpression special(QStringLiteral("[\",\\r\\n]"));
    if (!name.contains(special))
        return name.toUtf8();
    return '"' + QString(name).replace(QLatin1Char('"'), QLatin1String("\"\"")).toUtf8() + '"';
}

QByteArray row(const QString& file, const SFrameInfo& info)
{
    return QFileInfo(file).fileName().toUtf8() + ',' + QByteArray::number(info.frameNumber) + ',' +
           QByteArray::number(info.timestampNs) + ',' + timeOfDay(info.grabbed) + ',' + quoted(info.source) + '\n';
}

} // namespace

QString CFrameTable::fileName()
{
    return QStringLiteral("frames.csv");
}

QString CFrameTable::add(const QString& file, const Plugin::Halvex::CNodeData& frame)
{
    const QString name = QFileInfo(file).path() + QLatin1Char('/') + fileName();
    const QByteArray line = row(file, frameInfo(frame));
    if ((m_table.fileName() == name || open(name)) && m_table.write(line) == line.size())
        return {};
    return tr("cannot write '%1': %2").arg(name, m_table.errorString());
}

bool CFrameTable::open(const QString& name)
{
    m_table.close();
    m_table.setFileName(name);
    const QByteArray header = "file,frame,timestamp_ns,grabbed_utc,source\n";
    return m_table.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered) &&
           m_table.write(header) == header.size();
}

} // namespace Host
