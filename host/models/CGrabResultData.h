// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/CNodeData.h"
#include "host/models/SFrameInfo.h"
#include "platform/CGrabResultPtr.h"

namespace Host {

/**
 * One camera frame on its way through the graph. Immutable.
 *
 * Threads: may be made in one thread and read and dropped in others.
 */
class CGrabResultData : public Plugin::Halvex::CNodeData
{
public:
    /// Without a frame: for what only asks for the type.
    CGrabResultData() = default;
    CGrabResultData(Veltra::CGrabResultPtr result, const SFrameInfo& info);

    static Plugin::Halvex::SNodeDataType dataType();
    Plugin::Halvex::SNodeDataType type() const override { return dataType(); }

    const Veltra::CGrabResultPtr& result() const { return m_result; }
    const SFrameInfo& info() const { return m_info; }

private:
    Veltra::CGrabResultPtr m_result;
    SFrameInfo m_info;
};

} // namespace Host
