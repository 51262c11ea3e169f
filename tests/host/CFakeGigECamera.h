// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QLockFile>
#include <QProcess>
#include <QString>

/**
 * A GigE Vision camera on this machine: a process of its own, from start() to kill() or destruction.
 *
 * The protocol's port is fixed, so a lock file keeps the tests of two build folders from meeting in one camera.
 */
class CFakeGigECamera
{
public:
    CFakeGigECamera();
    ~CFakeGigECamera() { kill(); }
    Q_DISABLE_COPY(CFakeGigECamera)

    static QString address() { return QStringLiteral("127.0.0.1"); }

    /// Loses so many of a thousand packets. Returns when the camera can be opened; false if it never can.
    bool start(int lostPerThousand = 0);

    /// As if its cable were pulled. Another test may then have the port.
    void kill();

    /// The same, but the port stays this test's; and as if it were put in again, which takes a moment to be noticed.
    void pullCable();
    void putCableIn();

private:
    // Ends with the test, also when that is killed: nobody else could have the port then.
    class CBoundProcess : public QProcess
    {
    protected:
        void setupChildProcess() override;
    };

    void startProcess(int lostPerThousand);

    QLockFile m_lock;
    CBoundProcess m_process;
};
