// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// The editor as it adds many nodes at once: copies, and chains.

#include "host/viewer/edit/CGraphEditor.h"

#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/INodeService.h>

#include <QJsonDocument>

#include <set>

namespace Host {

using namespace Plugin::Halvex;

namespace {

QPointF middleOf(const NodePositions& positions)
{
    QPointF sum;
    for (const QPointF& position : positions)
        sum += position;
    return positions.isEmpty() ? sum : sum / positions.size();
}

std::set<Core::CId> nodeIds(const CNodeScene& scene)
{
    std::set<Core::CId> ids;
    for (const auto& entry : scene.nodes())
        ids.insert(entry.first);
    return ids;
}

} // namespace

std::vector<Core::CId> CGraphEditor::duplicate(const std::vector<Core::CId>& nodes, QPointF offset)
{
    if (!m_scene)
        return {};
    const SGraphPart copy = copyOf(partOf(*m_scene, nodes, m_positions), offset);
    if (copy.nodes.empty()) {
        refuse(tr("There is nothing that can be there twice"));
        return {};
    }
    return addPart(copy, [count = int(copy.nodes.size()), caption = captionOf(nodes.front())] {
        return count > 1 ? tr("Duplicate %n nodes", nullptr, count) : tr("Duplicate '%1'").arg(caption());
    });
}

QByteArray CGraphEditor::copied(const std::vector<Core::CId>& nodes) const
{
    return m_scene ? toText(partOf(*m_scene, nodes, m_positions)) : QByteArray();
}

std::vector<Core::CId> CGraphEditor::paste(const QByteArray& text, QPointF middle)
{
    if (QJsonDocument::fromJson(text).isArray())
        return importChain(QString::fromUtf8(text));
    SGraphPart part = partFromText(text);
    part = copyOf(part, middle - middleOf(part.positions));
    if (!m_scene || part.nodes.empty()) {
        refuse(tr("There are no nodes in the text"));
        return {};
    }
    return addPart(part, [count = int(part.nodes.size())] {
        return count > 1 ? tr("Paste %n nodes", nullptr, count) : tr("Paste a node");
    });
}

std::vector<Core::CId> CGraphEditor::importChain(const QString& chain)
{
    if (!m_scene)
        return {};
    // Documents go into the active scene, which need not be this one.
    const QPointer<CNodeScene> active = m_service.getActiveScene();
    if (active != m_scene)
        m_service.setActiveScene(m_scene);
    if (m_service.getActiveScene() != m_scene) {
        refuse(tr("Only a scene of the service takes chains"));
        return {};
    }
    const std::set<Core::CId> before = nodeIds(*m_scene);
    const bool isWhole = m_service.importDocument(chain);
    if (active && active != m_scene)
        m_service.setActiveScene(active);

    std::vector<Core::CId> added;
    for (const Core::CId& id : m_scene ? nodeIds(*m_scene) : before) {
        if (before.count(id) == 0)
            added.push_back(id);
    }
    if (!isWhole)
        refuse(tr("The chain names a model that there is not"));
    else if (added.empty())
        refuse(tr("There is no chain in the text"));
    const auto text = [count = int(added.size())] {
        return count > 1 ? tr("Import %n nodes", nullptr, count) : tr("Import a node");
    };
    if (!added.empty())
        recordAdded(text, added);
    return added;
}

std::vector<Core::CId> CGraphEditor::addPart(const SGraphPart& part, const StepText& text)
{
    SGraphPart nothing;
    exchange(&nothing, part);
    std::vector<Core::CId> added;
    for (const Core::CId& id : idsIn(part)) {
        if (node(id))
            added.push_back(id);
    }
    if (!added.empty())
        recordAdded(text, added);
    return added;
}

} // namespace Host
