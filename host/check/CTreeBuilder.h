// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QJsonValue>
#include <QString>

#include <rapidjson/memorystream.h>

#include <cstdint>

namespace Host {

class CFaultList;
class CJsonTree;
struct SJsonNode;

/**
 * Makes the tree of what the JSON parser reports, each value with its place.
 *
 * The parser says where it is, which is the end of a string or a number. What lies between that end and the next value
 * is blanks, a comma or a colon, and what is no JSON but was let through, to be told here: comments, and a comma with
 * nothing behind it.
 */
class CTreeBuilder
{
    Q_DECLARE_TR_FUNCTIONS(Host::CTreeBuilder)

public:
    /// All arguments outlive this object.
    CTreeBuilder(const QByteArray& text, const rapidjson::MemoryStream& stream, CJsonTree& tree, CFaultList& faults);

    /// Looks at what lies behind the last value.
    void finish();

    /// Whether the parser was told to stop, with the reason among the faults.
    bool isStopped() const { return m_isStopped; }

    /// The innermost array or object that is not closed; null if there is none.
    const SJsonNode* openBracket() const { return m_open; }

    // What the parser calls, by its names. NOLINTBEGIN(readability-identifier-naming)
    bool Null() { return addScalar({}); }
    bool Bool(bool value) { return addScalar(value); }
    bool Int(int value) { return addScalar(value); }
    bool Uint(unsigned value) { return addScalar(double(value)); }
    bool Int64(std::int64_t value) { return addScalar(double(value)); }
    bool Uint64(std::uint64_t value) { return addScalar(double(value)); }
    bool Double(double value);
    bool RawNumber(const char* text, unsigned length, bool isCopy);
    bool String(const char* text, unsigned length, bool isCopy);
    bool Key(const char* text, unsigned length, bool isCopy);
    bool StartObject() { return open(QJsonValue::Object); }
    bool EndObject(unsigned members);
    bool StartArray() { return open(QJsonValue::Array); }
    bool EndArray(unsigned items);
    // NOLINTEND(readability-identifier-naming)

private:
    SJsonNode& addNode();
    bool addScalar(const QJsonValue& value);
    bool open(QJsonValue::Type type);
    void close();
    bool isWithinLimit(const SJsonNode& value);
    bool stop(const SJsonNode& at, const QString& reason);
    void passGap();
    int skipComment(int offset);
    void findDoubleKeys(const SJsonNode& object);

    const QByteArray& m_text;
    const rapidjson::MemoryStream& m_stream;
    CJsonTree& m_tree;
    CFaultList& m_faults;
    SJsonNode* m_open = nullptr;
    int m_values = 0;
    int m_depth = 0;
    int m_offset = 0; // what lies before was looked at
    int m_comma = -1; // in the gap before the next value; -1 for none
    QString m_key;    // of the next value
    int m_keyBegin = 0;
    bool m_isStopped = false;
};

} // namespace Host
