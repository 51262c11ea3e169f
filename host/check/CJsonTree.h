// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QCoreApplication>
#include <QJsonValue>
#include <QLatin1String>
#include <QString>

#include <cstddef>
#include <deque>
#include <vector>

namespace Host {

/// A value of a JSON document, and where it stands. Offsets count bytes of the text.
struct SJsonNode
{
    SJsonNode* parent = nullptr; ///< Null for the root.
    std::size_t index = 0;       ///< Among the children of the parent.
    QString key;                 ///< In an object: as it is written.
    QString meant;               ///< What the key is read as: itself, or the right word for a mistyped one.
    int keyBegin = 0;            ///< In an object: of the key.
    int begin = 0;               ///< The first byte.
    int end = 0;                 ///< Behind the last byte.
    QJsonValue::Type type = QJsonValue::Null;
    QJsonValue scalar;                ///< The value, unless it is an array or an object.
    std::vector<SJsonNode*> children; ///< The items or members, in their order.

    bool isArray() const { return type == QJsonValue::Array; }
    bool isObject() const { return type == QJsonValue::Object; }
    bool isString() const { return type == QJsonValue::String; }
    QString text() const { return scalar.toString(); }

    /// The value whose key means \a name, the last one if there are several; null if there is none.
    const SJsonNode* member(QLatin1String name) const;
};

/// The values of one document. Their addresses stay the same as long as the tree lives.
class CJsonTree
{
    Q_DECLARE_TR_FUNCTIONS(Host::CJsonTree)

public:
    CJsonTree() = default;
    Q_DISABLE_COPY(CJsonTree)

    /// The first value added; null in an empty tree.
    SJsonNode* root() { return m_nodes.empty() ? nullptr : &m_nodes.front(); }

    /// A new last child of \a parent, which is null for the root.
    SJsonNode& add(SJsonNode* parent);

private:
    std::deque<SJsonNode> m_nodes;
};

/// "$[2].connection[0]['index _out']": JSONPath, complete and printable however long keys are.
QString pathOf(const SJsonNode& node);

/// The value without its places, under the keys as they are written.
QJsonValue valueOf(const SJsonNode& node);

/// Whether it is a whole number, of 32 bits.
bool isWholeNumber(const QJsonValue& value);

/// What the value is, for a message: "the string 'left'", "the number 7", "an array".
QString description(const SJsonNode& node);

} // namespace Host
