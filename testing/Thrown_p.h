// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <exception>

namespace Plugin::Halvex::Testing {

/// What thrownBy() says of all that has no text.
inline QString textlessThrown()
{
    return QStringLiteral("threw something that is no std::exception");
}

/// What \a work throws, in words that go on after the name of a call: "threw 'no such port'". Empty if it throws
/// nothing.
template <typename Work>
QString thrownBy(Work&& work)
{
    try {
        work();
    } catch (const std::exception& exception) {
        return QStringLiteral("threw '%1'").arg(QString::fromLocal8Bit(exception.what()));
    } catch (...) {
        return textlessThrown();
    }
    return {};
}

} // namespace Plugin::Halvex::Testing
