// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "sequences/SOperation.h"

namespace Sequences {

/// What a process runs, in memory that it shares with the process that started it, which reads it after its end.
class CSharedRecord
{
public:
    CSharedRecord();
    ~CSharedRecord();
    Q_DISABLE_COPY(CSharedRecord)

    void clear();

    void append(const SOperation& operation);
    void append(const SNested& nested); ///< To the operation that was appended last.
    Sequence sequence() const;

    void setDifference(const QString& difference); ///< Of which it keeps the beginning.
    QString difference() const;

private:
    struct SMemory;

    void append(const std::vector<int>& numbers);

    SMemory* m_memory;
};

} // namespace Sequences
