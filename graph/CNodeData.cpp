// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "graph/CNodeData.h"

namespace Plugin {
namespace Halvex {

CNodeData::~CNodeData() = default;

bool CNodeData::sameType(const CNodeData& other) const
{
    return type().id == other.type().id;
}

} // namespace Halvex
} // namespace Plugin
