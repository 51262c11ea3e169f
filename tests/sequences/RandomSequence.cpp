// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "sequences/RandomSequence.h"

#include "sequences/CRandomOperations.h"
#include "sequences/CSharedRecord.h"

namespace Sequences {

SRandomRun runRandomly(unsigned int seed, int steps, const CSideBySide::Fault& fault, CSharedRecord* record)
{
    constexpr std::size_t mostNested = 4;

    SRandomRun run;
    CRandomOperations operations(seed);
    CSideBySide graph(fault);
    graph.setChooser([&](const SCall& call) {
        std::vector<SNested>& nested = run.sequence.back().nested;
        if (nested.size() >= mostNested || !operations.once(6))
            return;
        nested.push_back({call, operations.next(graph.present())});
        if (record)
            record->append(nested.back());
        graph.on(call, [&graph, operation = nested.back().operation] { graph.run(operation); });
    });

    while (int(run.sequence.size()) < steps && graph.difference().isEmpty()) {
        run.sequence.push_back({operations.next(graph.present()), {}});
        const SOperation operation = run.sequence.back().operation;
        if (record)
            record->append(operation);
        graph.run(operation);
    }
    run.operations = sizeOf(run.sequence);
    run.difference = graph.difference();
    return run;
}

} // namespace Sequences
