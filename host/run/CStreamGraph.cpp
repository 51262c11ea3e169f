// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CStreamGraph.h"

#include "host/models/CCameraSourceModel.h"
#include "host/models/CPngSinkModel.h"
#include "host/models/HostModels.h"
#include "host/run/CGraphText.h"
#include "host/run/CSceneLoader.h"
#include "host/run/DemoGraph.h"
#include "host/run/SceneFile.h"
#include "models/CNodeDataFlowProxy.h"
#include "models/CNodeDecouplerDataModelBase.h"

#include <algorithm>
#include <cmath>

namespace Host {

using namespace Plugin::Halvex;

namespace {

std::unique_ptr<CNodeScene> makeScene()
{
    auto registry = std::make_shared<CNodeDataModelRegistry>();
    registerHostModels(*registry);
    return std::make_unique<CNodeScene>(std::move(registry), nullptr, nullptr);
}

SSinkReport sinkReport(const CPngSinkModel& sink)
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

std::unique_ptr<CStreamGraph> CStreamGraph::demo()
{
    auto scene = makeScene();
    addDemoGraph(*scene);
    return std::make_unique<CStreamGraph>(std::move(scene));
}

std::unique_ptr<CStreamGraph> CStreamGraph::load(const QString& file, QString* error)
{
    const QJsonObject document = readSceneFile(file, error);
    if (!error->isEmpty())
        return nullptr;
    auto scene = makeScene();
    const QString reason = CSceneLoader(*scene).load(document);
    if (reason.isEmpty())
        return std::make_unique<CStreamGraph>(std::move(scene));
    *error = QStringLiteral("cannot load '%1': %2").arg(file, reason);
    return nullptr;
}

CStreamGraph::CStreamGraph(std::unique_ptr<CNodeScene> scene)
    : m_scene(std::move(scene))
    , m_nodes(CGraphText(*m_scene).nodes())
{
    for (const CNodeBase* node : m_nodes)
        addNode(*node);
    Q_ASSERT(m_entry);
}

CStreamGraph::~CStreamGraph() = default;

void CStreamGraph::addNode(const CNodeBase& node)
{
    CNodeDataModel* model = node.nodeDataModel();
    if (auto* source = qobject_cast<CCameraSourceModel*>(model))
        m_entry = source->getDataFlowProxy();
    if (auto* sink = qobject_cast<CPngSinkModel*>(model))
        m_sinks.push_back(sink);
    if (auto* decoupler = qobject_cast<CNodeDecouplerDataModelBase*>(model)) {
        m_decouplers.push_back({&node, decoupler});
        // Connected after the node, whose walk is then over.
        connect(model, &CNodeDataModel::dataUpdated, this, [this, index = m_decouplers.size() - 1] {
            ++m_decouplers[index].delivered;
            Q_EMIT cameThrough();
        });
    }
}

bool CStreamGraph::isDrained() const
{
    return std::all_of(m_decouplers.begin(), m_decouplers.end(), [](const SDecoupler& decoupler) {
        const SDecouplerStatistics counts = decoupler.model->statistics();
        return counts.pending == 0 && counts.emitted == decoupler.delivered;
    });
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
    const CGraphText text(*m_scene);
    const FlowEdges edges = text.edges();
    auto edge = edges.begin();
    for (std::size_t i = 0; i < m_nodes.size(); ++i) {
        CNodeDataModel* const model = m_nodes[i]->nodeDataModel();
        const auto* decoupler = qobject_cast<CNodeDecouplerDataModelBase*>(model);
        if (decoupler)
            out[i] = decoupler->statistics().emitted;
        else
            out[i] = qobject_cast<CCameraSourceModel*>(model) ? frames : in[i];
        for (; edge != edges.end() && std::size_t(edge->first) == i; ++edge)
            in[std::size_t(edge->second)] += out[i];
    }
    return in;
}

void CStreamGraph::account(SRunReport* report) const
{
    report->graph = CGraphText(*m_scene).text();
    const Counts in = expected(report->frames.complete);
    auto decoupler = m_decouplers.begin();
    for (std::size_t i = 0; i < m_nodes.size(); ++i) {
        CNodeDataModel* const model = m_nodes[i]->nodeDataModel();
        if (const auto* sink = qobject_cast<CPngSinkModel*>(model)) {
            report->sinks.push_back(sinkReport(*sink));
            report->sinks.back().expected = in[i];
        } else if (decoupler != m_decouplers.end() && decoupler->node == m_nodes[i]) {
            report->decouplers.push_back({QStringLiteral("[%1] %2").arg(i).arg(model->caption()),
                                          decoupler->model->framesPerSecond(), decoupler->model->statistics(), in[i],
                                          decoupler->delivered});
            ++decoupler;
        }
    }
}

} // namespace Host
