// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/FrameInfo.h"

#include "host/models/IFrameInfo.h"

#include <Halvex/service/CVeltraGrabResultData.h>

namespace Host {

using namespace Plugin::Halvex;

SFrameInfo frameInfo(const CNodeData& data)
{
    if (const auto* own = dynamic_cast<const IFrameInfo*>(&data))
        return own->info();
    const auto* grab = dynamic_cast<const CVeltraGrabResultData*>(&data);
    if (!grab || !grab->grabResult())
        return {};
    return {grab->grabResult()->frameNumber, std::chrono::steady_clock::now(), grab->grabResult()->timestampNs};
}

} // namespace Host
