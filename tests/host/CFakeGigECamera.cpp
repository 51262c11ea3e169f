// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CFakeGigECamera.h"

#include "host/camera/CAravisCamera.h"

#include <QDebug>
#include <QDir>
#include <QTest>

#include <csignal>
#include <sys/prctl.h>

CFakeGigECamera::CFakeGigECamera()
    : m_lock(QDir::temp().filePath(QStringLiteral("halvex-test-gige-port.lock")))
{
    // A lock is stale when its process has gone, however old it is.
    m_lock.setStaleLockTime(0);
}

bool CFakeGigECamera::start(int lostPerThousand)
{
    if (!m_lock.tryLock(90000)) {
        qWarning() << "another test holds the camera port";
        return false;
    }
    startProcess(lostPerThousand);
    if (!m_process.waitForStarted())
        return false;
    const auto canBeOpened = [] {
        QString error;
        Host::SCameraOptions options;
        options.address = address();
        return Host::CAravisCamera::open(options, &error) != nullptr;
    };
    return QTest::qWaitFor([&] { return m_process.state() == QProcess::NotRunning || canBeOpened(); }, 20000) &&
           m_process.state() == QProcess::Running;
}

void CFakeGigECamera::CBoundProcess::setupChildProcess()
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
}

void CFakeGigECamera::startProcess(int lostPerThousand)
{
    m_process.setProcessChannelMode(QProcess::ForwardedChannels);
    m_process.start(QStringLiteral(FAKE_GIGE_CAMERA),
                    {QStringLiteral("-i"), address(), QStringLiteral("-r"), QString::number(lostPerThousand)});
}

void CFakeGigECamera::kill()
{
    pullCable();
    m_lock.unlock();
}

void CFakeGigECamera::pullCable()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished();
}

void CFakeGigECamera::putCableIn()
{
    startProcess(0);
}
