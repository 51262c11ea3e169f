// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/CNodeData.h"

#include <Halvex/HalvexExport.h>

#include <memory>

namespace Plugin {
namespace Halvex {

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
 * The proxy can be used so only if its model cannot be destroyed meanwhile: no check in the camera's thread tells
 * whether the next call still finds it. An entry needs no check.
 *
 * Ownership: a value. Copies lead to the same source; neither an entry nor what waits in the graph's thread keeps the
 * source alive.
 *
 * Threads: any. setData() may be called on one entry by several threads at once, and entries may be copied meanwhile;
 * only assigning to an entry needs the others to wait. The model's destruction waits for a call that is just putting
 * its data into the queue, nothing else. No foreign code runs under the lock.
 *
 * The code of an entry is the library's: it stays mapped as long as whoever calls it is linked with the library, though
 * the plugin was unloaded.
 */
class HALVEX_EXPORT CNodeDataEntry
{
public:
    /// Leads nowhere.
    CNodeDataEntry() = default;

    /// Queues \a data, null for empty data, into the graph's thread, whose event loop passes it to the proxy's
    /// setData() if the source exists then; what one thread sends arrives in its order. Also in the graph's thread it
    /// is queued. False, and nothing is done, if the source is gone. Nothing bounds the queue: a sender that is faster
    /// than the graph fills the memory.
    bool setData(const CNodeDataPtr& data) const;

private:
    friend class CSourceDataFlowProxy;
    class CTarget;

    explicit CNodeDataEntry(CNodeDataFlowProxy& proxy);
    void close();

    std::shared_ptr<CTarget> m_target;
};

} // namespace Halvex
} // namespace Plugin
