// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/CNodeDecouplerDataModelBase.h>

#include "graph/PortSides_p.h"
#include "graph/support/JsonObject_p.h"
#include "models/DecouplerEnd_p.h"
#include "models/StoreNewestData_p.h"

#include <Halvex/graph/DocumentKeys.h>
#include <Halvex/models/CDecoupler.h>

#include <QTimer>

#include <cmath>
#include <limits>
#include <utility>

namespace Plugin::Halvex {

CNodeDecouplerDataModelBase::CNodeDecouplerDataModelBase()
    : m_decoupler(std::make_unique<CDecoupler>())
    , m_tickTimer(new QTimer(this))
{
    // Survives exchanged neighbours: neither sees what the other one sets.
    m_modelType = ENodeDataModelType::Decoupler;
    // Survives exchanged neighbours: the same.
    m_decoupler->enableThrottle(true);
    // Survives exchanged neighbours: no tick comes before an event loop runs.
    reconfigureTickTimer();
    // Survives exchanged neighbours: the same.
    m_tickTimer->start();

    // Survives exchanged neighbours: a worker that starts first waits for the tick.
    connect(m_tickTimer, &QTimer::timeout, m_decoupler.get(), &CDecoupler::throttleTimerTick);
    connect(m_tickTimer, &QTimer::timeout, this, &CNodeDecouplerDataModelBase::startWorkerForWaitingData);
    connect(this, &CNodeDecouplerDataModelBase::inDataUpdated, m_decoupler.get(), &CDecoupler::setNodeData);
    connect(m_decoupler.get(), &CDecoupler::nodeDataAvailable, this, &CNodeDecouplerDataModelBase::onNodeDataAvailable);
}

CNodeDecouplerDataModelBase::~CNodeDecouplerDataModelBase()
{
    m_tickTimer->stop();
    // The destructors of data are foreign code. From here on they find a model that takes no more: m_decoupler is null.
    endDecoupler(m_decoupler.release());
    CNodeDataPtr().swap(m_lastData);
}

QString CNodeDecouplerDataModelBase::caption()
{
    return tr("Decoupler for %1").arg(dataTypeName());
}

QString CNodeDecouplerDataModelBase::portCaption(ENodePortType, NodePortIndex) const
{
    return mutableSelf(*this).dataTypeName();
}

QString CNodeDecouplerDataModelBase::name()
{
    return QStringLiteral("Decoupler") + dataTypeName();
}

unsigned int CNodeDecouplerDataModelBase::nPorts(ENodePortType portType) const
{
    return isPortSide(portType) ? 1 : 0;
}

void CNodeDecouplerDataModelBase::setInData(CNodeDataPtr data, NodePortIndex index)
{
    if (index == 0)
        Q_EMIT inDataUpdated(std::move(data));
}

CNodeDataPtr CNodeDecouplerDataModelBase::outData(NodePortIndex index)
{
    return index == 0 ? m_lastData : CNodeDataPtr();
}

bool CNodeDecouplerDataModelBase::isUnique()
{
    return false;
}

QJsonObject CNodeDecouplerDataModelBase::save() const
{
    const QJsonObject property = jsonObject({{DocumentKeys::framesPerSecond, m_framesPerSecond}});
    QJsonObject json = ANodeDataModel::save(); // asks the subclass, which may remove the node that owns this model
    json.insert(QString(DocumentKeys::property), property);
    return json;
}

void CNodeDecouplerDataModelBase::restore(const QJsonObject& json)
{
    const QJsonObject property = json.value(DocumentKeys::property).toObject();
    const QJsonValue rate = property.value(DocumentKeys::framesPerSecond);
    if (!rate.isUndefined())
        setFramesPerSecond(rate.toDouble());
}

double CNodeDecouplerDataModelBase::framesPerSecond() const
{
    return m_framesPerSecond;
}

void CNodeDecouplerDataModelBase::setFramesPerSecond(double fps)
{
    if (fps == m_framesPerSecond)
        return;
    m_framesPerSecond = fps;
    reconfigureTickTimer();
    Q_EMIT framesPerSecondChanged(fps);
}

SDecouplerStatistics CNodeDecouplerDataModelBase::statistics() const
{
    return m_decoupler ? m_decoupler->statistics() : SDecouplerStatistics();
}

void CNodeDecouplerDataModelBase::onNodeDataAvailable(CNodeDataPtr ptrNodeData)
{
    // What is queued may still arrive in the destructor, if foreign code runs an event loop there.
    if (m_decoupler && storeNewestData(*this, m_lastData, std::move(ptrNodeData)))
        Q_EMIT dataUpdated(0);
}

/// A tick does not start the worker. Without this, data that came before the first tick would wait for more data.
void CNodeDecouplerDataModelBase::startWorkerForWaitingData()
{
    if (!m_decoupler->isRunning() && m_decoupler->statistics().pending > 0)
        m_decoupler->start(QThread::InheritPriority);
}

void CNodeDecouplerDataModelBase::reconfigureTickTimer()
{
    if (!std::isfinite(m_framesPerSecond) || m_framesPerSecond <= 0)
        return;
    const double interval = 1000.0 / m_framesPerSecond;
    constexpr int longest = std::numeric_limits<int>::max();
    // Survives exchanged operator: the longest interval is the same number on both sides.
    m_tickTimer->setInterval(interval < longest ? int(interval) : longest);
}

} // namespace Plugin::Halvex
