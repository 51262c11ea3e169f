// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/CNodeActivity.h"

#include <algorithm>
#include <atomic>

namespace Host {

using namespace Plugin::Halvex;

namespace {

qint64 now()
{
    return std::chrono::steady_clock::now().time_since_epoch().count();
}

} // namespace

struct CNodeActivity::SCounts
{
    explicit SCounts(std::size_t ports)
        : updates(ports)
    {
    }

    void finish()
    {
        const qint64 began = since.exchange(0);
        if (began == 0)
            return;
        const qint64 took = now() - began;
        qint64 before = longest;
        while (before < took && !longest.compare_exchange_weak(before, took)) {
        }
    }

    // Each is a number by itself. The default order is needed for one thing: an update is counted before hasChanged is
    // set, so who takes that sees the count.
    std::vector<std::atomic<quint64>> updates;
    std::atomic<bool> hasChanged{true};
    // Taken out by whoever ends it; 0 while nothing is computed. A time under way is told as far as it has come, and
    // once more when it has ended.
    std::atomic<qint64> since{0};
    std::atomic<qint64> longest{0};
};

CNodeActivity::CNodeActivity(const CNodeDataModel& model)
    : m_counts(std::make_shared<SCounts>(model.nPorts(ENodePortType::Out)))
{
    const auto counts = m_counts;
    m_connections.push_back(QObject::connect(&model, &CNodeDataModel::dataUpdated, [counts](NodePortIndex port) {
        if (port >= 0 && std::size_t(port) < counts->updates.size())
            ++counts->updates[std::size_t(port)];
        counts->hasChanged = true;
    }));
    m_connections.push_back(QObject::connect(&model, &CNodeDataModel::dataInvalidated,
                                             [counts](NodePortIndex) { counts->hasChanged = true; }));
    m_connections.push_back(
        QObject::connect(&model, &CNodeDataModel::computingStarted, [counts] { counts->since = now(); }));
    m_connections.push_back(QObject::connect(&model, &CNodeDataModel::computingFinished, [counts] {
        counts->finish();
        counts->hasChanged = true;
    }));
}

CNodeActivity::~CNodeActivity()
{
    for (const QMetaObject::Connection& connection : m_connections)
        QObject::disconnect(connection);
}

quint64 CNodeActivity::updates(int port) const
{
    return std::size_t(port) < m_counts->updates.size() ? m_counts->updates[std::size_t(port)].load() : 0;
}

bool CNodeActivity::takeChanged()
{
    return m_counts->hasChanged.exchange(false);
}

std::chrono::nanoseconds CNodeActivity::takeLongest()
{
    const qint64 began = m_counts->since;
    const qint64 ended = m_counts->longest.exchange(0);
    return std::chrono::nanoseconds(began == 0 ? ended : std::max(ended, now() - began));
}

} // namespace Host
