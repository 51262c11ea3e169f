// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QMetaType>

namespace Plugin::Halvex {

/**
 * Makes the type T known to Qt for as long as the library is loaded.
 *
 * \code
 * int QMetaTypeId<T>::qt_metatype_id()
 * {
 *     static const CMetaTypeRegistration<T> registration("T");
 *     return registration.id();
 * }
 * \endcode
 *
 * Not Q_DECLARE_METATYPE: what was declared so cannot be taken back, and registering it again does not renew what Qt
 * has of it, so that after the library was unloaded Qt would call into memory that is no longer there.
 *
 * Being a static object, it goes before Qt's table does: the table was there when it was made.
 *
 * With Qt 6 it gives the type a second name only. There everybody who reads our meta-objects registers the types in
 * them, and service/TypesOfSignals.cpp takes back all of those.
 */
template <typename T>
class CMetaTypeRegistration
{
public:
    Q_DISABLE_COPY(CMetaTypeRegistration)

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    /// \a name: normalized and fully qualified. If somebody has registered it already, it stays theirs.
    explicit CMetaTypeRegistration(const char* name)
        : m_isOurs(QMetaType::type(name) == QMetaType::UnknownType)
        , m_id(m_isOurs ? add(name) : QMetaType::type(name))
    {
    }
    ~CMetaTypeRegistration()
    {
        if (m_isOurs)
            QMetaType::unregisterType(m_id);
    }

    int id() const
    {
        return m_id;
    }

private:
    static int add(const char* name)
    {
        using Functions = QtMetaTypePrivate::QMetaTypeFunctionHelper<T>;
        constexpr int size = sizeof(T); // NOLINT(bugprone-sizeof-expression): pointers are types too
        return QMetaType::registerNormalizedType(name, &Functions::Destruct, &Functions::Construct, size,
                                                 QMetaType::TypeFlags(QtPrivate::QMetaTypeTypeFlags<T>::Flags),
                                                 QtPrivate::MetaObjectForType<T>::value());
    }

    const bool m_isOurs;
    const int m_id;
#else
    /// \a name: another name than the type's own. If somebody has registered the type already, it is one of theirs.
    explicit CMetaTypeRegistration(const char* name)
    {
        const QMetaType ours = QMetaType::fromType<T>();
        const QMetaType known = QMetaType::fromName(ours.name());
        QMetaType::registerNormalizedTypedef(name, known.isValid() ? known : ours);
    }

    /// Gives the type its number, for which Qt comes back to whom this object belongs to: not while it is made.
    int id() const
    {
        return QMetaType::fromType<T>().id();
    }
#endif
};

} // namespace Plugin::Halvex
