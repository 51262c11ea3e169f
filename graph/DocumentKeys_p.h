// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QLatin1String>

namespace Plugin {
namespace Halvex {

/// The keys of scene documents. Frozen: documents of every version hold them.
namespace DocumentKeys {

// The document.
constexpr QLatin1String nodes("nodes");
constexpr QLatin1String connections("connections");

// A node.
constexpr QLatin1String id("id");
constexpr QLatin1String model("model");

// A model.
constexpr QLatin1String name("name");
constexpr QLatin1String isUnique("is_unique");
constexpr QLatin1String uniqueName("unique_name");
constexpr QLatin1String property("property");
constexpr QLatin1String framesPerSecond("frames_per_second");

// A connection.
constexpr QLatin1String inId("in_id");
constexpr QLatin1String inIndex("in_index");
constexpr QLatin1String outId("out_id");
constexpr QLatin1String outIndex("out_index");
constexpr QLatin1String converter("converter");
constexpr QLatin1String in("in");
constexpr QLatin1String out("out");

} // namespace DocumentKeys
} // namespace Halvex
} // namespace Plugin
