// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QByteArray>
#include <QMetaType>
#include <QtGlobal>

/**
 * Qt's table of types, by names and numbers: Qt 5 and Qt 6 are asked for them in different ways.
 *
 * \code
 * QCOMPARE(MetaTypes::idOf("CNodeDataPtr"), qMetaTypeId<CNodeDataPtr>());
 * \endcode
 */
namespace MetaTypes {

/// The type's number, QMetaType::UnknownType if no type has that name.
inline int idOf(const char* name)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QMetaType::type(name);
#else
    return QMetaType::fromName(name).id();
#endif
}

/// The type's own name, no alias.
inline QByteArray nameOf(int id)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QMetaType::typeName(id);
#else
    return QMetaType(id).name();
#endif
}

/// The own name of CNodeDataPtr. Qt 6 calls types what the compiler calls them, and knows our name as an alias.
inline QByteArray nameOfData()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QByteArrayLiteral("Plugin::Halvex::CNodeDataPtr");
#else
    return QByteArrayLiteral("QSharedPointer<Plugin::Halvex::CNodeData>");
#endif
}

} // namespace MetaTypes
