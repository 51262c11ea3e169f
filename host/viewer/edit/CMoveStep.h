// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/edit/GraphPart.h"

#include <QUndoCommand>

namespace Host {

class CGraphEditor;

/// A step that moves nodes in the drawing.
class CMoveStep : public QUndoCommand
{
public:
    /// \a editor owns the stack that this is pushed on.
    CMoveStep(const QString& text, CGraphEditor& editor, NodePositions from, NodePositions to);

    void undo() override;
    void redo() override;

private:
    CGraphEditor& m_editor;
    const NodePositions m_from;
    const NodePositions m_to;
};

} // namespace Host
