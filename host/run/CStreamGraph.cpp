// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CStreamGraph.h"

#include "host/base/Shown.h"
#include "host/report/CGraphText.h"
#include "host/sinks/IFrameSink.h"

#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/models/AWorkerNodeDataModel.h>
#include <Halvex/models/CNodeDecouplerDataModelBase.h>

#include <algorithm>
#include <cmath>

namespace Host {

using namespace Plugin::Halvex;

namespace {

CNodeDataEntry entryOf(const CNodeBase& camera)
{
    const auto* const source = qobject_cast<ASourceNodeDataModel*>(camera.nodeDataModel());
    Q_ASSERT(source);
    return source->dataEntry();
}

QString numbered(std::size_t number, CNodeDataModel& model)
{
    return QStringLiteral("[%1] %2").arg(number).arg(model.caption());
}

SSinkReport sinkReport(const IFrameSink& sink)
{
    SSinkReport report;
    report.name = sink.sinkName();
    report.delivered = sink.delivered();
    report.files = sink.files();
    report.median = percentile(sink.delays(), 0.5);
    report.percentile99 = percentile(sink.delays(), 0.99);
    return report;
}

} // namespace

CStreamGraph::CStreamGraph(const CNodeScene& scene, const CNodeBase& camera)
    : m_scene(scene)
    , m_camera(camera)
    , m_entry(entryOf(camera))
    , m_nodes(CGraphText(scene).nodes())
{
    for (const CNodeBase* node : m_nodes)
        addNode(*node);
    connect(&scene, &CNodeScene::nodeCreated, this, &CStreamGraph::onChanged);
    connect(&scene, &CNodeScene::nodeDeleted, this, &CStreamGraph::onChanged);
    connect(&scene, &CNodeScene::connectionCreated, this, &CStreamGraph::onChanged);
    connect(&scene, &CNodeScene::connectionDeleted, this, &CStreamGraph::onChanged);
}

CStreamGraph::~CStreamGraph() = default;

void CStreamGraph::addNode(const CNodeBase& node)
{
    CNodeDataModel* model = node.nodeDataModel();
    // A node that is replaced goes without the scene's signals.
    connect(model, &QObject::destroyed, this, &CStreamGraph::onChanged);
    if (auto* sink = qobject_cast<IFrameSink*>(model))
        m_sinks.push_back(sink);
    if (auto* decoupler = qobject_cast<CNodeDecouplerDataModelBase*>(model)) {
        m_decouplers.push_back({&node, decoupler});
        // Connected after the node, whose walk is then over.
        connect(model, &CNodeDataModel::dataUpdated, this, [this, index = m_decouplers.size() - 1] {
            ++m_decouplers[index].delivered;
            Q_EMIT cameThrough();
        });
    }
    if (auto* worker = qobject_cast<AWorkerNodeDataModel*>(model)) {
        m_workers.push_back(worker);
        connect(model, &CNodeDataModel::computingFinished, this, &CStreamGraph::cameThrough);
    }
}

QString CStreamGraph::changedText(const QString& camera)
{
    return QStringLiteral("the graph of camera %1 was changed or removed by somebody else").arg(shown(camera));
}

void CStreamGraph::onChanged()
{
    if (!m_isIntact)
        return;
    m_isIntact = false;
    Q_EMIT changed();
}

bool CStreamGraph::isDrained() const
{
    const auto hasComeThrough = [](const SDecoupler& decoupler) {
        const SDecouplerStatistics counts = decoupler.model->statistics();
        return counts.pending == 0 && counts.emitted == decoupler.delivered;
    };
    const auto isDone = [](const AWorkerNodeDataModel* worker) { return worker->statistics().pending == 0; };
    return std::all_of(m_decouplers.begin(), m_decouplers.end(), hasComeThrough) &&
           std::all_of(m_workers.begin(), m_workers.end(), isDone);
}

std::chrono::milliseconds CStreamGraph::drainTime() const
{
    double time = 5000.0;
    for (const SDecoupler& decoupler : m_decouplers) {
        const double rate = decoupler.model->framesPerSecond();
        if (std::isfinite(rate) && rate > 0.0)
            time += 2000.0 / rate;
    }
    // A timer's range.
    return std::chrono::milliseconds(time < 2e9 ? std::int64_t(time) : 2000000000);
}

CStreamGraph::Counts CStreamGraph::expected(quint64 frames) const
{
    Counts in(m_nodes.size(), 0);
    Counts out(m_nodes.size(), 0);
    // Each number is higher than those of the nodes before it, so the counts of these are known.
    const CGraphText text(m_scene);
    const FlowEdges edges = text.edges();
    auto edge = edges.begin();
    for (std::size_t i = 0; i < m_nodes.size(); ++i) {
        CNodeDataModel* const model = m_nodes[i]->nodeDataModel();
        if (const auto* decoupler = qobject_cast<CNodeDecouplerDataModelBase*>(model))
            out[i] = decoupler->statistics().emitted;
        else if (const auto* worker = qobject_cast<AWorkerNodeDataModel*>(model))
            out[i] = worker->statistics().emitted;
        else
            out[i] = m_nodes[i] == &m_camera ? frames : in[i];
        for (; edge != edges.end() && std::size_t(edge->first) == i; ++edge)
            in[std::size_t(edge->second)] += out[i];
    }
    return in;
}

void CStreamGraph::account(SRunReport* report) const
{
    report->graph = CGraphText(m_scene).text();
    const Counts in = expected(report->frames.complete);
    auto decoupler = m_decouplers.begin();
    for (std::size_t i = 0; i < m_nodes.size(); ++i) {
        CNodeDataModel* const model = m_nodes[i]->nodeDataModel();
        if (const auto* sink = qobject_cast<IFrameSink*>(model)) {
            report->sinks.push_back(sinkReport(*sink));
            report->sinks.back().expected = in[i];
        } else if (decoupler != m_decouplers.end() && decoupler->node == m_nodes[i]) {
            report->decouplers.push_back({numbered(i, *model), decoupler->model->framesPerSecond(),
                                          decoupler->model->statistics(), in[i], decoupler->delivered});
            ++decoupler;
        } else if (const auto* worker = qobject_cast<AWorkerNodeDataModel*>(model)) {
            report->workers.push_back({numbered(i, *model), worker->statistics(), in[i]});
        }
    }
}

} // namespace Host
