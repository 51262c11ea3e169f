// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/camera/SCameraOptions.h"
#include "host/report/SLinkReport.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <memory>

namespace Host {

class CAravisCamera;
class CGrabThread;

/**
 * Grabs the frames of a camera, hands them to nobody, and tells what became of their packets on the way.
 *
 * \code
 * CLinkTest test(options);
 * connect(&test, &CLinkTest::ended, &loop, &QEventLoop::quit);
 * QString error = test.start();
 * if (error.isEmpty())
 *     QTimer::singleShot(10000, &test, &CLinkTest::requestEnd);
 * \endcode
 *
 * Threads: one, with an event loop.
 */
class CLinkTest : public QObject
{
    Q_OBJECT

public:
    explicit CLinkTest(SCameraOptions options);
    ~CLinkTest() override;

    /// Opens the camera, finds the largest packet that gets through, and begins. Returns what is wrong, as
    /// CAravisCamera::open() does; empty on success.
    QString start();

    /// The test ends soon after.
    void requestEnd();

    /// Since start().
    std::chrono::milliseconds time() const;
    SGrabStatistics frames() const;

    /// What was measured. To be called once, after ended().
    SLinkReport report() const;

Q_SIGNALS:
    /// Emitted once after start(). \a error is empty unless the camera failed.
    void ended(const QString& error);

private:
    void measurePackets();

    const SCameraOptions m_options;
    SLinkReport m_report; // what is known before the first frame
    std::chrono::steady_clock::time_point m_started;
    std::unique_ptr<CAravisCamera> m_camera;
    std::unique_ptr<CGrabThread> m_thread; // goes before the camera
};

} // namespace Host
