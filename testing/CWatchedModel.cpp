// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "testing/CWatchedModel_p.h"

#include "testing/PropertyValues_p.h"
#include "testing/Samples_p.h"

#include <Halvex/testing/CForeignData.h>

#include <Halvex/models/ASourceNodeDataModel.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QJsonDocument>
#include <QThread>

#include <algorithm>
#include <utility>

namespace Plugin::Halvex::Testing {

namespace {

void deliverEvents(int milliseconds)
{
    QCoreApplication::processEvents(QEventLoop::AllEvents, milliseconds);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

CWatchedModel::CWatchedModel(const SModelSubject& subject)
    : m_subject(subject)
    , m_model(subject.creator())
{
    m_inPorts = NodePortIndex(m_model->nPorts(ENodePortType::In));
    m_outPorts = NodePortIndex(m_model->nPorts(ENodePortType::Out));
    QObject::connect(m_model.get(), &CNodeDataModel::dataUpdated, &m_listener,
                     [this](NodePortIndex port) { onUpdated(port); });
    QObject::connect(
        m_model.get(), &CNodeDataModel::dataUpdated, &m_listener,
        [this] {
            if (QThread::currentThread() != m_listener.thread())
                m_spokeElsewhere = true;
        },
        Qt::DirectConnection);
    QObject::connect(m_model.get(), &CNodeDataModel::dataInvalidated, &m_listener,
                     [this](NodePortIndex port) { m_invalidated.push_back(port); });
    QObject::connect(m_model.get(), &CNodeDataModel::computingStarted, &m_listener, [this] { ++m_started; });
    QObject::connect(m_model.get(), &CNodeDataModel::computingFinished, &m_listener, [this] {
        ++m_finished;
        m_finishedUnasked = m_finishedUnasked || m_finished > m_started;
    });
}

CWatchedModel::~CWatchedModel()
{
    destroy(); // first: until it is gone, a thread of its own may emit, and run what the constructor connected
}

ASourceNodeDataModel* CWatchedModel::source() const
{
    return dynamic_cast<ASourceNodeDataModel*>(m_model.get());
}

NodePortIndex CWatchedModel::entries() const
{
    if (m_inPorts > 0)
        return m_inPorts;
    return source() && source()->getDataFlowProxy() ? 1 : 0;
}

QString CWatchedModel::shownEntry(NodePortIndex entry) const
{
    return m_inPorts > 0 ? shownPort(ENodePortType::In, entry) : QStringLiteral("its proxy");
}

QString CWatchedModel::lacks() const
{
    for (NodePortIndex entry = 0; entry < entries(); ++entry) {
        if (!makeData(entry, 0))
            return noDataOf(typeOf(entry));
    }
    return entries() > 0 ? QString() : QStringLiteral("it has neither an input nor a source's proxy");
}

SNodeDataType CWatchedModel::typeOf(NodePortIndex entry) const
{
    return m_model->dataType(m_inPorts > 0 ? ENodePortType::In : ENodePortType::Out, entry);
}

CNodeDataPtr CWatchedModel::makeData(NodePortIndex entry, int number) const
{
    return makeSample(typeOf(entry), number, m_subject.options);
}

std::vector<CNodeDataPtr> CWatchedModel::makeData(int number) const
{
    std::vector<CNodeDataPtr> data;
    data.reserve(std::size_t(entries()));
    for (NodePortIndex entry = 0; entry < entries(); ++entry)
        data.push_back(makeData(entry, number));
    return data;
}

void CWatchedModel::put(const CNodeDataPtr& data, NodePortIndex entry)
{
    if (m_inPorts > 0)
        m_model->setInData(data, entry);
    else
        source()->getDataFlowProxy()->setData(data);
}

void CWatchedModel::feedForeign()
{
    for (NodePortIndex port = 0; port < m_inPorts; ++port)
        m_model->setInData(CNodeDataPtr(new CForeignData), port);
}

void CWatchedModel::feed(const std::vector<CNodeDataPtr>& data)
{
    m_updatesBeforeFeed = m_updates.size();
    m_invalidatedBeforeFeed = m_invalidated.size();
    for (NodePortIndex entry = 0; entry < entries(); ++entry)
        put(data[std::size_t(entry)], entry);
    rethrow();
}

void CWatchedModel::empty()
{
    for (NodePortIndex port = 0; port < m_inPorts; ++port)
        m_model->setInData({}, port);
}

void CWatchedModel::use()
{
    if (lacks().isEmpty()) {
        feed(1);
        settle();
    }
    empty();
    m_model->restore(changedDocument(m_subject));
}

void CWatchedModel::settle()
{
    const QDeadlineTimer deadline(m_subject.options.patience);
    deliverEvents(10);
    while (!deadline.hasExpired() && !hasSpoken()) {
        QThread::msleep(1);
        deliverEvents(10);
    }
    rethrow();
}

void CWatchedModel::waitLong() const
{
    const QDeadlineTimer deadline(m_subject.options.patience);
    while (!deadline.hasExpired()) {
        deliverEvents(10);
        QThread::msleep(1);
    }
}

void CWatchedModel::destroy()
{
    m_model.reset();
    for (SUpdate& update : m_updates)
        update.data.reset();
}

void CWatchedModel::onUpdated(NodePortIndex port)
{
    CNodeDataPtr data;
    // A model that announces when it is asked would be asked for ever; and what was queued may come when it is gone.
    if (port >= 0 && port < m_outPorts && !m_isAsking && m_model) {
        m_isAsking = true;
        try {
            data = m_model->outData(port);
        } catch (...) {
            m_thrown = std::current_exception();
        }
        m_isAsking = false;
    }
    m_updates.push_back({port, data});
}

bool CWatchedModel::hasSpoken() const
{
    const auto update = m_updates.begin() + std::ptrdiff_t(m_updatesBeforeFeed);
    const auto invalidated = m_invalidated.begin() + std::ptrdiff_t(m_invalidatedBeforeFeed);
    const auto speaksOf = [&](NodePortIndex port) {
        return std::any_of(update, m_updates.end(), [port](const SUpdate& one) { return one.port == port; }) ||
               std::find(invalidated, m_invalidated.end(), port) != m_invalidated.end();
    };
    for (NodePortIndex port = 0; port < m_outPorts; ++port) {
        if (!speaksOf(port))
            return false;
    }
    return m_started <= m_finished;
}

void CWatchedModel::rethrow()
{
    if (const auto thrown = std::exchange(m_thrown, nullptr))
        std::rethrow_exception(thrown);
}

QJsonObject throughText(const QJsonObject& document)
{
    return QJsonDocument::fromJson(QJsonDocument(document).toJson(QJsonDocument::Compact)).object();
}

QJsonObject changedDocument(const SModelSubject& subject)
{
    const std::unique_ptr<CNodeDataModel> model = subject.creator();
    changeSettings(*model, subject.options);
    return throughText(model->save());
}

void changeSettings(CNodeDataModel& model, const SCheckOptions& options)
{
    if (options.changeSettings)
        options.changeSettings(model);
    else
        changeProperties(model);
}

QString shown(const QJsonObject& document)
{
    constexpr int longest = 200;
    const QString text = QString::fromUtf8(QJsonDocument(document).toJson(QJsonDocument::Compact));
    return text.size() <= longest ? text : text.left(longest) + QStringLiteral("...");
}

QString shownPort(ENodePortType side, NodePortIndex port)
{
    return QStringLiteral("%1 %2")
        .arg(side == ENodePortType::In ? QStringLiteral("input") : QStringLiteral("output"))
        .arg(port);
}

} // namespace Plugin::Halvex::Testing
