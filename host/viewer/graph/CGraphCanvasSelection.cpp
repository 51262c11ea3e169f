// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// What is chosen on the canvas.

#include "host/viewer/graph/CConnectionItem.h"
#include "host/viewer/graph/CGraphCanvas.h"
#include "host/viewer/graph/CNodeItem.h"

#include <QSignalBlocker>

#include <utility>

namespace Host {

std::vector<Core::CId> CGraphCanvas::selectedNodes() const
{
    std::vector<Core::CId> ids;
    for (const auto& entry : m_nodes) {
        if (entry.second->isSelected())
            ids.push_back(entry.first);
    }
    return ids;
}

std::vector<Core::CId> CGraphCanvas::selectedConnections() const
{
    std::vector<Core::CId> ids;
    for (const auto& entry : m_connections) {
        if (entry.second->isSelected())
            ids.push_back(entry.first);
    }
    return ids;
}

void CGraphCanvas::select(const std::vector<Core::CId>& nodes)
{
    sync();
    changeSelection([this, &nodes] {
        clearSelection();
        for (const Core::CId& id : nodes) {
            if (CNodeItem* const item = nodeItem(id))
                item->setSelected(true);
        }
    });
}

void CGraphCanvas::selectConnection(const Core::CId& connection)
{
    sync();
    const auto found = m_connections.find(connection);
    if (found == m_connections.end())
        return;
    changeSelection([this, item = found->second] {
        clearSelection();
        item->setSelected(true);
    });
}

void CGraphCanvas::changeSelection(const std::function<void()>& change)
{
    const auto before = std::make_pair(selectedNodes(), selectedConnections());
    {
        const QSignalBlocker quiet(this);
        change();
    }
    if (before != std::make_pair(selectedNodes(), selectedConnections()))
        Q_EMIT selectionChanged();
}

} // namespace Host
