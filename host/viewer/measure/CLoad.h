// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QObject>
#include <QStringList>

namespace Plugin::Halvex {
class CNodeScene;
class INodeService;
} // namespace Plugin::Halvex

namespace Host {

class CCameraSession;
class CCameraSessions;

/// How much is to be done. A plain value.
struct SLoadSize
{
    int cameras = 4;
    double framesPerSecond = 200.0;
    int nodes = 500; ///< Of the first camera's graph.
};

/**
 * Simulated cameras of 512 × 512 pixels, each with a branch that gets all of its frames; the first one's graph has many
 * more, behind decouplers.
 *
 * Threads: the main thread. Ownership: the sessions belong to \a sessions, which outlives this object.
 */
class CLoad : public QObject
{
    Q_OBJECT

public:
    CLoad(CCameraSessions& sessions, Plugin::Halvex::INodeService& service, const SLoadSize& size);

    /// Connects all and starts them. False if that takes too long.
    bool start();

    /// Disconnects all, and waits until their devices are closed.
    void end();

    /// Frames that have come to the ends of the branches that get all.
    quint64 delivered() const { return m_delivered; }

    /// Frames that the cameras have sent.
    quint64 sent() const;

private:
    void onOpened(CCameraSession* session);
    void countAtEnds(const Plugin::Halvex::CNodeScene& scene);

    CCameraSessions& m_sessions;
    Plugin::Halvex::INodeService& m_service;
    const SLoadSize m_size;
    quint64 m_delivered = 0;
};

} // namespace Host
