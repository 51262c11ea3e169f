// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/edit/GraphPart.h"

#include <QUndoCommand>

namespace Host {

class CGraphEditor;

/**
 * A step that adds or removes nodes and connections, which has been done when it is pushed on the undo stack.
 *
 * Undo takes out what was added and puts back what was removed, with the same ids. If somebody else has changed the
 * scene meanwhile, it does what is still possible. Threads: the scene's.
 */
class CStructureStep : public QUndoCommand
{
public:
    /// \a editor owns the stack that this is pushed on.
    CStructureStep(const QString& text, CGraphEditor& editor, SGraphPart removed, SGraphPart added);

    void undo() override;
    void redo() override;

private:
    CGraphEditor& m_editor;
    SGraphPart m_removed;
    SGraphPart m_added;
    bool m_isDone = true;
};

} // namespace Host
