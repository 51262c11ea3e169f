// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CFlowTrace.h"

#include "host/models/SFrameInfo.h"

namespace Host {

namespace {

constexpr int grabRow = 0;
constexpr int graphRow = 1;
constexpr int firstNodeRow = 2;

// What a frame's grab takes is not known; so long can be seen.
constexpr std::chrono::microseconds grabTime(1);

} // namespace

CFlowTrace::CFlowTrace(std::shared_ptr<CTraceFile> file, int process, const QString& camera, const QStringList& nodes,
                       const Edges& edges, std::size_t source)
    : m_file(std::move(file))
    , m_process(process)
    , m_source(source)
    , m_camera(CTraceFile::quoted(camera))
{
    m_file->addProcess(process, QStringLiteral("camera %1").arg(camera));
    m_file->addRow({process, grabRow}, QStringLiteral("thread that grabs"));
    m_file->addRow({process, graphRow}, QStringLiteral("thread of the graph"));
    for (const QString& caption : nodes) {
        m_file->addRow(rowOf(m_nodes.size()), caption);
        SNode node;
        node.caption = CTraceFile::quoted(caption);
        std::vector<bool> seen(std::size_t(nodes.size()));
        findEnds(m_nodes.size(), edges, &seen, &node.ends);
        m_nodes.push_back(node);
    }
}

CTraceFile::SRow CFlowTrace::rowOf(std::size_t node) const
{
    return {m_process, firstNodeRow + int(node)};
}

void CFlowTrace::findEnds(std::size_t node, const Edges& edges, std::vector<bool>* seen,
                          std::vector<std::size_t>* ends) const
{
    if ((*seen)[node])
        return;
    (*seen)[node] = true;
    bool isEnd = true;
    for (const auto& edge : edges) {
        if (edge.first != node)
            continue;
        isEnd = false;
        findEnds(edge.second, edges, seen, ends);
    }
    if (isEnd)
        ends->push_back(node);
}

void CFlowTrace::addGrab(const SFrameInfo& frame)
{
    const CTraceFile::SRow row{m_process, grabRow};
    m_file->addSlice(row, "frame " + QByteArray::number(frame.frameNumber), frame.grabbed, frame.grabbed + grabTime);
    for (const std::size_t end : m_nodes[m_source].ends)
        m_file->addFlow(CTraceFile::EFlow::Start, row, frame.grabbed, m_camera, m_nodes[end].caption,
                        frame.frameNumber);
    m_newest = frame.frameNumber;
}

void CFlowTrace::addDelivery(std::size_t from, std::size_t to, const SFrameInfo* frame, Time begin, Time end)
{
    SNode& sender = m_nodes[from];
    if (sender.delivered && !sender.isComputing)
        m_file->addSlice(rowOf(from), QByteArrayLiteral("work"), *sender.delivered, begin);
    sender.delivered.reset();
    if (frame && from == m_source && m_newest != frame->frameNumber)
        addGrab(*frame);

    SNode& receiver = m_nodes[to];
    const QByteArray name = frame ? "frame " + QByteArray::number(frame->frameNumber) : QByteArrayLiteral("data");
    m_file->addSlice(rowOf(to), name, begin, end);
    m_file->addSlice({m_process, graphRow}, receiver.caption, begin, end);
    receiver.delivered = end;
    if (!frame)
        return;
    for (const std::size_t last : receiver.ends)
        m_file->addFlow(last == to ? CTraceFile::EFlow::End : CTraceFile::EFlow::Step, rowOf(to), begin, m_camera,
                        m_nodes[last].caption, frame->frameNumber);
}

void CFlowTrace::startComputing(std::size_t node, Time time)
{
    if (std::exchange(m_nodes[node].isComputing, true))
        return;
    m_file->beginSlice(rowOf(node), QByteArrayLiteral("computing"), time);
}

void CFlowTrace::finishComputing(std::size_t node, Time time)
{
    if (!std::exchange(m_nodes[node].isComputing, false))
        return;
    m_nodes[node].delivered.reset();
    m_file->endSlice(rowOf(node), time);
}

} // namespace Host
