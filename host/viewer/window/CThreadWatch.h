// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <chrono>
#include <vector>

namespace Plugin::Halvex {
class CNodeBase;
class CNodeScene;
} // namespace Plugin::Halvex

namespace Host {

/**
 * Notices when something holds up the thread of the graph and the window, and tells which model it was.
 *
 * \code
 * CThreadWatch watch;
 * watch.watch(*scene);
 * connect(&watch, &CThreadWatch::heldUp, statusBar, [=](const QString& who, int ms) { ... });
 * \endcode
 *
 * A timer beats while data flows, and some time after; a beat that comes late tells for how long. So what the first
 * data after a rest does goes unnoticed. Who it was is told by the longest silence of the models' signals meanwhile,
 * within one event of the application: the model that broke it, and those that it feeds and that never say anything,
 * may have used it. So it may name two. An event without any signal, such as for a picture of the window, is no
 * model's. What has a thread of its own, such as a worker, holds up nothing and is not named.
 *
 * Threads: the scenes'. Ownership: scenes and nodes may go at any time.
 */
class CThreadWatch : public QObject
{
    Q_OBJECT

public:
    /// What takes longer than \a limit is told.
    explicit CThreadWatch(std::chrono::milliseconds limit = std::chrono::milliseconds(100), QObject* parent = nullptr);

    void watch(Plugin::Halvex::CNodeScene& scene);

    /// False while nothing flows.
    bool isBeating() const { return m_timer.isActive(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// \a who: captions, as a person reads them; empty if no model was at work. Once for each time, right afterwards.
    void heldUp(const QString& who, int milliseconds);

private:
    void watchNode(Plugin::Halvex::CNodeBase& node);
    void onSign(Plugin::Halvex::CNodeBase* node);
    void onBeat();
    void endSilence(Plugin::Halvex::CNodeBase* suspect);
    QString suspects() const;
    bool wasHeard(const Plugin::Halvex::CNodeBase* node) const;

    const int m_limit;
    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_lastBeat = 0;
    qint64 m_lastHeard = 0; // a beat with signs before it
    qint64 m_lastSign = 0;  // or event
    qint64 m_longest = 0;
    QPointer<Plugin::Halvex::CNodeBase> m_suspect;
    QPointer<Plugin::Halvex::CNodeBase> m_lastNode;           // of this event
    std::vector<QPointer<Plugin::Halvex::CNodeBase>> m_heard; // since the last beat
};

} // namespace Host
