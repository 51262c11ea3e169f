// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/LoggingCategory_p.h"

#include <exception>

namespace Plugin {
namespace Halvex {

/// Runs \a work, which calls foreign code, where nothing may be thrown: in a destructor. What it throws is reported
/// under the name \a where.
template <typename Work>
void swallowExceptions(const char* where, Work&& work) noexcept
{
    try {
        work();
    } catch (const std::exception& exception) {
        qCWarning(lcGraph, "%s ended with an exception: %s", where, exception.what());
    } catch (...) {
        qCWarning(lcGraph, "%s ended with an exception of unknown type", where);
    }
}

} // namespace Halvex
} // namespace Plugin
