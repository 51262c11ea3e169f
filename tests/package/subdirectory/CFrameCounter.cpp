// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/Halvex.h>

/// Counts the frames that arrive.
class CFrameCounter : public Plugin::Halvex::ASinkNodeDataModel
{
    Q_OBJECT

Q_SIGNALS:
    void frameCounted(int count);
};

#include "CFrameCounter.moc"
