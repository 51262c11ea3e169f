// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/graph/CNodeData.h>

#include "graph/support/CMetaTypeRegistration_p.h"

namespace Plugin::Halvex {

CNodeData::~CNodeData() = default;

bool CNodeData::sameType(const CNodeData& other) const
{
    return type().id == other.type().id;
}

} // namespace Plugin::Halvex

int QMetaTypeId<Plugin::Halvex::CNodeDataPtr>::qt_metatype_id()
{
    using namespace Plugin::Halvex;
    static const CMetaTypeRegistration<CNodeDataPtr> registration("Plugin::Halvex::CNodeDataPtr");
    return registration.id();
}
