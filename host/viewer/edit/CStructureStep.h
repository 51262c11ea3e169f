// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/edit/AGraphStep.h"
#include "host/viewer/edit/GraphPart.h"

namespace Host {

/**
 * A step that adds or removes nodes and connections, which has been done when it is pushed on the undo stack.
 *
 * Undo takes out what was added and puts back what was removed, with the same ids. If somebody else has changed the
 * scene meanwhile, it does what is still possible. Threads: the scene's.
 */
class CStructureStep : public AGraphStep
{
public:
    CStructureStep(StepText text, CGraphEditor& editor, SGraphPart removed, SGraphPart added);

    void undo() override;
    void redo() override;

private:
    SGraphPart m_removed;
    SGraphPart m_added;
    bool m_isDone = true;
};

} // namespace Host
