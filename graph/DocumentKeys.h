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
constexpr QLatin1String nodes = makeKey("nodes");             ///< Array of nodes.
constexpr QLatin1String connections = makeKey("connections"); ///< Array of connections.

// CNodeBase: a node.
constexpr QLatin1String id = makeKey("id");       ///< The node's identifier.
constexpr QLatin1String model = makeKey("model"); ///< What the model's save() returns.

// CNodeDataModel: any model.
constexpr QLatin1String name = makeKey("name"); ///< The name that the model is registered under.

// ANodeDataModel: a model with an identity.
constexpr QLatin1String isUnique = makeKey("is_unique");     ///< Whether there is only one such model.
constexpr QLatin1String uniqueName = makeKey("unique_name"); ///< Its unique name, if it has one.

// CNodeDecouplerDataModelBase: a decoupler. Other models keep their settings under "property" too.
constexpr QLatin1String property = makeKey("property");                 ///< Object with the model's settings.
constexpr QLatin1String framesPerSecond = makeKey("frames_per_second"); ///< The rate of a decoupler.

// AWorkerNodeDataModel: under "property" too.
constexpr QLatin1String policy = makeKey("policy");            ///< What becomes of frames for which there is no room.
constexpr QLatin1String mostWaiting = makeKey("most_waiting"); ///< How many frames may wait.
constexpr QLatin1String parallelism = makeKey("parallelism");  ///< How many frames are worked on at a time.

// CNodeConnection: a connection. The types in its converter have an id and a name, with the keys above.
constexpr QLatin1String inId = makeKey("in_id");          ///< The node that takes the data.
constexpr QLatin1String inIndex = makeKey("in_index");    ///< Its input port.
constexpr QLatin1String outId = makeKey("out_id");        ///< The node that gives the data.
constexpr QLatin1String outIndex = makeKey("out_index");  ///< Its output port.
constexpr QLatin1String converter = makeKey("converter"); ///< Object with the two types, if there is a converter.
constexpr QLatin1String in = makeKey("in");               ///< The type that the converter gives.
constexpr QLatin1String out = makeKey("out");             ///< The type that the converter takes.

} // namespace DocumentKeys
} // namespace Plugin::Halvex
