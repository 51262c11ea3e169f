// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CFaultList.h"

#include "host/check/CJsonTree.h"

#include <algorithm>
#include <utility>

namespace Host {

namespace {

constexpr qint64 maxPathLetters = 10000000; // a key of a megabyte is in the path of each of its members

bool isOfSyntax(const SFault& fault)
{
    return fault.rule == EFaultRule::Syntax;
}

} // namespace

CFaultList::CFaultList(const QByteArray& text)
    : m_places(text)
{
}

void CFaultList::addError(EFaultRule rule, const SJsonNode& at, const QString& message)
{
    add(true, rule, at.begin, &at, message);
}

void CFaultList::addWarning(EFaultRule rule, const SJsonNode& at, const QString& message)
{
    add(false, rule, at.begin, &at, message);
}

void CFaultList::addKeyError(EFaultRule rule, const SJsonNode& member, const QString& message)
{
    add(true, rule, member.keyBegin, &member, message);
}

void CFaultList::addTextError(EFaultRule rule, int offset, const QString& message)
{
    add(true, rule, offset, nullptr, message);
}

STextPlace CFaultList::placeOf(const SJsonNode& json) const
{
    return m_places.at(json.begin);
}

QString CFaultList::place(int offset) const
{
    const STextPlace place = m_places.at(offset);
    return QStringLiteral("%1:%2").arg(place.line).arg(place.column);
}

void CFaultList::add(bool isError, EFaultRule rule, int offset, const SJsonNode* at, const QString& message)
{
    if (m_wrongOffsets.contains(offset))
        return;
    if (int(m_faults.size()) == mostFaults || m_pathLetters > maxPathLetters) {
        const bool isAnyError = isError || (isCut() && m_leftOut.isError);
        const QString text = tr("there are more faults than these %1").arg(m_faults.size());
        m_leftOut = {isAnyError, rule, 0, 0, {}, text};
        return;
    }
    if (isError)
        m_wrongOffsets.insert(offset);
    const STextPlace place = m_places.at(offset);
    const QString path = at ? pathOf(*at) : QString();
    m_pathLetters += path.size();
    m_faults.emplace_back(offset, SFault{isError, rule, place.line, place.column, path, message});
}

bool CFaultList::hasUnreadValues() const
{
    // Only a value has a path.
    return std::any_of(m_faults.begin(), m_faults.end(),
                       [](const auto& fault) { return isOfSyntax(fault.second) && !fault.second.path.isEmpty(); });
}

std::vector<SFault> CFaultList::sorted() const
{
    auto faults = m_faults;
    const auto rank = [](const auto& fault) { return std::make_pair(!isOfSyntax(fault.second), fault.first); };
    std::stable_sort(faults.begin(), faults.end(),
                     [&rank](const auto& left, const auto& right) { return rank(left) < rank(right); });
    std::vector<SFault> result;
    result.reserve(faults.size());
    for (auto& fault : faults)
        result.push_back(std::move(fault.second));
    if (isCut())
        result.push_back(m_leftOut);
    return result;
}

} // namespace Host
