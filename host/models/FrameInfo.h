// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/SFrameInfo.h"

namespace Plugin::Halvex {
class CNodeData;
}

namespace Host {

/// What \a data knows of its frame. A grab result of somebody else does not say when it was grabbed: its way is
/// measured from here. Data that knows nothing of a frame gives an empty one.
SFrameInfo frameInfo(const Plugin::Halvex::CNodeData& data);

} // namespace Host
