// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CStreamGraph.h"

#include "host/base/ClosestWords.h"
#include "host/base/Loops.h"
#include "host/base/Shown.h"
#include "host/models/ModelSettings.h"
#include "host/report/CGraphText.h"
#include "host/sinks/IFrameSink.h"

#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/models/AWorkerNodeDataModel.h>
#include <Halvex/models/CNodeDecouplerDataModelBase.h>

#include <QTimer>

#include <algorithm>
#include <optional>
#include <utility>

namespace Host {

using namespace Plugin::Halvex;

namespace {

CNodeDataEntry entryOf(const CNodeBase& camera)
{
    const auto* const source = qobject_cast<ASourceNodeDataModel*>(camera.nodeDataModel());
    Q_ASSERT(source);
    return source->dataEntry();
}

// Between two frames that the decoupler lets through. A rate that makes no sense leaves the timer as it was, so that
// the timer is asked.
std::chrono::milliseconds tickInterval(const CNodeDecouplerDataModelBase& decoupler)
{
    const auto* const timer = decoupler.findChild<const QTimer*>();
    Q_ASSERT(timer);
    return timer->intervalAsDuration();
}

std::optional<double> mostPerSecond(const CNodeDecouplerDataModelBase& decoupler)
{
    const auto interval = tickInterval(decoupler);
    return interval.count() > 0 ? std::optional<double>(1000.0 / double(interval.count())) : std::nullopt;
}

// Counts tell the work of each frame; the signals of a model tell only when there was any.
void fillInCounts(const SWorkerStatistics& counts, SNodeReport* row)
{
    row->dropped = counts.dropped + counts.cancelled;
    row->pending = counts.pending;
    if (counts.workSum == 0)
        return;
    row->computing = std::chrono::nanoseconds(counts.workP50);
    row->worked = std::chrono::nanoseconds(counts.workSum);
}

} // namespace

CStreamGraph::CStreamGraph(const CNodeScene& scene, const CNodeBase& camera)
    : m_scene(scene)
    , m_entry(entryOf(camera))
    , m_nodes(CGraphText(scene).nodes())
    , m_meter(scene, m_nodes)
{
    for (std::size_t i = 0; i < m_nodes.size(); ++i) {
        addNode(*m_nodes[i]);
        if (m_nodes[i] == &camera)
            m_cameraNumber = i;
    }
    findLoops();
    connect(&scene, &CNodeScene::nodeCreated, this, &CStreamGraph::onChanged);
    connect(&scene, &CNodeScene::nodeDeleted, this, &CStreamGraph::onChanged);
    connect(&scene, &CNodeScene::connectionCreated, this, &CStreamGraph::onChanged);
    connect(&scene, &CNodeScene::connectionDeleted, this, &CStreamGraph::onChanged);
}

void CStreamGraph::addNode(const CNodeBase& node)
{
    CNodeDataModel* model = node.nodeDataModel();
    // A node that is replaced goes without the scene's signals.
    connect(model, &QObject::destroyed, this, &CStreamGraph::onChanged);
    if (auto* sink = qobject_cast<IFrameSink*>(model)) {
        m_sinks.push_back(sink);
        connect(model, &CNodeDataModel::computingFinished, this, &CStreamGraph::cameThrough);
    }
    if (auto* decoupler = qobject_cast<CNodeDecouplerDataModelBase*>(model)) {
        m_decouplers.push_back({decoupler});
        // Connected after the node, whose walk is then over.
        connect(model, &CNodeDataModel::dataUpdated, this, [this, index = m_decouplers.size() - 1] {
            ++m_decouplers[index].delivered;
            m_brake.noteDelivery(*m_decouplers[index].model);
            Q_EMIT cameThrough();
        });
    }
    if (auto* worker = qobject_cast<AWorkerNodeDataModel*>(model)) {
        m_workers.push_back(worker);
        connect(model, &CNodeDataModel::computingFinished, this, &CStreamGraph::cameThrough);
    }
}

void CStreamGraph::findLoops()
{
    for (const int node : nodesOnLoops(int(m_nodes.size()), CGraphText(m_scene).edges(), int(m_cameraNumber))) {
        if (auto* decoupler = qobject_cast<CNodeDecouplerDataModelBase*>(m_nodes[std::size_t(node)]->nodeDataModel()))
            m_brake.add(*decoupler);
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
    const auto hasComeThrough = [this](const SDecoupler& decoupler) {
        const SDecouplerStatistics counts = decoupler.model->statistics();
        return (counts.pending == 0 || m_brake.isHolding(*decoupler.model)) && counts.emitted == decoupler.delivered;
    };
    const auto isDone = [](const AWorkerNodeDataModel* worker) { return worker->statistics().pending == 0; };
    const auto hasWritten = [](const IFrameSink* sink) { return sink->writing().pending == 0; };
    return std::all_of(m_decouplers.begin(), m_decouplers.end(), hasComeThrough) &&
           std::all_of(m_workers.begin(), m_workers.end(), isDone) &&
           std::all_of(m_sinks.begin(), m_sinks.end(), hasWritten);
}

void CStreamGraph::finishSinks()
{
    if (std::exchange(m_areSinksFinished, true))
        return;
    for (IFrameSink* sink : m_sinks)
        sink->finish();
}

quint64 CStreamGraph::workDone() const
{
    const auto settled = [](const SWorkerStatistics& counts) { return counts.received - counts.pending; };
    quint64 done = 0;
    for (const SDecoupler& decoupler : m_decouplers)
        done += decoupler.delivered;
    for (const AWorkerNodeDataModel* worker : m_workers)
        done += settled(worker->statistics());
    for (const IFrameSink* sink : m_sinks)
        done += settled(sink->writing());
    return done;
}

std::chrono::milliseconds CStreamGraph::patience() const
{
    std::chrono::milliseconds time(10000); // a disk may stop for some seconds
    for (const SDecoupler& decoupler : m_decouplers)
        time += 2 * tickInterval(*decoupler.model);
    return time;
}

// Label, caption and number: whatever a person may call it.
QStringList CStreamGraph::namesOf(std::size_t node) const
{
    QStringList names{m_nodes[node]->nodeDataModel()->caption(), QString::number(node)};
    const auto label = m_labels.find(m_nodes[node]->id());
    if (label != m_labels.end())
        names.prepend(label->second);
    return names;
}

QString CStreamGraph::set(const SNodeSetting& setting)
{
    Q_ASSERT(m_isIntact);
    QStringList known;
    std::vector<CNodeDataModel*> meant;
    // A label, which several chains may have, goes before a caption, that before a number.
    for (const int rank : {0, 1, 2}) {
        for (std::size_t node = 0; node < m_nodes.size(); ++node) {
            const QStringList names = namesOf(node);
            if (names.value(rank) == setting.node)
                meant.push_back(m_nodes[node]->nodeDataModel());
            known << names.first();
        }
        if (!meant.empty())
            break;
    }
    if (meant.empty())
        return withHint(QStringLiteral("no node is called %1").arg(shown(setting.node)),
                        didYouMean(setting.node, known));
    for (CNodeDataModel* const model : meant) {
        const QString error = setSetting(*model, setting.key, setting.value);
        // Who hears of a change may remove the models that are still to be set.
        if (!m_isIntact)
            return QStringLiteral("the graph was changed meanwhile");
        if (!error.isEmpty())
            return error;
    }
    return {};
}

void CStreamGraph::account(SRunReport* report) const
{
    report->graph = CGraphText(m_scene).text();
    report->connections = m_meter.connections();
    report->flowMismatch = m_meter.mismatch(m_cameraNumber, report->frames.complete);
    for (std::size_t node = 0; node < m_nodes.size(); ++node)
        accountNode(node, report);
}

void CStreamGraph::accountNode(std::size_t node, SRunReport* report) const
{
    CNodeDataModel* const model = m_nodes[node]->nodeDataModel();
    SNodeReport row = m_meter.report(node, report->span);
    const quint64 expected = m_meter.delivered(node);
    if (const auto* sink = qobject_cast<IFrameSink*>(model)) {
        report->sinks.push_back(
            {sink->sinkName(), sink->delivered(), expected, sink->files(), sink->writing(), sink->written()});
        fillInCounts(report->sinks.back().writing, &row);
    }
    if (auto* const decoupler = qobject_cast<CNodeDecouplerDataModelBase*>(model)) {
        const SDecouplerStatistics counts = decoupler->statistics();
        row.dropped = counts.dropped + counts.cancelled;
        row.pending = counts.pending;
        const auto known = std::find_if(m_decouplers.begin(), m_decouplers.end(),
                                        [decoupler](const SDecoupler& each) { return each.model == decoupler; });
        const std::optional<double> most = mostPerSecond(*decoupler);
        // A tick that found nothing lets the next frame through at once, so that one more came than ticks in the time.
        if (most && row.framesPerSecond)
            row.framesPerSecond = std::min(*row.framesPerSecond, *most);
        report->decouplers.push_back({row.name, m_brake.framesPerSecond(*decoupler), counts, expected, known->delivered,
                                      most, m_brake.isOnLoop(*decoupler)});
    }
    if (const auto* worker = qobject_cast<AWorkerNodeDataModel*>(model)) {
        const SWorkerStatistics counts = worker->statistics();
        fillInCounts(counts, &row);
        // Several inputs make one frame of what comes on them; how is up to the model.
        const bool hasOneInput = model->nPorts(ENodePortType::In) == 1;
        report->workers.push_back({row.name, counts, hasOneInput ? expected : counts.received});
    }
    report->nodes.push_back(row);
}

} // namespace Host
