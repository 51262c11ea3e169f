// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "testing/check/CChildProcess.h"

#include "testing/check/Messages.h"

#include <QCoreApplication>
#include <QJsonDocument>

#include <cstdio>
#include <cstring>

namespace Plugin::Halvex::Testing {

namespace {

void printToErrors(const QByteArray& text)
{
    std::fwrite(text.constData(), 1, std::size_t(text.size()), stderr);
}

} // namespace

SChildResult CChildProcess::run(SArguments::ERole role, const QString& model, const QStringList& skipped)
{
    m_result = {};
    m_deadline = QDeadlineTimer(m_arguments.timeout);
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QCoreApplication::applicationFilePath(), m_arguments.forChild(role, model, skipped));
    while (m_process.state() != QProcess::NotRunning) {
        m_process.waitForReadyRead(int(m_deadline.remainingTime()));
        readLines();
        if (m_deadline.hasExpired() && m_process.state() == QProcess::Running) {
            m_result.hasHung = true;
            m_process.kill();
            m_process.waitForFinished(-1);
        }
    }
    readLines();
    printToErrors(m_process.readAll()); // a line without an end
    if (m_result.fault.isEmpty())
        m_result.fault = describeEnd();
    return m_result;
}

void CChildProcess::readLines()
{
    while (m_process.canReadLine()) {
        const QByteArray line = m_process.readLine();
        // What the plugin printed may stand before it, without the end of a line.
        const auto begin = int(line.indexOf(recordSeparator));
        printToErrors(begin < 0 ? line : line.left(begin));
        if (begin >= 0)
            readMessage(line.mid(begin + 1));
    }
}

void CChildProcess::readMessage(const QByteArray& text)
{
    const QJsonObject message = QJsonDocument::fromJson(text).object();
    if (message.contains(QLatin1String("rule"))) {
        m_result.lastRule = message.value(QLatin1String("rule")).toString();
        m_deadline = QDeadlineTimer(m_arguments.timeout);
    }
    if (message.contains(QLatin1String("models"))) {
        m_result.models = message.value(QLatin1String("models")).toVariant().toStringList();
        m_result.isDone = true;
    }
    if (message.contains(QLatin1String("report"))) {
        m_result.report = reportFrom(message.value(QLatin1String("report")).toObject());
        m_result.isDone = true;
    }
    if (message.contains(QLatin1String("error")))
        m_result.fault = message.value(QLatin1String("error")).toString();
}

QString CChildProcess::describeEnd() const
{
    if (m_result.hasHung)
        return QStringLiteral("the process did not come back within %1 s").arg(m_arguments.timeout.count());
    if (m_process.error() == QProcess::FailedToStart)
        return QStringLiteral("the process could not be started");
    if (m_process.exitStatus() == QProcess::CrashExit)
        return QStringLiteral("the process ended by signal %1 (%2)")
            .arg(m_process.exitCode())
            .arg(QString::fromLocal8Bit(strsignal(m_process.exitCode())));
    // What is checked may end the process, with whichever code.
    if (!m_result.isDone)
        return QStringLiteral("the process ended with exit code %1").arg(m_process.exitCode());
    return {};
}

} // namespace Plugin::Halvex::Testing
