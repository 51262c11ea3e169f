// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CGrabResultData.h"

#include <utility>

namespace Host {

CGrabResultData::CGrabResultData(Veltra::CGrabResultPtr result, const SFrameInfo& info)
    : m_result(std::move(result))
    , m_info(info)
{
}

Plugin::Halvex::SNodeDataType CGrabResultData::dataType()
{
    // The long text is the identifier and the short one the name: what compares and looks up data of cameras goes
    // by this identifier.
    return {QStringLiteral("Veltra Grab Result"), QStringLiteral("VGR")};
}

} // namespace Host
