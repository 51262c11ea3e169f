// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/CMoveStep.h"

#include "host/viewer/edit/CGraphEditor.h"

#include <utility>

namespace Host {

CMoveStep::CMoveStep(StepText text, CGraphEditor& editor, NodePositions from, NodePositions to)
    : AGraphStep(std::move(text), editor)
    , m_from(std::move(from))
    , m_to(std::move(to))
{
}

void CMoveStep::undo()
{
    m_editor.setPositions(m_from);
}

void CMoveStep::redo()
{
    m_editor.setPositions(m_to);
}

} // namespace Host
