// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CHostProgram.h"

#include <QRegularExpression>

CHostProgram::~CHostProgram()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished();
}

void CHostProgram::start(const QStringList& arguments)
{
    m_process.start(QStringLiteral(HOST_PROGRAM), arguments);
}

QString CHostProgram::errorsUpToNow()
{
    m_process.waitForReadyRead(10);
    m_errors += QString::fromUtf8(m_process.readAllStandardError());
    return m_errors;
}

bool CHostProgram::waitForEnd()
{
    const bool ended = m_process.state() == QProcess::NotRunning || m_process.waitForFinished(60000);
    m_output += QString::fromUtf8(m_process.readAllStandardOutput());
    m_errors += QString::fromUtf8(m_process.readAllStandardError());
    return ended && m_process.exitStatus() == QProcess::NormalExit;
}

bool CHostProgram::run(const QStringList& arguments)
{
    start(arguments);
    return waitForEnd();
}

QStringList CHostProgram::errorLines() const
{
    QStringList lines = m_errors.split(QLatin1Char('\n'));
    lines.removeAll(QString());
    return lines;
}

bool CHostProgram::choose(const QString& camera)
{
    const QStringList parts = m_output.split(QStringLiteral("Graph\n"));
    const QStringList found = parts.filter(QStringLiteral(" (%1), ").arg(camera));
    m_chosen = found.value(0);
    return found.size() == 1;
}

QStringList CHostProgram::frameLine() const
{
    static const QRegularExpression line(
        QStringLiteral("^Frames grabbed +(\\d+) = (\\d+) complete \\+ (\\d+) incomplete$"),
        QRegularExpression::MultilineOption);
    QStringList numbers = line.match(table()).capturedTexts();
    if (numbers.size() != 4 || numbers.at(1).toInt() != numbers.at(2).toInt() + numbers.at(3).toInt())
        return {};
    return numbers;
}

int CHostProgram::completeFrames() const
{
    const QStringList numbers = frameLine();
    return numbers.isEmpty() ? -1 : numbers.at(2).toInt();
}

int CHostProgram::incompleteFrames() const
{
    const QStringList numbers = frameLine();
    return numbers.isEmpty() ? -1 : numbers.at(3).toInt();
}

double CHostProgram::framesPerSecond() const
{
    static const QRegularExpression line(QStringLiteral("^Frames per second +([\\d.]+)$"),
                                         QRegularExpression::MultilineOption);
    return line.match(table()).captured(1).toDouble();
}

std::map<QString, CHostProgram::SSink> CHostProgram::sinks() const
{
    static const QRegularExpression row(QStringLiteral("^(\\w+) +(\\d+) +[\\d.]+ ms +[\\d.]+ ms +(\\d+)  "),
                                        QRegularExpression::MultilineOption);
    const QString text = table();
    std::map<QString, SSink> sinks;
    for (auto rows = row.globalMatch(text); rows.hasNext();) {
        const QRegularExpressionMatch match = rows.next();
        sinks[match.captured(1)] = {match.captured(2).toInt(), match.captured(3).toInt()};
    }
    return sinks;
}

std::vector<CHostProgram::SDecoupler> CHostProgram::decouplers() const
{
    static const QRegularExpression row(
        QStringLiteral("^\\[\\d+\\] Decoupler for VGR +[\\d.]+ +(\\d+) +(\\d+) +(\\d+) +(\\d+) +(\\d+)$"),
        QRegularExpression::MultilineOption);
    const QString text = table();
    std::vector<SDecoupler> decouplers;
    for (auto rows = row.globalMatch(text); rows.hasNext();) {
        const QRegularExpressionMatch match = rows.next();
        const auto count = [&match](int column) { return match.captured(column).toInt(); };
        decouplers.push_back({count(1), count(2), count(3), count(4), count(5)});
    }
    return decouplers;
}

bool CHostProgram::addsUp() const
{
    const std::vector<SDecoupler> all = decouplers();
    std::map<QString, SSink> got = sinks();
    if (all.size() != 1 || got.size() != 4 || completeFrames() < 0)
        return false;
    const SDecoupler& one = all.front();
    bool isEqual = got["frames"].delivered == completeFrames() && one.received == completeFrames() &&
                   one.received == one.emitted + one.dropped + one.cancelled + one.pending && one.pending == 0;
    for (const char* preview : {"threshold", "edges", "histogram"})
        isEqual = isEqual && got[preview].delivered == one.emitted;
    return isEqual;
}
