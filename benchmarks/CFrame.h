// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeData.h>

/// What the benchmarks send: nothing, so that only its way costs.
class CFrame : public Plugin::Halvex::CNodeData
{
public:
    Plugin::Halvex::SNodeDataType type() const override { return {QStringLiteral("Frame"), QStringLiteral("F")}; }
};

inline Plugin::Halvex::CNodeDataPtr makeFrame()
{
    return QSharedPointer<CFrame>::create();
}
