// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CThreadWatch.h"

#include "host/viewer/base/ModelText.h"

#include <Halvex/graph/CNodeConnection.h>
#include <Halvex/models/ASinkNodeDataModel.h>
#include <Halvex/models/ASourceNodeDataModel.h>
#include <Halvex/models/AWorkerNodeDataModel.h>
#include <Halvex/models/CNodeDecouplerDataModelBase.h>
#include <Halvex/scene/CNodeScene.h>

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace Host {

using namespace Plugin::Halvex;

namespace {

constexpr int beatInterval = 50; // milliseconds
// So long after the last sign there is nothing to watch: the window is at rest and nothing is to wake it.
constexpr qint64 restAfter = 2000;

// A source only hands on what came from outside; workers and decouplers have threads of their own.
bool worksInThisThread(const CNodeBase& node)
{
    const CNodeDataModel* const model = node.nodeDataModel();
    return !qobject_cast<const ASourceNodeDataModel*>(model) && !qobject_cast<const AWorkerNodeDataModel*>(model) &&
           !qobject_cast<const CNodeDecouplerDataModelBase*>(model);
}

} // namespace

CThreadWatch::CThreadWatch(std::chrono::milliseconds limit, QObject* parent)
    : QObject(parent)
    , m_limit(int(limit.count()))
{
    m_timer.setInterval(beatInterval);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &CThreadWatch::onBeat);
    m_clock.start();
}

void CThreadWatch::watch(CNodeScene& scene)
{
    for (const auto& node : scene.nodes())
        watchNode(*node.second);
    connect(&scene, &CNodeScene::nodeCreated, this, &CThreadWatch::watchNode, Qt::UniqueConnection);
}

void CThreadWatch::watchNode(CNodeBase& node)
{
    CNodeDataModel* const model = node.nodeDataModel();
    const auto sign = [this, which = &node] { onSign(which); };
    connect(model, &CNodeDataModel::dataUpdated, this, sign);
    connect(model, &CNodeDataModel::computingStarted, this, sign);
    connect(model, &CNodeDataModel::computingFinished, this, sign);
    auto* const sink = qobject_cast<ASinkNodeDataModel*>(model);
    if (sink && sink->getDataFlowProxy())
        connect(sink->getDataFlowProxy(), &CNodeDataFlowProxy::newDataAvailable, this, sign);
}

void CThreadWatch::onSign(CNodeBase* node)
{
    if (!m_timer.isActive()) {
        m_timer.start();
        QCoreApplication::instance()->installEventFilter(this);
        m_lastBeat = m_lastSign = m_clock.elapsed();
    }
    endSilence(node);
    m_lastNode = node;
    if (!wasHeard(node))
        m_heard.emplace_back(node);
}

void CThreadWatch::endSilence(CNodeBase* suspect)
{
    const qint64 now = m_clock.elapsed();
    if (now - m_lastSign > m_longest) {
        m_longest = now - m_lastSign;
        m_suspect = suspect;
    }
    m_lastSign = now;
}

bool CThreadWatch::eventFilter(QObject* watched, QEvent* event)
{
    // Nothing was heard at the end of the event before: whoever sent last fed one that says nothing.
    endSilence(m_lastNode);
    m_lastNode = nullptr;
    return QObject::eventFilter(watched, event);
}

void CThreadWatch::onBeat()
{
    const qint64 now = m_clock.elapsed();
    const qint64 late = now - m_lastBeat - beatInterval;
    if (late > m_limit)
        Q_EMIT heldUp(suspects(), int(late));
    m_lastBeat = now;
    if (!m_heard.empty())
        m_lastHeard = now;
    m_longest = 0;
    m_suspect = nullptr;
    m_heard.clear();
    if (now - m_lastHeard < restAfter)
        return;
    m_timer.stop();
    QCoreApplication::instance()->removeEventFilter(this);
}

QString CThreadWatch::suspects() const
{
    if (!m_suspect)
        return {};
    std::vector<const CNodeBase*> nodes;
    if (worksInThisThread(*m_suspect))
        nodes.push_back(m_suspect);
    for (const auto& connections : std::as_const(m_suspect->nodeState()).getEntries(ENodePortType::Out)) {
        for (const auto& entry : connections) {
            const CNodeBase* const fed = entry.second->getNode(ENodePortType::In);
            if (fed && worksInThisThread(*fed) && !wasHeard(fed))
                nodes.push_back(fed);
        }
    }
    QStringList names;
    for (const CNodeBase* const node : nodes)
        names << captionText(*node->nodeDataModel());
    names.sort(); // the table's order means nothing
    names.removeDuplicates();
    return names.join(QStringLiteral(", "));
}

bool CThreadWatch::wasHeard(const CNodeBase* node) const
{
    return std::find(m_heard.begin(), m_heard.end(), node) != m_heard.end();
}

} // namespace Host
