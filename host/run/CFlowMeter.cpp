// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CFlowMeter.h"

#include "host/base/ConnectionText.h"
#include "host/base/Counted.h"
#include "host/models/IFrameInfo.h"
#include "host/run/CFlowTrace.h"

#include <Halvex/graph/DocumentKeys.h>
#include <Halvex/scene/CNodeScene.h>

#include <QJsonObject>

#include <algorithm>
#include <utility>

namespace Host {

using namespace Plugin::Halvex;

namespace {

// The converter that the connection has, by the types that it was made with.
NodeDataConverter converterOf(const CNodeConnection& connection, const CNodeScene& scene)
{
    if (!connection.save().contains(DocumentKeys::converter))
        return {};
    return scene.registry().getTypeConverter(connection.dataType(ENodePortType::Out),
                                             connection.dataType(ENodePortType::In));
}

QString endText(const CNodeDataModel& model, const CNodeConnection& connection, ENodePortType side)
{
    const NodePortIndex port = connection.getPortIndex(side);
    return portText(port, model.nPorts(side), model.portCaption(side, port), model.dataType(side, port));
}

} // namespace

CFlowMeter::CFlowMeter(const CNodeScene& scene, const std::vector<const CNodeBase*>& nodes)
    : m_scene(scene)
{
    std::map<const CNodeBase*, std::size_t> numbers;
    for (const CNodeBase* node : nodes) {
        numbers.emplace(node, m_nodes.size());
        m_nodes.emplace_back();
        m_nodes.back().model = node->nodeDataModel();
        m_nodes.back().caption = QStringLiteral("[%1] %2").arg(m_nodes.size() - 1).arg(m_nodes.back().model->caption());
    }
    for (const auto& entry : scene.connections()) {
        const CNodeConnection& connection = *entry.second;
        const auto from = numbers.find(connection.getNode(ENodePortType::Out));
        const auto to = numbers.find(connection.getNode(ENodePortType::In));
        if (from != numbers.end() && to != numbers.end())
            m_edges.push_back({from->second, connection.getPortIndex(ENodePortType::Out), to->second, entry.second,
                               std::make_shared<SFlow>()});
    }
    // Connections have no order of their own, and of several complaints the first is told.
    std::sort(m_edges.begin(), m_edges.end(), [](const SEdge& left, const SEdge& right) {
        return std::tie(left.from, left.outPort, left.to) < std::tie(right.from, right.outPort, right.to);
    });
}

CFlowMeter::~CFlowMeter() = default;

void CFlowMeter::traceInto(const std::shared_ptr<CTraceFile>& file, int process, const QString& camera,
                           std::size_t source)
{
    QStringList captions;
    for (const SNode& node : m_nodes)
        captions << node.caption;
    CFlowTrace::Edges edges;
    for (const SEdge& edge : m_edges)
        edges.emplace_back(edge.from, edge.to);
    m_trace = std::make_shared<CFlowTrace>(file, process, camera, captions, edges, source);
}

void CFlowMeter::start()
{
    for (std::size_t node = 0; node < m_nodes.size(); ++node)
        watchModel(node);
    for (const SEdge& edge : m_edges) {
        if (const auto connection = edge.connection.lock())
            countDeliveries(edge, *connection);
    }
}

void CFlowMeter::countDeliveries(const SEdge& edge, CNodeConnection& connection) const
{
    const auto count = [flow = edge.flow, convert = converterOf(connection, m_scene), trace = m_trace, from = edge.from,
                        to = edge.to](CNodeDataPtr data) {
        if (!data)
            return convert ? convert(std::move(data)) : data;
        const auto now = Clock::now();
        if (flow->delivered++ == 0)
            flow->first = now;
        flow->last = now;
        const auto* frame = dynamic_cast<const IFrameInfo*>(data.data());
        if (frame)
            flow->delays.add(now - frame->info().grabbed);
        if (!trace)
            return convert ? convert(std::move(data)) : data;
        const SFrameInfo info = frame ? frame->info() : SFrameInfo();
        CNodeDataPtr converted = convert ? convert(std::move(data)) : std::move(data);
        trace->addDelivery(from, to, frame ? &info : nullptr, now, Clock::now());
        return converted;
    };
    connection.setTypeConverter(count);
}

void CFlowMeter::watchModel(std::size_t node)
{
    CNodeDataModel* const model = m_nodes[node].model;
    connect(model, &CNodeDataModel::dataUpdated, this,
            [this, node](NodePortIndex port) { ++m_nodes[node].updates[port]; });
    connect(model, &CNodeDataModel::computingStarted, this, [this, node] {
        m_nodes[node].computingSince = Clock::now();
        if (m_trace)
            m_trace->startComputing(node, m_nodes[node].computingSince);
    });
    connect(model, &CNodeDataModel::computingFinished, this, [this, node] {
        SNode& known = m_nodes[node];
        if (m_trace)
            m_trace->finishComputing(node, Clock::now());
        if (known.computingSince == Clock::time_point())
            return;
        const auto time = Clock::now() - known.computingSince;
        known.computing.add(time);
        known.worked = known.worked.value_or(std::chrono::nanoseconds::zero()) + time;
    });
    // A model that goes on working forgets what was wrong before.
    connect(model, &CNodeDataModel::dataInvalidated, this, [this, node] {
        const QString message = m_nodes[node].model->validationMessage();
        if (!message.isEmpty())
            m_nodes[node].lastError = message;
    });
}

quint64 CFlowMeter::delivered(std::size_t node) const
{
    quint64 sum = 0;
    for (const SEdge& edge : m_edges)
        sum += edge.to == node ? edge.flow->delivered : 0;
    return sum;
}

quint64 CFlowMeter::sent(std::size_t node) const
{
    // A port may tell of data and then have none: what its connections carried counts, where it has some.
    std::map<int, quint64> counts = m_nodes[node].updates;
    for (const SEdge& edge : m_edges) {
        if (edge.from == node)
            counts[edge.outPort] = edge.flow->delivered;
    }
    quint64 sum = 0;
    for (const auto& count : counts)
        sum += count.second;
    return sum;
}

CFlowMeter::Clock::time_point CFlowMeter::firstDelivery() const
{
    Clock::time_point first = Clock::time_point::max();
    for (const SEdge& edge : m_edges) {
        if (edge.flow->delivered > 0)
            first = std::min(first, edge.flow->first);
    }
    return first;
}

// What was thinned out on its way begins and ends with a beat of its own: one frame more or less is much of a few.
bool CFlowMeter::isTooFew(const SEdge& edge) const
{
    const auto isMore = [&edge](const SEdge& other) { return other.flow->delivered > edge.flow->delivered; };
    return edge.flow->delivered < leastThinned && std::any_of(m_edges.begin(), m_edges.end(), isMore);
}

std::optional<double> CFlowMeter::rateOf(const SEdge& edge, std::chrono::nanoseconds span) const
{
    const SFlow& flow = *edge.flow;
    // What comes from the camera comes as fast as the camera gives it, whatever waits in between.
    const bool isFromSource = m_nodes[edge.from].model->nPorts(ENodePortType::In) == 0;
    const std::chrono::nanoseconds here = flow.last - firstDelivery();
    const auto time = isFromSource && span.count() > 0 ? span : std::max(span, here);
    if (flow.delivered < 2 || isTooFew(edge) || time.count() <= 0)
        return {};
    return double(flow.delivered - 1) / std::chrono::duration<double>(time).count();
}

SNodeReport CFlowMeter::report(std::size_t node, std::chrono::nanoseconds span) const
{
    const SNode& known = m_nodes[node];
    SNodeReport report;
    report.name = known.caption;
    report.kind = kindOf(*known.model);
    if (known.model->nPorts(ENodePortType::In) > 0)
        report.in = delivered(node);
    if (known.model->nPorts(ENodePortType::Out) > 0)
        report.out = sent(node);
    // Where nothing is wired to its outputs, the rate is that of what comes.
    const bool isSending =
        std::any_of(m_edges.begin(), m_edges.end(), [node](const SEdge& edge) { return edge.from == node; });
    CDelays delays;
    for (const SEdge& edge : m_edges) {
        if (edge.to == node)
            delays.add(edge.flow->delays);
        if ((isSending ? edge.from : edge.to) == node)
            report.framesPerSecond = rateOf(edge, span);
    }
    report.grabToHere = delays.percentile(0.5);
    report.grabToHere99 = delays.percentile(0.99);
    report.computing = known.computing.percentile(0.5);
    report.worked = known.worked;
    const QString message = known.model->validationMessage();
    report.lastError = message.isEmpty() ? known.lastError : message;
    return report;
}

std::vector<SConnectionReport> CFlowMeter::connections() const
{
    std::vector<SConnectionReport> reports;
    for (const SEdge& edge : m_edges) {
        if (const auto connection = edge.connection.lock())
            reports.push_back(
                {edge.from, edge.to, endText(*m_nodes[edge.from].model, *connection, ENodePortType::Out),
                 endText(*m_nodes[edge.to].model, *connection, ENodePortType::In),
                 connectionTypeText(connection->dataType(ENodePortType::Out), connection->dataType(ENodePortType::In)),
                 edge.flow->delivered});
    }
    return reports;
}

QString CFlowMeter::mismatch(std::size_t source, quint64 frames) const
{
    std::map<std::pair<std::size_t, int>, quint64> expected;
    for (const SEdge& edge : m_edges) {
        const quint64 first = edge.from == source ? frames : edge.flow->delivered;
        const quint64 wanted = expected.emplace(std::make_pair(edge.from, edge.outPort), first).first->second;
        if (edge.flow->delivered != wanted)
            return QStringLiteral("the connection from '%1' to '%2' carried %3, not %4")
                .arg(m_nodes[edge.from].caption, m_nodes[edge.to].caption, counted(edge.flow->delivered, "frame"))
                .arg(wanted);
    }
    return {};
}

} // namespace Host
