// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/CNodeConnection.h>

#include <memory>
#include <utility>

namespace Plugin::Halvex {

/**
 * Who stands in a connection: a call of its converter, on the stack. The converter may replace itself or destroy the
 * connection: it lives until the call has ended, and the call knows whether the connection is still there.
 */
class CConversion
{
public:
    /// \a connection must have a converter.
    explicit CConversion(const CNodeConnection& connection)
        : m_connection(&connection)
        , m_outer(std::exchange(connection.m_conversion, this))
    {
        Q_ASSERT(connection.m_converter);
    }
    ~CConversion()
    {
        if (m_connection)
            m_connection->m_conversion = m_outer;
    }
    Q_DISABLE_COPY(CConversion)

    template <typename DataPtr>
    CNodeDataPtr convert(DataPtr&& data)
    {
        CNodeDataPtr converted = (*m_connection->m_converter)(std::forward<DataPtr>(data));
        if (Q_UNLIKELY(m_replaced))
            m_replaced.reset(); // what it captured goes before anything else is asked
        return converted;
    }

    bool isConnectionThere() const { return m_connection != nullptr; }

    /// The calls that are under way keep the converter, which is about to be replaced.
    static void keepConverter(const CNodeConnection& connection)
    {
        for (CConversion* call = connection.m_conversion; call; call = call->m_outer) {
            if (!call->m_replaced)
                call->m_replaced = connection.m_converter;
        }
    }

    /// The connection is gone.
    static void endAll(const CNodeConnection& connection)
    {
        for (CConversion* call = connection.m_conversion; call; call = call->m_outer)
            call->m_connection = nullptr;
    }

private:
    const CNodeConnection* m_connection;
    CConversion* m_outer;
    std::shared_ptr<const NodeDataConverter> m_replaced; // the converter, if another took its place meanwhile
};

} // namespace Plugin::Halvex
