// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/CNodeData.h"

#include <Halvex/HalvexExport.h>

#include <QObject>

namespace Plugin {
namespace Halvex {

/**
 * Carries data across the border of a graph: into a source model, out of a sink model.
 *
 * Outside code gets the proxy instead of the model, so that it can feed or watch without touching the graph.
 *
 * Ownership: a child of its model. Keep the QPointer that getDataFlowProxy() returns.
 *
 * Threads: setData() may be called from any thread, by several at once, as long as the proxy exists during the call.
 * What ensures that:
 *
 *   in the graph's thread        the QPointer: nothing else runs between asking it and the call
 *   in another thread            only that it has stopped calling before the graph's thread destroys the model
 *
 * In another thread the QPointer is no protection. Asking one's own copy is no race, but the answer is old when it is
 * there: the model may go between it and the call, or during the call, which then uses a destroyed object. A thread
 * that cannot be stopped first, or whose host must not know when models go, takes an entry (CNodeDataEntry) instead. A
 * sink has no entry: its model feeds its proxy itself.
 *
 * Also getDataFlowProxy() and connect() need the proxy or the model, and so the same. A listener in another thread is
 * called by a queued connection from its own event loop, and may outlive the proxy: what is under way still arrives.
 */
class HALVEX_EXPORT CNodeDataFlowProxy : public QObject
{
    Q_OBJECT

public:
    explicit CNodeDataFlowProxy(QObject* parent = nullptr);
    ~CNodeDataFlowProxy() override;

    /// Emits newDataAvailable() in the calling thread; null is empty data.
    void setData(CNodeDataPtr ptrNodeData);

Q_SIGNALS:
    /// Once per setData(), in the thread that called it.
    void newDataAvailable(CNodeDataPtr ptrNodeData);
};

} // namespace Halvex
} // namespace Plugin
