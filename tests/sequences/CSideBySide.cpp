// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "sequences/CSideBySide.h"

#include "support/StableIds.h"

#include <algorithm>

namespace Sequences {

CSideBySide::CSideBySide(Fault fault)
    : m_fault(std::move(fault))
{
    StableIds::restart();
}

CSideBySide::~CSideBySide()
{
    m_actualLog.begin({});
}

int CSideBySide::run(const SOperation& operation)
{
    if (m_current)
        return m_current->run(operation); // from a handler
    if (!m_difference.isEmpty())
        return 0;
    const int result = runOn(m_actual, m_actualLog, operation, true);
    runOn(m_expected, m_expectedLog, operation, false);
    m_code.clear();
    m_difference = compare();
    return result;
}

void CSideBySide::run(const SStep& step)
{
    for (const SNested& nested : step.nested)
        on(nested.call, [this, operation = nested.operation] { run(operation); });
    run(step.operation);
}

int CSideBySide::runOn(AWorld& world, CEventLog& log, const SOperation& operation, bool asksChooser)
{
    log.begin([this, asksChooser](const SCall& call) {
        if (asksChooser && m_chooser)
            m_chooser(call);
        const auto found = m_code.find(call);
        if (found != m_code.end())
            found->second();
    });
    m_current = &world;
    const int result = world.run(operation);
    m_current = nullptr;
    return result;
}

QString CSideBySide::compare()
{
    const auto& actual = m_actualLog.events();
    const auto& expected = m_expectedLog.events();
    const auto isSame = [](const SEvent& a, const SEvent& b) { return a.asTuple() == b.asTuple(); };
    if (!std::equal(actual.begin(), actual.end(), expected.begin(), expected.end(), isSame)) {
        return QString("other events\nexpected: %1\nactual:   %2\n")
            .arg(m_expectedLog.texts().join(", "), m_actualLog.texts().join(", "));
    }

    const QString inconsistency = m_actual.inconsistency();
    if (!inconsistency.isEmpty())
        return inconsistency + '\n';

    const SState actualState = m_actual.state();
    SState expectedState = m_expected.state();
    if (m_fault)
        m_fault(expected, expectedState);
    if (actualState == expectedState)
        return QString();
    return QString("another state\nevents: %1\nexpected: %2actual: %3")
        .arg(m_expectedLog.texts().join(", "), expectedState.text(), actualState.text());
}

QString differenceOf(const Sequence& sequence, const CSideBySide::Fault& fault)
{
    CSideBySide graph(fault);
    for (const SStep& step : sequence)
        graph.run(step);
    return graph.difference();
}

} // namespace Sequences
