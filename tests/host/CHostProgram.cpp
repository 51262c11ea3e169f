// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CHostProgram.h"

#include <QDebug>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>
#include <csignal>

CHostProgram::~CHostProgram()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished();
}

void CHostProgram::start(QStringList arguments)
{
    if (arguments.value(0) == QLatin1String("run") && !arguments.contains(QStringLiteral("--output")))
        arguments << QStringLiteral("--output") << outputFolder();
    for (QString* text : {&m_output, &m_chosen, &m_errors})
        text->clear();
    m_process.start(QStringLiteral(HOST_PROGRAM), arguments);
}

bool CHostProgram::waitForEnd()
{
    const bool ended = m_process.state() == QProcess::NotRunning || m_process.waitForFinished(60000);
    m_output += QString::fromUtf8(m_process.readAllStandardOutput());
    m_errors += QString::fromUtf8(m_process.readAllStandardError());
    return ended && m_process.exitStatus() == QProcess::NormalExit;
}

int CHostProgram::exec(const QStringList& arguments)
{
    start(arguments);
    return waitForEnd() ? m_process.exitCode() : -1;
}

int CHostProgram::interrupt(const QStringList& arguments, int signal)
{
    const int cameras = std::max(1, arguments.count(QStringLiteral("--camera")));
    start(QStringList{"run", "--frames", "100000"} + arguments);
    if (!waitForFramesOf(100000 * cameras) || kill(pid_t(m_process.processId()), signal) != 0 || !waitForEnd())
        return -1;
    return m_process.exitCode();
}

bool CHostProgram::waitForFramesOf(int all)
{
    return waitForError(QStringLiteral("/%1 frames, ").arg(all));
}

bool CHostProgram::waitForError(const QString& text)
{
    const auto isSaid = [&] {
        m_errors += QString::fromUtf8(m_process.readAllStandardError());
        return m_errors.contains(text);
    };
    const auto isOver = [&] { return isSaid() || m_process.state() == QProcess::NotRunning; };
    if (QTest::qWaitFor(isOver, 30000) && isSaid())
        return true;
    qWarning().noquote() << "not said:" << text << "but:" << m_errors;
    return false;
}

QString CHostProgram::refusal(const QStringList& arguments)
{
    const int exitCode = run(arguments);
    if (exitCode != 2 || !m_output.isEmpty())
        return QStringLiteral("exit code %1, standard output '%2'").arg(exitCode).arg(m_output);
    const QString name = QStringLiteral("halvex-host: ");
    // The errors of a document follow as 'check' prints them.
    const QString text = QLatin1Char('\n') + errorLines().join(QLatin1Char('\n'));
    if (!text.startsWith(QLatin1Char('\n') + name))
        return QStringLiteral("without its name: ") + text;
    return QString(text).replace(QLatin1Char('\n') + name, QStringLiteral("\n")).mid(1);
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

std::vector<QStringList> CHostProgram::rows(const char* pattern) const
{
    const QRegularExpression row(QLatin1String(pattern), QRegularExpression::MultilineOption);
    const QString text = m_chosen.isEmpty() ? m_output : m_chosen;
    std::vector<QStringList> rows;
    for (auto match = row.globalMatch(text); match.hasNext();)
        rows.push_back(match.next().capturedTexts());
    return rows;
}

int CHostProgram::frames(int column) const
{
    const auto lines = rows(R"(^Frames grabbed +(\d+) = (\d+) complete \+ (\d+) incomplete$)");
    const auto count = [&lines](int each) { return lines.front().at(each).toInt(); };
    return lines.size() == 1 && count(1) == count(2) + count(3) ? count(column) : -1;
}

double CHostProgram::framesPerSecond() const
{
    const auto lines = rows(R"(^Frames per second +([\d.]+)$)");
    return lines.empty() ? 0.0 : lines.front().at(1).toDouble();
}

std::map<QString, CHostProgram::SSink> CHostProgram::sinks() const
{
    std::map<QString, SSink> sinks;
    for (const QStringList& row : rows(R"(^(\w+) +(\d+) +(\d+)  )"))
        sinks[row[1]] = {row[2].toInt(), row[3].toInt()};
    return sinks;
}

std::vector<CHostProgram::SDecoupler> CHostProgram::decouplers() const
{
    std::vector<SDecoupler> decouplers;
    for (const QStringList& row :
         rows(R"(^\[\d+\] Decoupler for VGR +(\d+) +(\d+) +[\d.-]+ +- +- +[<\d.-]+ +[<\d.-]+ +(\d+) +(\d+)$)"))
        decouplers.push_back({row[1].toInt(), row[2].toInt(), row[3].toInt(), row[4].toInt()});
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
                   one.received == one.emitted + one.dropped + one.pending && one.pending == 0;
    for (const char* preview : {"threshold", "edges", "histogram"})
        isEqual = isEqual && got[preview].delivered == one.emitted;
    return isEqual;
}
