// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QUndoCommand>

#include <functional>

namespace Host {

class CGraphEditor;

/// What a step is called, in the language of the moment. Must not be empty.
using StepText = std::function<QString()>;

/**
 * A step of a graph's editor, whose name follows the language.
 *
 * Threads: the scene's. Ownership: the stack that it is pushed on, which \a editor owns.
 */
class AGraphStep : public QUndoCommand
{
public:
    AGraphStep(StepText text, CGraphEditor& editor);

    void retranslate();

protected:
    void takeTextOf(const AGraphStep& other);

    CGraphEditor& m_editor;

private:
    StepText m_text;
};

} // namespace Host
