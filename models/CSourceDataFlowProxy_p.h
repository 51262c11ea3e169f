// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/models/CNodeDataEntry.h>
#include <Halvex/models/CNodeDataFlowProxy.h>

namespace Plugin::Halvex {

/// The proxy of a source. Its destructor closes the entries of the source before its QObject part goes, so that nothing
/// is queued for an object that is no longer there.
class CSourceDataFlowProxy : public CNodeDataFlowProxy
{
public:
    explicit CSourceDataFlowProxy(QObject* parent)
        : CNodeDataFlowProxy(parent)
        , m_entry(*this)
    {
    }
    ~CSourceDataFlowProxy() override { m_entry.close(); }

    const CNodeDataEntry& entry() const { return m_entry; }

private:
    CNodeDataEntry m_entry;
};

} // namespace Plugin::Halvex
