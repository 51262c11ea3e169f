// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "sequences/CActual.h"
#include "sequences/CExpected.h"

#include <functional>
#include <map>

namespace Sequences {

/**
 * The graph and what should be there, side by side: each operation is run on both, and what happened and what is there
 * is compared after it.
 *
 * \code
 * CSideBySide graph;
 * graph.addSource(1, 0);
 * graph.on(EEvent::NodeCreated, 1, [&] { graph.removeNode(2, false); });
 * graph.addModel(2, View);
 * QCOMPARE(graph.difference(), QString());
 * \endcode
 *
 * Nothing is run any more after a difference.
 */
class CSideBySide : public AGraph
{
public:
    /// A way to find a difference where there is none: changes what is expected after a step.
    using Fault = std::function<void(const std::vector<SEvent>&, SState&)>;

    explicit CSideBySide(Fault fault = {});
    ~CSideBySide() override;
    Q_DISABLE_COPY(CSideBySide)

    int run(const SOperation& operation) override;
    void run(const SStep& step);

    /// What the first or the late handler does in its \a count-th call during the next operation.
    void on(EEvent signal, int count, std::function<void()> code) { on({signal, false, count}, std::move(code)); }
    void onLate(EEvent signal, int count, std::function<void()> code) { on({signal, true, count}, std::move(code)); }
    void on(const SCall& call, std::function<void()> code) { m_code[call] = std::move(code); }

    /// Called in each call of a handler of the actual graph, before what that handler does: it may set that.
    void setChooser(CEventLog::Handler chooser) { m_chooser = std::move(chooser); }

    SPresent present() const { return m_actual.present(); }

    /// What differs, and what happened in that operation; empty if nothing does.
    const QString& difference() const { return m_difference; }

private:
    int runOn(AWorld& world, CEventLog& log, const SOperation& operation, bool asksChooser);
    QString compare();

    Fault m_fault;
    CEventLog::Handler m_chooser;
    std::map<SCall, std::function<void()>> m_code;
    CEventLog m_actualLog;
    CEventLog m_expectedLog;
    CActual m_actual{m_actualLog};
    CExpected m_expected{m_expectedLog, m_actualLog};
    AWorld* m_current = nullptr; // while an operation is run on it
    QString m_difference;
};

/// Runs \a sequence on a graph of its own and returns the difference; empty if there is none.
QString differenceOf(const Sequence& sequence, const CSideBySide::Fault& fault = {});

} // namespace Sequences
