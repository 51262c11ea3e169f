// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeDataModel.h>

#include <QMetaObject>

#include <chrono>
#include <memory>
#include <vector>

namespace Host {

/**
 * Counts what a model tells of: new data on its outputs, and how long it computes.
 *
 * It listens in whatever thread the model emits in and takes no lock, so a model at work is not held up. Ask in one
 * thread, the display's, as seldom as you like. The model may go before this object.
 */
class CNodeActivity
{
public:
    explicit CNodeActivity(const Plugin::Halvex::CNodeDataModel& model);
    ~CNodeActivity();
    Q_DISABLE_COPY(CNodeActivity)

    /// How often there was new data on that output.
    quint64 updates(int port) const;

    /// Whether the model has told of anything since the last call.
    bool takeChanged();

    /// The longest time between computingStarted() and computingFinished() since the last call, also of one that goes
    /// on.
    std::chrono::nanoseconds takeLongest();

private:
    struct SCounts;

    const std::shared_ptr<SCounts> m_counts; // shared with what the signals call, in any thread
    std::vector<QMetaObject::Connection> m_connections;
};

} // namespace Host
