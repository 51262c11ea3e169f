// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>
#include <Halvex/graph/CNodeData.h>

#include <memory>

namespace Plugin::Halvex {

class CNodeDataFlowProxy;

/**
 * A way into a source model that any thread may keep, also longer than the model exists.
 *
 * \code
 * const CNodeDataEntry entry = source.dataEntry(); // in the graph's thread
 *
 * // in the camera's:
 * while (const auto frame = camera.nextFrame())
 *     if (!entry.setData(frame))
 *         break; // the source is gone
 * \endcode
 *
 * The proxy of a source has a setData() too, but another thread may call that only while the model certainly exists.
 *
 * Ownership: a value. Copies lead to the same source. Neither an entry nor data that waits in the graph's thread keeps
 * the source alive.
 *
 * Threads: any. Several threads may call setData() on one entry at once, and copy it meanwhile. While one assigns to an
 * entry, no other may use it. A call holds a mutex while it puts its data into the queue, and the destructor of the
 * model waits for that. No foreign code runs under the mutex.
 *
 * Code that is linked with the library may use an entry even after the host has unloaded the plugin: the link keeps the
 * library in memory.
 */
class HALVEX_EXPORT CNodeDataEntry
{
public:
    /// Leads nowhere.
    CNodeDataEntry() = default;

    /// Queues \a data, null for empty data, for the event loop of the graph's thread, which passes it to the proxy's
    /// setData() if the source still exists then. A call in the graph's thread queues too. What one thread sends
    /// arrives in the order in which it was sent. Returns false if the source is gone. The queue has no bound: a sender
    /// that is faster than the graph fills the memory.
    bool setData(const CNodeDataPtr& data) const;

private:
    friend class CNodeDataFlowProxy;
    class CTarget;

    explicit CNodeDataEntry(CNodeDataFlowProxy& proxy);
    void close();

    std::shared_ptr<CTarget> m_target;
};

} // namespace Plugin::Halvex
