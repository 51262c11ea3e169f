// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/service/CVeltraGrabResultData.h>

#include <utility>

namespace Plugin::Halvex {

CVeltraGrabResultData::CVeltraGrabResultData() = default;

CVeltraGrabResultData::CVeltraGrabResultData(Veltra::CGrabResultPtr grabResult)
    : m_grabResult(std::move(grabResult))
{
}

CVeltraGrabResultData::~CVeltraGrabResultData() = default;

SNodeDataType CVeltraGrabResultData::type() const
{
    // The texts are on the heap, not string literals: whoever keeps a copy may outlive this plugin's code.
    static const SNodeDataType grabResultType{QString::fromLatin1("Veltra Grab Result"), QString::fromLatin1("VGR")};
    return grabResultType;
}

} // namespace Plugin::Halvex
