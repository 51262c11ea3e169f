// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/CSettingStep.h"

#include "host/viewer/edit/CGraphEditor.h"

#include <utility>

namespace Host {

CSettingStep::CSettingStep(StepText text, CGraphEditor& editor, SSettingChange change)
    : AGraphStep(std::move(text), editor)
    , m_change(std::move(change))
{
}

void CSettingStep::undo()
{
    m_isDone = false;
    m_editor.applySetting(m_change.node, m_change.name, m_change.from);
}

void CSettingStep::redo()
{
    if (!m_isDone)
        m_editor.applySetting(m_change.node, m_change.name, m_change.to);
    m_isDone = true;
}

bool CSettingStep::mergeWith(const QUndoCommand* other)
{
    const auto* const next = dynamic_cast<const CSettingStep*>(other);
    if (!next || m_change.gesture == 0 || next->m_change.gesture != m_change.gesture ||
        next->m_change.node != m_change.node || next->m_change.name != m_change.name)
        return false;
    m_change.to = next->m_change.to;
    takeTextOf(*next);
    return true;
}

} // namespace Host
