// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/run/CTraceFile.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace Host {

struct SFrameInfo;

/**
 * The ways of the frames of one camera in a trace. The camera is a process; it has a row for the thread that grabs, one
 * for the graph's thread, and one for each node:
 *
 * - "frame 17" is a delivery, with the conversion on the connection.
 * - "work" is what the node did from there until it sent something on.
 * - "computing" is when a model that works beside the graph says that it has work.
 *
 * A frame leads a flow to each node at the end of its ways, from where it was grabbed, by its number. A frame that is
 * dropped on the way has no end there.
 *
 * Threads: the graph's.
 */
class CFlowTrace
{
public:
    using Time = CTraceFile::Time;
    using Edges = std::vector<std::pair<std::size_t, std::size_t>>;

    /// \a process: a number of its own. \a nodes: their captions. \a edges: from and to. Frames come from \a source.
    CFlowTrace(std::shared_ptr<CTraceFile> file, int process, const QString& camera, const QStringList& nodes,
               const Edges& edges, std::size_t source);

    /// A connection has delivered data, of a frame or of something else.
    void addDelivery(std::size_t from, std::size_t to, const SFrameInfo* frame, Time begin, Time end);

    /// As the node's model says.
    void startComputing(std::size_t node, Time time);
    void finishComputing(std::size_t node, Time time);

private:
    struct SNode
    {
        QByteArray caption;
        std::vector<std::size_t> ends; // nodes at the end of the ways from here; itself, if it is one
        std::optional<Time> delivered; // nothing was sent on since
        bool isComputing = false;
    };

    CTraceFile::SRow rowOf(std::size_t node) const;
    void findEnds(std::size_t node, const Edges& edges, std::vector<bool>* seen, std::vector<std::size_t>* ends) const;
    void addGrab(const SFrameInfo& frame);

    const std::shared_ptr<CTraceFile> m_file;
    const int m_process;
    const std::size_t m_source;
    QByteArray m_camera;
    std::vector<SNode> m_nodes;
    std::optional<quint64> m_newest; // the frame that was grabbed last
};

} // namespace Host
