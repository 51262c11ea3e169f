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
 */
template <typename T>
class CMetaTypeRegistration
{
public:
    /// \a name: normalized and fully qualified. If somebody has registered it already, it stays theirs.
    explicit CMetaTypeRegistration(const char* name)
        : m_isOurs(!isKnown(name))
    {
        add(name);
    }
    ~CMetaTypeRegistration()
    {
        if (m_isOurs)
            takeBack();
    }
    Q_DISABLE_COPY(CMetaTypeRegistration)

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    int id() const
    {
        return m_id;
    }

private:
    static bool isKnown(const char* name)
    {
        return QMetaType::type(name) != QMetaType::UnknownType;
    }

    void add(const char* name)
    {
        using Functions = QtMetaTypePrivate::QMetaTypeFunctionHelper<T>;
        constexpr int size = sizeof(T); // NOLINT(bugprone-sizeof-expression): pointers are types too
        m_id = m_isOurs
                   ? QMetaType::registerNormalizedType(name, &Functions::Destruct, &Functions::Construct, size,
                                                       QMetaType::TypeFlags(QtPrivate::QMetaTypeTypeFlags<T>::Flags),
                                                       QtPrivate::MetaObjectForType<T>::value())
                   : QMetaType::type(name);
    }

    void takeBack() const
    {
        QMetaType::unregisterType(m_id);
    }

    int m_id = 0;
#else
    /// Gives the type its number, for which Qt 6 comes back to whom this object belongs to: not while it is made.
    int id() const
    {
        return QMetaType::fromType<T>().id();
    }

private:
    static bool isKnown(const char* name)
    {
        return QMetaType::fromName(name).isValid();
    }
    static void add(const char* name)
    {
        QMetaType::registerNormalizedTypedef(name, QMetaType::fromType<T>());
    }
    static void takeBack()
    {
        QMetaType::unregisterMetaType(QMetaType::fromType<T>());
    } // with all of its names
#endif

    const bool m_isOurs;
};

} // namespace Plugin::Halvex
