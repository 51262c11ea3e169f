// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/CStructureStep.h"

#include "host/viewer/edit/CGraphEditor.h"

#include <utility>

namespace Host {

CStructureStep::CStructureStep(StepText text, CGraphEditor& editor, SGraphPart removed, SGraphPart added)
    : AGraphStep(std::move(text), editor)
    , m_removed(std::move(removed))
    , m_added(std::move(added))
{
}

void CStructureStep::undo()
{
    m_isDone = false;
    m_editor.exchange(&m_added, m_removed);
}

void CStructureStep::redo()
{
    if (!m_isDone)
        m_editor.exchange(&m_removed, m_added);
    m_isDone = true;
}

} // namespace Host
