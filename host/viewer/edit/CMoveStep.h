// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/edit/AGraphStep.h"
#include "host/viewer/edit/GraphPart.h"

namespace Host {

/// A step that moves nodes in the drawing.
class CMoveStep : public AGraphStep
{
public:
    CMoveStep(StepText text, CGraphEditor& editor, NodePositions from, NodePositions to);

    void undo() override;
    void redo() override;

private:
    const NodePositions m_from;
    const NodePositions m_to;
};

} // namespace Host
