// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CTraceFile.h"

#include "host/base/InputFile.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cstdio>

namespace Host {

CTraceFile::CTraceFile(const QString& file)
    : m_name(file)
    , m_file(file)
{
}

QString CTraceFile::open()
{
    const bool isOpen = isStandardStream(m_name) ? m_file.open(stdout, QIODevice::WriteOnly)
                                                 : m_file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    return isOpen ? QString() : failure();
}

QString CTraceFile::failure() const
{
    return isStandardStream(m_name) ? QStringLiteral("cannot write to standard output: %1").arg(m_file.errorString())
                                    : QStringLiteral("cannot write '%1': %2").arg(m_name, m_file.errorString());
}

QString CTraceFile::close()
{
    const Time now = std::chrono::steady_clock::now();
    const std::map<SRow, int> rows = m_open;
    for (const auto& row : rows) {
        for (int i = 0; i < row.second; ++i)
            endSlice(row.first, now);
    }
    if (!m_file.isOpen())
        return m_error;
    if (m_error.isEmpty() && (m_file.write(m_isFirst ? "[]\n" : "\n]\n") < 0 || !m_file.flush()))
        m_error = failure();
    m_file.close();
    return m_error;
}

void CTraceFile::addProcess(int process, const QString& name)
{
    writeName("process_name", {process, 0}, name);
}

void CTraceFile::addRow(SRow row, const QString& name)
{
    writeName("thread_name", row, name);
    // Rows stand in the order of their numbers, and not of their names.
    write(R"({"ph":"M","name":"thread_sort_index","pid":)" + QByteArray::number(row.process) +
          ",\"tid\":" + QByteArray::number(row.row) + R"(,"args":{"sort_index":)" + QByteArray::number(row.row) + "}}");
}

void CTraceFile::writeName(const char* what, SRow row, const QString& name)
{
    write(QByteArray(R"({"ph":"M","name":")") + what + R"(","pid":)" + QByteArray::number(row.process) +
          ",\"tid\":" + QByteArray::number(row.row) + R"(,"args":{"name":")" + quoted(name) + "\"}}");
}

void CTraceFile::addSlice(SRow row, const QByteArray& name, Time begin, Time end)
{
    beginSlice(row, name, begin);
    endSlice(row, end);
}

void CTraceFile::beginSlice(SRow row, const QByteArray& name, Time time)
{
    ++m_open[row];
    write(head('B', row, time) + ",\"name\":\"" + name + "\"}");
}

void CTraceFile::endSlice(SRow row, Time time)
{
    Q_ASSERT(m_open[row] > 0);
    --m_open[row];
    write(head('E', row, time) + '}');
}

void CTraceFile::addFlow(EFlow step, SRow row, Time time, const QByteArray& category, const QByteArray& name,
                         quint64 id)
{
    // The end belongs to the slice around it, as the others do anyway.
    write(head(char(step), row, time) + ",\"cat\":\"" + category + "\",\"name\":\"" + name +
          "\",\"id\":" + QByteArray::number(id) + (step == EFlow::End ? ",\"bp\":\"e\"}" : "}"));
}

QByteArray CTraceFile::quoted(const QString& text)
{
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return array.mid(2, array.size() - 4);
}

QByteArray CTraceFile::head(char phase, SRow row, Time time) const
{
    const double us = std::chrono::duration<double, std::micro>(time - m_start).count();
    return QByteArray("{\"ph\":\"") + phase + "\",\"pid\":" + QByteArray::number(row.process) +
           ",\"tid\":" + QByteArray::number(row.row) + ",\"ts\":" + QByteArray::number(us, 'f', 3);
}

void CTraceFile::write(const QByteArray& event)
{
    if (!m_file.isOpen() || !m_error.isEmpty())
        return;
    if (m_file.write((m_isFirst ? "[\n" : ",\n") + event) < 0)
        m_error = failure();
    m_isFirst = false;
}

} // namespace Host
