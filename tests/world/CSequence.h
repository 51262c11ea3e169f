// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "world/Operations.h"
#include "world/STables.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <functional>
#include <vector>

/**
 * Any bytes, as a sequence of operations. Each eight are one operation: where it is run, which it is, what it works on
 * (scene, node, feeder), and three arguments.
 *
 * A first byte below 128 begins a step. Others name a hook and which call of it in the step: there, the operation is
 * run within the step, once, half of the time on what the hook is about. It may also throw.
 */
struct SRecord
{
    static constexpr int size = 8;

    explicit SRecord(const uchar* bytes);

    bool isStep;
    EHook hook;
    int call; ///< From 1.
    const SOperation* operation;
    int scene;
    int node;
    int feeder;
    SArguments arguments;
};

/// Runs a sequence on a world, and looks after each step what is true.
class CSequence : private CWorld
{
public:
    /// Returns what is not true, with the number of the step; empty if all is. \a fault says something of each step
    /// itself, for the tests of this.
    using Fault = std::function<QString(const CWitness&)>;
    static QString run(const QByteArray& bytes, const Fault& fault = {});

    /// The operations in words, a line each.
    static QString textOf(const QByteArray& bytes);

    /// As many steps as asked for, with operations in their hooks.
    static QByteArray random(unsigned int seed, int steps);

    /// How often each operation was run so far, and how often one was in each hook.
    static const std::vector<int>& runs() { return s_runs; }
    static const std::array<int, hookCount>& nested() { return s_nested; }

private:
    static constexpr int deepest = 3;

    QString runStep(const std::vector<SRecord>& records, const Fault& fault);
    QString runEnd();
    void runOperation(const SRecord& record, const void* atHand = nullptr);
    SPlace placeOf(const SRecord& record, const void* atHand = nullptr) const;
    void onHook(EHook hook, const void* object) override;

    std::vector<SRecord> m_waiting; // for their hooks
    std::array<int, hookCount> m_calls{};
    std::vector<Proof> m_proofs;
    QString m_complaint;
    int m_depth = 0;
    int m_operations = 0;
    bool m_isNested = false; // something was done in a hook of this step
    bool m_isThrown = false;
    static inline std::vector<int> s_runs = std::vector<int>(operations().size());
    static inline std::array<int, hookCount> s_nested{};
};

/// The shortest that it gets by leaving operations out, and making their bytes zero, as long as \a fails.
QByteArray shrink(QByteArray bytes, const std::function<bool(const QByteArray&)>& fails);
