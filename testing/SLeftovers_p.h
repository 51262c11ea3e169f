// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <functional>

namespace Plugin::Halvex::Testing {

/// What the process holds at a moment; -1 where this system does not tell.
struct SLeftovers
{
    qint64 threads = -1;
    qint64 files = -1;
    qint64 bytes = -1;

    static SLeftovers now();
};

/// Runs \a work, which makes and destroys \a count objects, several times. What each run leaves behind, in words; empty
/// if nothing. One run goes before, for what is made once and kept.
QString leftBehindBy(int count, const std::function<void()>& work);

} // namespace Plugin::Halvex::Testing
