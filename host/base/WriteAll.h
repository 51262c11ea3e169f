// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <cstddef>

class QFileDevice;

namespace Host {

/// Writes \a size bytes into \a file, which is open and unbuffered. A disk that fills up takes a part first and tells
/// the reason when it is asked to take the rest: false, and the file's errorString() says why.
bool writeAll(QFileDevice& file, const void* bytes, std::size_t size);

} // namespace Host
