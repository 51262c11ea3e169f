// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QLatin1String>

namespace Plugin::Halvex {

/**
 * The keys of a scene document, by the class that writes them; docs/scene-document.md shows where they stand. Frozen:
 * documents of every version hold them.
 *
 * \code
 * const QJsonObject document = QJsonDocument::fromJson(scene.saveToMemory()).object();
 * qDebug() << document.value(DocumentKeys::nodes).toArray().size() << "nodes";
 * \endcode
 */
namespace DocumentKeys {

/// The key that a literal spells. QLatin1String's own constructor is not a constant expression with every compiler.
template <int size>
constexpr QLatin1String makeKey(const char (&text)[size])
{
    return QLatin1String(text, size - 1);
}

// CNodeScene: the document.
constexpr QLatin1String nodes = makeKey("nodes");
constexpr QLatin1String connections = makeKey("connections");

// CNodeBase: a node.
constexpr QLatin1String id = makeKey("id");
constexpr QLatin1String model = makeKey("model");

// CNodeDataModel: any model.
constexpr QLatin1String name = makeKey("name");

// ANodeDataModel: a model with an identity.
constexpr QLatin1String isUnique = makeKey("is_unique");
constexpr QLatin1String uniqueName = makeKey("unique_name");

// CNodeDecouplerDataModelBase: a decoupler. Other models keep their settings under "property" too.
constexpr QLatin1String property = makeKey("property");
constexpr QLatin1String framesPerSecond = makeKey("frames_per_second");

// AWorkerNodeDataModel: under "property" too.
constexpr QLatin1String policy = makeKey("policy");
constexpr QLatin1String mostWaiting = makeKey("most_waiting");
constexpr QLatin1String parallelism = makeKey("parallelism");

// CNodeConnection: a connection. The types in its converter have an id and a name, with the keys above.
constexpr QLatin1String inId = makeKey("in_id");
constexpr QLatin1String inIndex = makeKey("in_index");
constexpr QLatin1String outId = makeKey("out_id");
constexpr QLatin1String outIndex = makeKey("out_index");
constexpr QLatin1String converter = makeKey("converter");
constexpr QLatin1String in = makeKey("in");
constexpr QLatin1String out = makeKey("out");

} // namespace DocumentKeys
} // namespace Plugin::Halvex
