// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/models/AWorkerNodeDataModel.h>

#include "graph/support/JsonObject_p.h"
#include "graph/support/Reports_p.h"
#include "models/CInputGatherer_p.h"
#include "models/CWorkQueue_p.h"
#include "models/RemovedWork_p.h"
#include "models/StoreNewestData_p.h"

#include <Halvex/graph/DocumentKeys.h>

#include <QMetaEnum>
#include <QPointer>
#include <QScopeGuard>

#include <utility>

namespace Plugin::Halvex {

AWorkerNodeDataModel::AWorkerNodeDataModel(QString uniqueName)
    : ANodeDataModel(std::move(uniqueName))
    , m_queue(std::make_shared<CWorkQueue>(*this))
{
    applyLimits();
}

AWorkerNodeDataModel::~AWorkerNodeDataModel()
{
    // What is released here runs foreign code, which must find a model that has no data and takes none.
    m_isEnding = true;
    const CNodeDataPtr last = std::exchange(m_output, CNodeDataPtr());
    m_queue->close();
}

void AWorkerNodeDataModel::setInData(CNodeDataPtr data, NodePortIndex index)
{
    if (m_isEnding)
        return;
    if (!m_gatherer && !makeGatherer())
        return;
    if (index < 0 || std::size_t(index) >= m_gatherer->ports())
        return;

    const std::size_t port = std::size_t(index);
    Inputs passedOver; // released last: destructors of data are foreign code
    if (!data) {
        m_gatherer->clear(passedOver);
        m_queue->cancel();
    } else if (m_gathering == EGathering::SameNumber) {
        const QPointer<AWorkerNodeDataModel> self(this);
        const qint64 itsNumber = number(data);
        if (self && m_gatherer->addNumbered(port, itsNumber, std::move(data), m_frame, passedOver))
            addFrame();
    } else if (m_gatherer->addNewest(port, data, m_frame)) {
        addFrame();
    }
}

/// Whether the model is still there: what a subclass says is foreign code. That may also send data, and with it have
/// made the gatherer.
bool AWorkerNodeDataModel::makeGatherer()
{
    const QPointer<AWorkerNodeDataModel> self(this);
    const unsigned int ports = nPorts(ENodePortType::In);
    if (!self)
        return false;
    if (!m_gatherer)
        m_gatherer = std::make_unique<CInputGatherer>(ports);
    return true;
}

/// The same with the work.
bool AWorkerNodeDataModel::prepareWork()
{
    const QPointer<AWorkerNodeDataModel> self(this);
    auto made = std::make_shared<const Work>(makeWork());
    if (self && !m_work)
        m_work = std::move(made);
    made.reset(); // what it captured may remove the model, too
    return self;
}

void AWorkerNodeDataModel::addFrame()
{
    const QPointer<AWorkerNodeDataModel> self(this);
    Inputs frame = std::exchange(m_frame, {});
    if (!m_work && !prepareWork())
        return;
    m_queue->add(frame, m_work);
    frame.clear();
    if (!self)
        return;
    m_frame = std::move(frame); // for its room
    if (!std::exchange(m_isComputing, true))
        Q_EMIT computingStarted(); // last: what a handler sends comes after this frame
}

CNodeDataPtr AWorkerNodeDataModel::outData(NodePortIndex index)
{
    return index == 0 ? m_output : CNodeDataPtr();
}

void AWorkerNodeDataModel::onResultsReady()
{
    const QPointer<AWorkerNodeDataModel> self(this);
    // An exception of a handler's ends this call; what is left then is for another one.
    // Survives exchanged neighbours: the one that follows throws nothing.
    auto callAgain = qScopeGuard([&self] {
        if (self)
            QMetaObject::invokeMethod(
                self.data(), [worker = self.data()] { worker->onResultsReady(); }, Qt::QueuedConnection);
    });
    m_queue->beginDelivery();
    while (auto result = m_queue->takeNext()) {
        const bool isNews = !result->error.isNull() && result->error != m_message;
        m_message = result->error;
        if (isNews)
            report(m_message);
        if (self)
            giveOut(std::move(result->data));
        if (!self)
            return;
    }
    callAgain.dismiss();
    if (m_isComputing && m_queue->isIdle()) {
        m_isComputing = false;
        Q_EMIT computingFinished();
    }
}

/// The model may be gone afterwards.
void AWorkerNodeDataModel::giveOut(CNodeDataPtr data)
{
    const bool hasData = !data.isNull();
    // Survives counted the other way: it is only asked whether the number has changed.
    const quint64 turn = ++m_turn;
    if (!storeNewestData(*this, m_output, std::move(data)) || m_turn != turn)
        return; // the end of the old one has removed the model, or let a newer one out
    if (hasData)
        Q_EMIT dataUpdated(0);
    else
        Q_EMIT dataInvalidated(0);
}

void AWorkerNodeDataModel::report(const QString& error)
{
    qCWarning(lcGraph, "The work of the model \"%s\" ended with an exception: %s", qUtf8Printable(name()),
              qUtf8Printable(error));
}

ENodeValidationState AWorkerNodeDataModel::validationState() const
{
    return m_message.isNull() ? ENodeValidationState::Valid : ENodeValidationState::Error;
}

QString AWorkerNodeDataModel::validationMessage() const
{
    return m_message;
}

QJsonObject AWorkerNodeDataModel::save() const
{
    const QJsonObject property = jsonObject(
        {{DocumentKeys::policy, QString::fromLatin1(QMetaEnum::fromType<EPolicy>().valueToKey(int(m_policy)))},
         {DocumentKeys::mostWaiting, m_mostWaiting},
         {DocumentKeys::parallelism, m_parallelism}});
    QJsonObject json = ANodeDataModel::save(); // asks the subclass, which may remove the node that owns this model
    json.insert(QString(DocumentKeys::property), property);
    return json;
}

void AWorkerNodeDataModel::restore(const QJsonObject& json)
{
    const QJsonObject property = json.value(DocumentKeys::property).toObject();
    // Survives exchanged truth: who is asked always says.
    bool isPolicy = false;
    const int policy = QMetaEnum::fromType<EPolicy>().keyToValue(
        property.value(DocumentKeys::policy).toString().toLatin1().constData(), &isPolicy);
    const QPointer<AWorkerNodeDataModel> self(this);
    if (isPolicy)
        setPolicy(EPolicy(policy));
    if (self)
        setMostWaiting(property.value(DocumentKeys::mostWaiting).toInt());
    if (self)
        setParallelism(property.value(DocumentKeys::parallelism).toInt());
}

AWorkerNodeDataModel::EPolicy AWorkerNodeDataModel::policy() const
{
    return m_policy;
}

void AWorkerNodeDataModel::setPolicy(EPolicy policy)
{
    if (policy == m_policy)
        return;
    m_policy = policy;
    if (applyLimits())
        Q_EMIT policyChanged();
}

int AWorkerNodeDataModel::mostWaiting() const
{
    return m_mostWaiting;
}

void AWorkerNodeDataModel::setMostWaiting(int frames)
{
    if (frames < 1 || frames == m_mostWaiting)
        return;
    m_mostWaiting = frames;
    if (applyLimits())
        Q_EMIT mostWaitingChanged();
}

int AWorkerNodeDataModel::parallelism() const
{
    return m_parallelism;
}

void AWorkerNodeDataModel::setParallelism(int frames)
{
    if (frames < 1 || frames == m_parallelism)
        return;
    m_parallelism = frames;
    if (applyLimits())
        Q_EMIT parallelismChanged();
}

/// Whether the model is still there: what waits may begin now, Qt warns if there is no thread for it, and a message
/// handler is foreign code.
bool AWorkerNodeDataModel::applyLimits()
{
    const QPointer<AWorkerNodeDataModel> self(this);
    const auto queue = m_queue;
    queue->setLimits(
        {m_policy == EPolicy::NewestWins ? 1 : m_mostWaiting, m_policy == EPolicy::DropNewest, m_parallelism});
    return self;
}

void AWorkerNodeDataModel::setThreadPool(QThreadPool* pool)
{
    m_queue->setPool(pool);
}

SWorkerStatistics AWorkerNodeDataModel::statistics() const
{
    return m_queue->statistics();
}

bool AWorkerNodeDataModel::waitForRemovedWork(unsigned long milliseconds)
{
    if (RemovedWork::wait(milliseconds))
        return true;
    qWarning("Work of models that are gone has not ended within %lu ms.", milliseconds);
    return false;
}

void AWorkerNodeDataModel::renewWork()
{
    m_work.reset();
}

qint64 AWorkerNodeDataModel::number(const CNodeDataPtr& data) const
{
    Q_UNUSED(data)
    // Survives number off by one: all data has the same number.
    return 0;
}

} // namespace Plugin::Halvex
