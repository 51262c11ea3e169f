// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <cstddef>

namespace Plugin::Halvex {
struct SNodeDataType;
}

namespace Host {

/// What a connection carries: "VGR", or "VGR to IMG" with a conversion. A type without an id is unknown, and the other
/// one is told alone.
QString connectionTypeText(const Plugin::Halvex::SNodeDataType& from, const Plugin::Halvex::SNodeDataType& to);

/// What tells \a port from the other \a ports of its side: its \a caption, or "port 1". Empty for the only one, and a
/// caption that repeats the name of the \a type counts as none: the type is told anyway.
QString portText(int port, std::size_t ports, const QString& caption, const Plugin::Halvex::SNodeDataType& type);

} // namespace Host
