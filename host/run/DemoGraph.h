// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

namespace Plugin {
namespace Halvex {
class CNodeScene;
}
} // namespace Plugin

namespace Host {

/**
 * Adds the graph that the program streams through when it is given no other:
 *
 * \verbatim
 * camera ─┬─────────────────────────────────────► PNG files "frames"
 *         └─ decoupler ─┬─ blur ── threshold ─┬─► PNG files "threshold"
 *                       │                     └─ edges ─► PNG files "edges"
 *                       └─ histogram ──────────────► PNG files "histogram"
 * \endverbatim
 *
 * The first branch gets every frame; the decoupler lets 25 per second through to the preview behind it.
 *
 * The scene's registry has the host's models. The camera has no unique name: a scene document only refers to a
 * unique model, and the next program that reads the document has none to refer to.
 */
void addDemoGraph(Plugin::Halvex::CNodeScene& scene);

} // namespace Host
