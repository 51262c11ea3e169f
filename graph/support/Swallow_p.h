// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QLoggingCategory>

#include <exception>

namespace Plugin::Halvex {

/// Runs \a work, which calls foreign code, where nothing may be thrown. What it throws is reported to \a category under
/// the name \a where. Returns whether the work came to its end.
template <typename Work>
bool swallowExceptions(const QLoggingCategory& (*category)(), const char* where, Work&& work) noexcept
{
    try {
        work();
        return true;
    } catch (const std::exception& exception) {
        qCWarning(category, "%s ended with an exception: %s", where, exception.what());
    } catch (...) {
        qCWarning(category, "%s ended with an exception of unknown type", where);
    }
    return false;
}

} // namespace Plugin::Halvex
