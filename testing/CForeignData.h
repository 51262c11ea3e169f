// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeData.h>

namespace Plugin::Halvex::Testing {

/// Data of a type that no model knows: what a port gets when a user connects what does not fit.
class CForeignData : public CNodeData
{
public:
    SNodeDataType type() const override
    {
        return {QStringLiteral("Halvex.Testing.Foreign"), QStringLiteral("Foreign")};
    }
};

} // namespace Plugin::Halvex::Testing
