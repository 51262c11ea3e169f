// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "scene/CNodeScene.h"

#include <QString>

#include <memory>
#include <vector>

namespace Plugin {
namespace Halvex {
class CNodeDataFlowProxy;
}
} // namespace Plugin

namespace Host {

class CPngSinkModel;

/**
 * The graph that the program streams through:
 *
 * \verbatim
 * camera ─┬──────────────────────────► PNG files "frames"
 *         ├─ blur ── threshold ─┬────► PNG files "threshold"
 *         │                     └─ edges ─► PNG files "edges"
 *         └─ histogram ──────────────► PNG files "histogram"
 * \endverbatim
 *
 * Ownership: owns the scene and with it every model; what is handed out lives as long as this object.
 *
 * Threads: one; the entry's setData() from any.
 */
class CDemoGraph
{
public:
    explicit CDemoGraph(const QString& cameraName);

    /// Where frames enter.
    Plugin::Halvex::CNodeDataFlowProxy* entry() const { return m_entry; }

    /// In the order of the picture. Their unique names are those in it.
    const std::vector<CPngSinkModel*>& sinks() const { return m_sinks; }

    const Plugin::Halvex::CNodeScene& scene() const { return m_scene; }

private:
    using CNodeBase = Plugin::Halvex::CNodeBase;

    CNodeBase& addSource(const QString& cameraName);
    CNodeBase& addFilter(const QString& modelName, CNodeBase& from);
    void addSink(const QString& name, CNodeBase& from);
    void connectNodes(CNodeBase& from, CNodeBase& to);

    Plugin::Halvex::CNodeScene m_scene;
    Plugin::Halvex::CNodeDataFlowProxy* m_entry = nullptr;
    std::vector<CPngSinkModel*> m_sinks;
};

} // namespace Host
