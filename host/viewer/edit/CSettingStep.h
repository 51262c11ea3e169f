// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/viewer/edit/AGraphStep.h"
#include <Halvex/platform/CId.h>

#include <QString>

namespace Host {

/// A change of one setting of a node, as text, see SModelSetting.
struct SSettingChange
{
    Core::CId node;
    QString name;
    QString from;
    QString to;
    int gesture = 0; ///< Changes of one setting with the same number are one step; 0 is always a step of its own.
};

/// A step that changes a setting. It has been done when it is pushed on the undo stack.
class CSettingStep : public AGraphStep
{
public:
    CSettingStep(StepText text, CGraphEditor& editor, SSettingChange change);

    void undo() override;
    void redo() override;
    int id() const override { return 1; }
    bool mergeWith(const QUndoCommand* other) override;

private:
    SSettingChange m_change;
    bool m_isDone = true;
};

} // namespace Host
