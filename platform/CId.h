// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QLatin1String>
#include <QRandomGenerator>
#include <QString>
#include <QUuid>

#include <cstring>
#include <functional>

namespace Core {

/**
 * The host's identifier: a value that names one object for as long as it is kept.
 *
 * \code
 * const Core::CId id = Core::CId::createId();
 * const Core::CId same(id.toString().toLocal8Bit().constData());
 * Q_ASSERT(same == id);
 * Q_ASSERT(Core::CId("no such id") == Core::CId());
 * \endcode
 *
 * A default-constructed identifier means "no id". Text form: 36 characters,
 * "01234567-89ab-cdef-0123-456789abcdef"; surrounding braces are accepted when reading.
 *
 * Threads: a value type; distinct objects may be used concurrently, createId() from any thread.
 */
class CId
{
public:
    /// No id.
    CId() = default;

    /// Reads the text form. Null, and text that is no id, give no id.
    explicit CId(const char* text)
        : m_uuid(read(QLatin1String(text)))
    {
    }

    /// A fresh identifier, different from every other one: a random UUID, version 4.
    static CId createId()
    {
        // Not QUuid::createUuid(): it asks the system's source each time, which takes longer than all else that making
        // a node does.
        thread_local QRandomGenerator generator = QRandomGenerator::securelySeeded();
        quint32 random[4];
        generator.fillRange(random);
        QUuid uuid;
        static_assert(sizeof(random) == sizeof(uuid), "a UUID is its 128 bits");
        std::memcpy(&uuid, random, sizeof(uuid));
        uuid.data3 = ushort((uuid.data3 & 0x0fff) | 0x4000);
        uuid.data4[0] = uchar((uuid.data4[0] & 0x3f) | 0x80);
        return CId(uuid);
    }

    /// The text form, without braces; all zeros for no id.
    QString toString() const { return m_uuid.toString(QUuid::WithoutBraces); }
    /// The 128 bits as Qt has them.
    QUuid uuid() const { return m_uuid; }

    /// Whether both name the same object, or neither names one.
    friend bool operator==(const CId& left, const CId& right) { return left.m_uuid == right.m_uuid; }
    /// Whether they name different objects.
    friend bool operator!=(const CId& left, const CId& right) { return left.m_uuid != right.m_uuid; }
    /// Some order, for sorted containers.
    friend bool operator<(const CId& left, const CId& right) { return left.m_uuid < right.m_uuid; }

private:
    explicit CId(const QUuid& uuid)
        : m_uuid(uuid)
    {
    }

    // QUuid's own reader ignores what follows the last digit; an identifier with a tail is no id.
    static QUuid read(QLatin1String text)
    {
        const bool braced = text.size() == 38 && text.front() == QLatin1Char('{') && text.back() == QLatin1Char('}');
        return braced || text.size() == 36 ? QUuid::fromString(text) : QUuid();
    }

    QUuid m_uuid;
};

static_assert(sizeof(CId) == 16, "an identifier is its 128-bit UUID and nothing else");

} // namespace Core

namespace std {

/// Identifiers as keys of unordered containers.
template <>
struct hash<Core::CId>
{
    /// The same for equal identifiers.
    size_t operator()(const Core::CId& id) const noexcept { return qHash(id.uuid(), 0); }
};

} // namespace std
