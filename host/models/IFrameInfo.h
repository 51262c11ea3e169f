// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/SFrameInfo.h"

namespace Host {

/// What data knows of the frame that it was made from, whatever its type: for a dynamic_cast from CNodeData.
class Q_DECL_EXPORT IFrameInfo
{
public:
    IFrameInfo() = default;
    virtual ~IFrameInfo() = default;
    Q_DISABLE_COPY(IFrameInfo)

    virtual const SFrameInfo& info() const = 0;
};

} // namespace Host
