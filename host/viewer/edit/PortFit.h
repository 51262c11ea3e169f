// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/edit/SPort.h"

#include <Halvex/graph/NodeDataConverter.h>
#include <Halvex/graph/SNodeDataType.h>

#include <vector>

namespace Plugin::Halvex {
class CNodeBase;
class CNodeScene;
} // namespace Plugin::Halvex

namespace Host {

/// The node of \a scene with that id; null if it is not there.
Plugin::Halvex::CNodeBase* nodeOf(const Plugin::Halvex::CNodeScene& scene, const Core::CId& id);

/// The type of the data at \a port; empty if the port is not there.
Plugin::Halvex::SNodeDataType typeOf(const Plugin::Halvex::CNodeScene& scene, const SPort& port);

/// What turns the data of \a out into that of \a in; empty if none is registered, and for ports of the same type, which
/// need none.
Plugin::Halvex::NodeDataConverter converterOf(const Plugin::Halvex::CNodeScene& scene, const SPort& out,
                                              const SPort& in);

/// Whether \a one and \a other can be connected: an output and an input of two nodes, in either order, of the same type
/// or with a converter between their types, and not connected with each other yet. An output that is meant to have one
/// connection takes no second.
bool fits(const Plugin::Halvex::CNodeScene& scene, const SPort& one, const SPort& other);

/// All ports of the scene that \a port can be connected with, those of one node in a row, in no particular order.
std::vector<SPort> fittingPorts(const Plugin::Halvex::CNodeScene& scene, const SPort& port);

} // namespace Host
