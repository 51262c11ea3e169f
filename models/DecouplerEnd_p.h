// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>

#include <atomic>

namespace Plugin::Halvex {

class CDecoupler;

/// How long CDecoupler::shutDown() waits, in milliseconds: 30000. Tests of a worker that hangs shorten it. Atomic, as
/// any thread may shut a decoupler down meanwhile.
extern HALVEX_EXPORT std::atomic<unsigned long> decouplerShutDownWait;

/// Shuts \a decoupler down and deletes it: now, or when its thread has ended, if that takes longer than shutDown()
/// waits. Then it is deleted from the application's event loop: the one of the calling thread may have ended by then.
HALVEX_EXPORT void endDecoupler(CDecoupler* decoupler);

} // namespace Plugin::Halvex
