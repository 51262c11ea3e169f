// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>
#include <Halvex/graph/CNodeData.h>
#include <Halvex/models/CNodeDataEntry.h>

#include <QObject>

namespace Plugin::Halvex {

/**
 * Carries data across the border of a graph: into a source model, out of a sink model.
 *
 * Outside code gets the proxy instead of the model, so that it can feed or watch without touching the graph.
 *
 * Ownership: a child of its model. Keep the QPointer that getDataFlowProxy() returns.
 *
 * Threads: setData() may be called from any thread, by several at once, as long as the proxy exists during the call.
 *
 * - In the graph's thread, ask the QPointer before each call.
 * - Another thread must have stopped calling before the graph's thread destroys the model. Asking a QPointer there does
 *   not help: the model may go between the answer and the call. A thread that feeds a source and cannot be stopped in
 *   time uses an entry (CNodeDataEntry).
 *
 * The same holds for connect(). A listener in another thread gets the data from its own event loop. What was sent
 * before the proxy was destroyed still arrives there.
 */
class HALVEX_EXPORT CNodeDataFlowProxy : public QObject
{
    Q_OBJECT

public:
    /// Sources and sinks make their own, with themselves as the \a parent.
    explicit CNodeDataFlowProxy(QObject* parent = nullptr);
    ~CNodeDataFlowProxy() override;

    /// Emits newDataAvailable() in the calling thread; null is empty data.
    void setData(CNodeDataPtr ptrNodeData);

Q_SIGNALS:
    /// Once per setData(), in the thread that called it.
    void newDataAvailable(CNodeDataPtr ptrNodeData);

private:
    friend class ASourceNodeDataModel;

    CNodeDataEntry m_entry; // leads here
};

} // namespace Plugin::Halvex
