// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/models/IFrameInfo.h"

#include <Halvex/service/CVeltraGrabResultData.h>

#include <utility>

namespace Host {

/**
 * A grab result and what the host knows of it beside. Of the same type as every grab result, so that it goes through
 * all ports for these. Immutable.
 *
 * In a header alone: the program makes these objects and the models of a plugin read them.
 *
 * Threads: may be made in one thread and read and dropped in others.
 */
class Q_DECL_EXPORT CGrabResultData : public Plugin::Halvex::CVeltraGrabResultData, public IFrameInfo
{
public:
    CGrabResultData(Veltra::CGrabResultPtr grabResult, const SFrameInfo& info)
        : CVeltraGrabResultData(std::move(grabResult))
        , m_info(info)
    {
    }

    const SFrameInfo& info() const override { return m_info; }

private:
    SFrameInfo m_info;
};

} // namespace Host
