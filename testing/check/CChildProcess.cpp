// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "testing/check/CChildProcess.h"

#include "testing/check/Messages.h"

#include <QCoreApplication>
#include <QJsonDocument>

#include <cstdio>
#include <cstring>

namespace Plugin::Halvex::Testing {

SChildResult CChildProcess::run(SArguments::ERole role, const QString& model, const QStringList& skipped)
{
    m_result = {};
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QCoreApplication::applicationFilePath(), m_arguments.forChild(role, model, skipped));
    const auto timeout = std::chrono::milliseconds(m_arguments.timeout);
    while (m_process.state() != QProcess::NotRunning) {
        if (m_process.waitForReadyRead(int(timeout.count()))) {
            readLines();
        } else if (m_process.state() == QProcess::Running) {
            m_result.hasHung = true;
            m_process.kill();
            m_process.waitForFinished(-1);
            readLines();
            m_result.ending =
                QStringLiteral("the process did not come back within %1 s").arg(m_arguments.timeout.count());
            return m_result;
        }
    }
    readLines();
    describeEnd();
    return m_result;
}

void CChildProcess::readLines()
{
    while (m_process.canReadLine()) {
        const QByteArray line = m_process.readLine();
        // What the plugin printed may stand before it, without the end of a line.
        const int begin = line.indexOf(recordSeparator);
        const QByteArray printed = begin < 0 ? line : line.left(begin);
        std::fwrite(printed.constData(), 1, std::size_t(printed.size()), stderr);
        if (begin >= 0)
            readMessage(line.mid(begin + 1));
    }
}

void CChildProcess::readMessage(const QByteArray& text)
{
    const QJsonObject message = QJsonDocument::fromJson(text).object();
    if (message.contains(QLatin1String("rule")))
        m_result.lastRule = message.value(QLatin1String("rule")).toString();
    if (message.contains(QLatin1String("model")))
        m_result.models << message.value(QLatin1String("model")).toString();
    if (message.contains(QLatin1String("error")))
        m_result.error = message.value(QLatin1String("error")).toString();
    if (message.contains(QLatin1String("report"))) {
        m_result.report = reportFrom(message.value(QLatin1String("report")).toObject());
        m_result.hasReport = true;
    }
}

void CChildProcess::describeEnd()
{
    if (m_process.error() == QProcess::FailedToStart)
        m_result.ending = QStringLiteral("the process could not be started");
    else if (m_process.exitStatus() == QProcess::CrashExit)
        m_result.ending = QStringLiteral("the process ended by signal %1 (%2)")
                              .arg(m_process.exitCode())
                              .arg(QString::fromLocal8Bit(strsignal(m_process.exitCode())));
    else if (!m_result.hasReport && m_result.error.isEmpty() && m_process.exitCode() != 0)
        m_result.ending = QStringLiteral("the process ended with exit code %1").arg(m_process.exitCode());
}

} // namespace Plugin::Halvex::Testing
