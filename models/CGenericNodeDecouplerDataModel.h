// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeData.h>
#include <Halvex/graph/ENodePortType.h>
#include <Halvex/graph/NodePortIndex.h>
#include <Halvex/graph/SNodeDataType.h>
#include <Halvex/models/CNodeDecouplerDataModelBase.h>

#include <QString>

#include <type_traits>

namespace Plugin::Halvex {

/// The decoupler for data of the type T, a default-constructible CNodeData.
template <typename T>
class CGenericNodeDecouplerDataModel : public CNodeDecouplerDataModelBase
{
    static_assert(std::is_base_of<CNodeData, T>::value, "a decoupler carries node data");
    static_assert(std::is_default_constructible<T>::value, "the type is read off a default-constructed object");

public:
    CGenericNodeDecouplerDataModel() = default;

    /// That of T, on both sides.
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return T().type(); }
    /// The name of that type.
    QString dataTypeName() override { return T().type().name; }
};

} // namespace Plugin::Halvex
