// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/edit/AGraphStep.h"

#include <utility>

namespace Host {

AGraphStep::AGraphStep(StepText text, CGraphEditor& editor)
    : QUndoCommand(text())
    , m_editor(editor)
    , m_text(std::move(text))
{
}

void AGraphStep::retranslate()
{
    setText(m_text());
}

void AGraphStep::takeTextOf(const AGraphStep& other)
{
    m_text = other.m_text;
    retranslate();
}

} // namespace Host
