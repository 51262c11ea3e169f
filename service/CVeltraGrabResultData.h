// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>
#include <Halvex/graph/CNodeData.h>
#include <Halvex/graph/SNodeDataType.h>
#include <Halvex/platform/CGrabResultPtr.h>

namespace Plugin::Halvex {

/**
 * One grab result of a camera on its way through the graph.
 *
 * \code
 * const CNodeDataEntry entry = camera.dataEntry();
 * entry.setData(QSharedPointer<CVeltraGrabResultData>::create(grabResult)); // in the thread that grabs
 *
 * if (const auto frame = data.dynamicCast<CVeltraGrabResultData>()) // in the setInData() of a model
 *     show(frame->grabResult());
 * \endcode
 *
 * Type: id "Veltra Grab Result", name "VGR". Shares the frame, copies no pixels. A subclass may carry more along with
 * the frame: its objects are of the same type.
 *
 * Threads: objects may be read and dropped in any thread, as the handle may.
 */
class HALVEX_EXPORT CVeltraGrabResultData : public CNodeData
{
public:
    /// Valid data without a frame.
    CVeltraGrabResultData();
    /// Data that shares the frame of \a grabResult.
    explicit CVeltraGrabResultData(Veltra::CGrabResultPtr grabResult);
    ~CVeltraGrabResultData() override;

    SNodeDataType type() const override;

    /// The frame; empty if there is none.
    const Veltra::CGrabResultPtr& grabResult() const { return m_grabResult; }

private:
    Veltra::CGrabResultPtr m_grabResult;
};

} // namespace Plugin::Halvex
