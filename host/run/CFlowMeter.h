// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/report/CDelays.h"
#include "host/report/SNodeReport.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace Plugin::Halvex {
class CNodeBase;
class CNodeConnection;
class CNodeDataModel;
class CNodeScene;
} // namespace Plugin::Halvex

namespace Host {

class CFlowTrace;
class CTraceFile;

/**
 * Counts and times what goes through the nodes of a scene, whatever their models are: each connection counts its
 * deliveries. What a node does with them is its own business.
 *
 * The connections are given converters that count and then do what was done before; that is all that the scene notices
 * of it, so its document is saved before start().
 *
 * Threads: the scene's. Once the scene is not what it was, only the destructor may be called.
 */
class CFlowMeter : public QObject
{
    Q_OBJECT

public:
    static constexpr quint64 leastThinned = 20; ///< Frames that a rate takes where more came elsewhere in the graph.

    /// \a nodes in the order of their numbers; \a scene has whole connections between them.
    CFlowMeter(const Plugin::Halvex::CNodeScene& scene, const std::vector<const Plugin::Halvex::CNodeBase*>& nodes);
    ~CFlowMeter() override;

    /// Has start() tell \a file of everything, too: of a camera that is the node number \a source.
    void traceInto(const std::shared_ptr<CTraceFile>& file, int process, const QString& camera, std::size_t source);

    /// Counts from now on.
    void start();

    /// What came to node number \a node over all its connections.
    quint64 delivered(std::size_t node) const;

    /// What the connections show of that node; what its model tells by itself is left to fill in. Rates of all nodes
    /// count from the first frame of the graph, and at least over \a span, the time from the camera's first frame to
    /// its last, so that a burst at the end is no high rate. Where fewer than leastThinned frames came, and more
    /// elsewhere, there is no rate.
    SNodeReport report(std::size_t node, std::chrono::nanoseconds span) const;

    /// What each connection carried; those whose scene has changed are left out.
    std::vector<SConnectionReport> connections() const;

    /// The connection that did not deliver what others of the same output port did, or, at the node number \a source,
    /// \a frames; empty if there is none.
    QString mismatch(std::size_t source, quint64 frames) const;

private:
    using Clock = std::chrono::steady_clock;

    /// What went over one connection. Shared with its converter, which may outlive this object.
    struct SFlow
    {
        quint64 delivered = 0; ///< Data, not empty data.
        Clock::time_point first;
        Clock::time_point last;
        CDelays delays; ///< From the grab.
    };

    struct SEdge
    {
        std::size_t from;
        int outPort;
        std::size_t to;
        std::weak_ptr<Plugin::Halvex::CNodeConnection> connection;
        std::shared_ptr<SFlow> flow;
    };

    struct SNode
    {
        QString caption;
        Plugin::Halvex::CNodeDataModel* model = nullptr;
        std::map<int, quint64> updates; ///< By output port: how often it told of new data.
        Clock::time_point computingSince;
        CDelays computing;
        Delay worked; ///< All of that.
        QString lastError;
    };

    void watchModel(std::size_t node);
    void countDeliveries(const SEdge& edge, Plugin::Halvex::CNodeConnection& connection) const;
    quint64 sent(std::size_t node) const;
    Clock::time_point firstDelivery() const;
    bool isTooFew(const SEdge& edge) const;
    std::optional<double> rateOf(const SEdge& edge, std::chrono::nanoseconds span) const;

    const Plugin::Halvex::CNodeScene& m_scene;
    std::vector<SNode> m_nodes;
    std::vector<SEdge> m_edges;
    std::shared_ptr<CFlowTrace> m_trace; // null without one; shared with the converters
};

} // namespace Host
