// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QLatin1String>

namespace Plugin {
namespace Halvex {

/// The keys of scene and import documents. Frozen: documents of every version hold them.
namespace DocumentKeys {

// QLatin1String's own constructor is not a constant expression with every compiler.
template <int size>
constexpr QLatin1String key(const char (&text)[size])
{
    return QLatin1String(text, size - 1);
}

// The document.
constexpr QLatin1String nodes = key("nodes");
constexpr QLatin1String connections = key("connections");

// A node.
constexpr QLatin1String id = key("id");
constexpr QLatin1String model = key("model");

// A model.
constexpr QLatin1String name = key("name");
constexpr QLatin1String isUnique = key("is_unique");
constexpr QLatin1String uniqueName = key("unique_name");
constexpr QLatin1String property = key("property");
constexpr QLatin1String framesPerSecond = key("frames_per_second");

// A connection.
constexpr QLatin1String inId = key("in_id");
constexpr QLatin1String inIndex = key("in_index");
constexpr QLatin1String outId = key("out_id");
constexpr QLatin1String outIndex = key("out_index");
constexpr QLatin1String converter = key("converter");
constexpr QLatin1String in = key("in");
constexpr QLatin1String out = key("out");

// An element of an import document; "name" and "model" are the keys above.
constexpr QLatin1String uniqueSources = key("unique_sources");
constexpr QLatin1String connection = key("connection");
constexpr QLatin1String indexIn = key("index_in");
constexpr QLatin1String indexOut = key("index _out"); // the blank is part of it

} // namespace DocumentKeys
} // namespace Halvex
} // namespace Plugin
