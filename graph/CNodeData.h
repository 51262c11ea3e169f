// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>
#include <Halvex/graph/SNodeDataType.h>

#include <QMetaType>
#include <QSharedPointer>

namespace Plugin::Halvex {

/**
 * Base of every data object that travels through a graph.
 *
 * \code
 * class CTemperatureData : public CNodeData
 * {
 * public:
 *     explicit CTemperatureData(double celsius = 0) : m_celsius(celsius) {}
 *     SNodeDataType type() const override { return {QStringLiteral("Temperature in Celsius"), QStringLiteral("T")}; }
 *     double celsius() const { return m_celsius; }
 *
 * private:
 *     double m_celsius;
 * };
 * \endcode
 *
 * Ownership: shared. One object reaches every consumer of a port, uncopied, so it must not change once it was handed
 * to the graph.
 *
 * Threads: objects cross threads at sources and decouplers; type() must be callable from any. The object is destroyed
 * in whichever thread drops its last pointer.
 */
class HALVEX_EXPORT CNodeData
{
public:
    CNodeData() = default;
    /// For subclasses whose objects are copied before they are handed to the graph.
    CNodeData(const CNodeData&) = default;
    /// As the copy.
    CNodeData& operator=(const CNodeData&) = default;
    virtual ~CNodeData();

    /// True exactly when both types have the same id.
    virtual bool sameType(const CNodeData& other) const;

    /// The type, the same for every object of one class.
    virtual SNodeDataType type() const = 0;
};

/// What connections carry. Null is empty data, and means: what you had from here is no longer valid. A connection that
/// goes delivers it; an output that becomes empty does not, see CNodeDataModel::dataInvalidated().
using CNodeDataPtr = QSharedPointer<CNodeData>;

} // namespace Plugin::Halvex

/// "Plugin::Halvex::CNodeDataPtr" to Qt, for as long as the library is loaded.
template <>
struct QMetaTypeId<Plugin::Halvex::CNodeDataPtr>
{
    enum
    {
        Defined = 1
    };
    /// For Qt, which asks for the number when the type is used in queued signals.
    HALVEX_EXPORT static int qt_metatype_id();
};
