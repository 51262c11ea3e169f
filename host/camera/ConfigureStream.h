// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <cstddef>

struct _ArvStream;

namespace Host {

/// Prepares a stream for frames of \a frameBytes bytes. That of a network camera gets room in its socket for all
/// packets of a frame, which come at once, as far as the kernel allows it, and \a asksAgain for packets that got lost.
void configureStream(_ArvStream* stream, std::size_t frameBytes, bool asksAgain);

} // namespace Host
