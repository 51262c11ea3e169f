// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "models/CNodeDecouplerDataModelBase.h"

#include "graph/DocumentKeys_p.h"
#include "graph/support/JsonObject_p.h"
#include "models/CDecoupler.h"

#include <QTimer>

#include <cmath>
#include <limits>
#include <utility>

namespace Plugin {
namespace Halvex {

CNodeDecouplerDataModelBase::CNodeDecouplerDataModelBase()
    : m_decoupler(std::make_unique<CDecoupler>())
    , m_tickTimer(new QTimer(this))
{
    m_modelType = ENodeDataModelType::Decoupler;
    m_decoupler->enableThrottle(true);
    reconfigureTickTimer();
    m_tickTimer->start();

    connect(m_tickTimer, &QTimer::timeout, m_decoupler.get(), &CDecoupler::throttleTimerTick);
    // A tick starts no thread. Without this, data that came before the first tick would wait for more data.
    connect(m_tickTimer, &QTimer::timeout, m_decoupler.get(), &CDecoupler::startForWaitingData);
    connect(this, &CNodeDecouplerDataModelBase::inDataUpdated, m_decoupler.get(), &CDecoupler::setNodeData);
    connect(m_decoupler.get(), &CDecoupler::nodeDataAvailable, this, &CNodeDecouplerDataModelBase::onNodeDataAvailable);
}

CNodeDecouplerDataModelBase::~CNodeDecouplerDataModelBase()
{
    m_tickTimer->stop();
    // What these release may run foreign code, which must find a model that has no output and takes no data.
    disconnect(m_decoupler.get(), nullptr, this, nullptr);
    CNodeDataPtr().swap(m_lastData);
    m_decoupler.release()->deleteWhenEnded();
}

QString CNodeDecouplerDataModelBase::caption()
{
    return tr("Decoupler for %1").arg(dataTypeName());
}

QString CNodeDecouplerDataModelBase::portCaption(ENodePortType portType, NodePortIndex index) const
{
    Q_UNUSED(portType)
    Q_UNUSED(index)
    return mutableSelf(*this).dataTypeName();
}

QString CNodeDecouplerDataModelBase::name()
{
    return QStringLiteral("Decoupler") + dataTypeName();
}

unsigned int CNodeDecouplerDataModelBase::nPorts(ENodePortType portType) const
{
    return portType == ENodePortType::In || portType == ENodePortType::Out ? 1 : 0;
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
    QJsonObject json = ANodeDataModel::save();
    json.insert(QString(DocumentKeys::property), jsonObject({{DocumentKeys::framesPerSecond, m_framesPerSecond}}));
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
    // The previous data goes before the walk begins; its destructor is foreign code that may destroy this model.
    const CWeakLink<CNodeDecouplerDataModelBase> self(this, m_guards);
    m_lastData.swap(ptrNodeData);
    ptrNodeData.reset();
    if (self.get())
        Q_EMIT dataUpdated(0);
}

void CNodeDecouplerDataModelBase::reconfigureTickTimer()
{
    if (!std::isfinite(m_framesPerSecond) || m_framesPerSecond <= 0)
        return;
    const double interval = 1000.0 / m_framesPerSecond;
    constexpr int longest = std::numeric_limits<int>::max();
    m_tickTimer->setInterval(interval < longest ? int(interval) : longest);
}

} // namespace Halvex
} // namespace Plugin
