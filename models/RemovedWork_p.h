// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

namespace Plugin::Halvex {

/// Counts the work in thread pools whose models are gone, so that somebody can wait for its end. For any thread.
namespace RemovedWork {

void begin(int count);
void end();

/// Whether there is none any more, within so many milliseconds.
bool wait(unsigned long milliseconds);

} // namespace RemovedWork
} // namespace Plugin::Halvex
