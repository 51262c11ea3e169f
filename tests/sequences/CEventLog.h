// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "sequences/SOperation.h"

#include <QStringList>

#include <array>
#include <functional>
#include <tuple>
#include <utility>
#include <vector>

namespace Sequences {

struct SEvent
{
    EEvent event;
    bool isLate = false;
    int scene = 0;
    int object = 0;
    int first = 0; // what these are depends on the event
    int second = 0;
    std::vector<int> list;

    auto asTuple() const { return std::tie(event, isLate, scene, object, first, second, list); }
};

QString textOf(const SEvent& event);

/// Stands for the number of a connection that is being made, and was not told yet, to the input \a port of \a node.
inline int unnumbered(int node, int port, bool isConverting)
{
    return -(1 + node * 4 + (node != 0 ? port * 2 + (isConverting ? 1 : 0) : 0));
}

/// What happens during a step, in order. It calls back where a handler may act.
class CEventLog
{
public:
    using Handler = std::function<void(const SCall&)>;

    void begin(Handler handler)
    {
        m_events.clear();
        m_counts = {};
        m_handler = std::move(handler);
    }
    void note(SEvent event) { m_events.push_back(std::move(event)); }
    /// The same, and a handler may act.
    void tell(SEvent event)
    {
        const EEvent signal = event.event;
        const bool isLate = event.isLate;
        note(std::move(event));
        if (m_handler)
            m_handler({signal, isLate, ++m_counts[std::size_t(signal)][isLate ? 1 : 0]});
    }

    const std::vector<SEvent>& events() const { return m_events; }
    QStringList texts() const;

private:
    std::vector<SEvent> m_events;
    std::array<std::array<int, 2>, 9> m_counts{}; // of signals
    Handler m_handler;
};

} // namespace Sequences
