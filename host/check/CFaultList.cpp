// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CFaultList.h"

#include "host/check/CJsonTree.h"

#include <algorithm>

namespace Host {

CFaultList::CFaultList(const QByteArray& text)
    : m_places(text)
{
}

void CFaultList::addError(EFaultRule rule, const SJsonNode& at, const QString& message)
{
    add(at.begin, {true, rule, 0, 0, pathOf(at), message});
}

void CFaultList::addWarning(EFaultRule rule, const SJsonNode& at, const QString& message)
{
    add(at.begin, {false, rule, 0, 0, pathOf(at), message});
}

void CFaultList::addKeyError(EFaultRule rule, const SJsonNode& member, const QString& message)
{
    add(member.keyBegin, {true, rule, 0, 0, pathOf(member), message});
}

void CFaultList::addTextError(EFaultRule rule, int offset, const QString& message)
{
    add(offset, {true, rule, 0, 0, {}, message});
}

QString CFaultList::place(int offset) const
{
    const STextPlace place = m_places.at(offset);
    return QStringLiteral("%1:%2").arg(place.line).arg(place.column);
}

void CFaultList::add(int offset, SFault fault)
{
    if (m_wrongOffsets.contains(offset))
        return;
    if (int(m_faults.size()) == mostFaults) {
        const bool isError = fault.isError || (isCut() && m_leftOut.isError);
        m_leftOut = {isError, fault.rule, 0,
                     0,       {},         QStringLiteral("there are more faults than these %1").arg(mostFaults)};
        return;
    }
    if (fault.isError)
        m_wrongOffsets.insert(offset);
    const STextPlace place = m_places.at(offset);
    fault.line = place.line;
    fault.column = place.column;
    m_faults.emplace_back(offset, std::move(fault));
}

std::vector<SFault> CFaultList::sorted() const
{
    auto faults = m_faults;
    std::stable_sort(faults.begin(), faults.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    std::vector<SFault> result;
    result.reserve(faults.size());
    for (auto& fault : faults)
        result.push_back(std::move(fault.second));
    if (isCut())
        result.push_back(m_leftOut);
    return result;
}

} // namespace Host
