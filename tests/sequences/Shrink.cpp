// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "sequences/Shrink.h"

#include <algorithm>
#include <map>
#include <utility>

namespace Sequences {
namespace {

using Fails = std::function<bool(const Sequence&)>;

/// Tries to leave out pieces of \a size steps. Returns whether one was.
bool leaveOutPieces(Sequence& sequence, std::size_t size, const Fails& fails)
{
    bool hasShrunk = false;
    // From the end, because what comes early is needed by what comes later.
    for (std::size_t end = sequence.size(); end > 0; end -= std::min(end, size)) {
        const std::size_t begin = end - std::min(end, size);
        Sequence shorter = sequence;
        shorter.erase(shorter.begin() + std::ptrdiff_t(begin), shorter.begin() + std::ptrdiff_t(end));
        if (!fails(shorter))
            continue;
        sequence = shorter;
        hasShrunk = true;
    }
    return hasShrunk;
}

bool leaveOutNested(Sequence& sequence, const Fails& fails)
{
    bool hasShrunk = false;
    for (std::size_t step = 0; step < sequence.size(); ++step) {
        for (std::size_t i = sequence[step].nested.size(); i > 0; --i) {
            Sequence shorter = sequence;
            auto& nested = shorter[step].nested;
            nested.erase(nested.begin() + std::ptrdiff_t(i - 1));
            if (!fails(shorter))
                continue;
            sequence = shorter;
            hasShrunk = true;
        }
    }
    return hasShrunk;
}

template <typename Visitor>
void forEachOperation(Sequence& sequence, const Visitor& visitor)
{
    for (SStep& step : sequence) {
        visitor(step.operation);
        for (SNested& nested : step.nested)
            visitor(nested.operation);
    }
}

/// What refers to something by its number, by position.
std::vector<std::size_t> referencesOf(EOperation kind)
{
    switch (kind) {
    case EOperation::ConnectModels:
        return {0, 2};
    case EOperation::CreateConnection:
        return {0, 1, 3};
    case EOperation::CreateHalfConnection:
        return {0, 2};
    case EOperation::AddSource:
    case EOperation::AddModel:
        return {};
    default:
        return {0};
    }
}

/// The same sequence with the numbers of what is made counted from 1.
Sequence renumbered(Sequence sequence)
{
    std::map<int, int> first; // of what an operation makes, new by old
    int next = 1;
    forEachOperation(sequence, [&](const SOperation& operation) {
        if (operation.number != 0)
            first[operation.number] = std::exchange(next, next + numbersOf(operation.kind));
    });
    const auto renumber = [&first](int number) {
        const auto after = first.upper_bound(number);
        if (number <= 0 || after == first.begin())
            return number;
        const auto owner = std::prev(after);
        return owner->second + number - owner->first;
    };

    forEachOperation(sequence, [&](SOperation& operation) {
        operation.number = renumber(operation.number);
        for (const std::size_t position : referencesOf(operation.kind))
            operation.arguments[position] = renumber(operation.arguments[position]);
        for (SElement& element : operation.document) {
            for (auto& port : element.sources) {
                for (int& name : port)
                    name = name < 0 ? -renumber(-name) : name;
            }
        }
    });
    return sequence;
}

} // namespace

Sequence shrink(Sequence sequence, const Fails& fails)
{
    bool hasShrunk = true;
    while (hasShrunk) {
        hasShrunk = false;
        for (std::size_t size = std::max<std::size_t>(sequence.size() / 2, 1); size > 0; size /= 2)
            hasShrunk = leaveOutPieces(sequence, size, fails) || hasShrunk;
        hasShrunk = leaveOutNested(sequence, fails) || hasShrunk;
    }
    const Sequence counted = renumbered(sequence);
    return fails(counted) ? counted : sequence;
}

} // namespace Sequences
