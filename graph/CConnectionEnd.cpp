// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/CConnectionEnd.h"

#include "graph/CGraphOwner_p.h"
#include "graph/CLiveObjects_p.h"
#include "graph/CNodeBase.h"

namespace Plugin {
namespace Halvex {

void CConnectionEnd::setNode(CNodeBase& node)
{
    m_index = index(); // that of a node that is gone went with it
    m_link.link(&node, CGraphOwner::ends(node));
    m_indexIsOfNode = true;
}

void CConnectionEnd::setIndex(NodePortIndex index)
{
    m_index = index;
    m_indexIsOfNode = node() != nullptr;
}

void CConnectionEnd::clear()
{
    m_link.unlink();
    m_index = -1;
    m_indexIsOfNode = false;
}

void CConnectionEnd::adoptWrittenNode() const
{
    CNodeBase* const written = m_link.get();
    if (CNodeBase* const left = m_link.target())
        left->nodeState().expectDeadEntries();

    m_link.unlink();
    m_indexIsOfNode = written != nullptr;
    if (written && CLiveObjects::contains(written, CLiveObjects::EKind::Node))
        m_link.link(written, CGraphOwner::ends(*written));
}

} // namespace Halvex
} // namespace Plugin
