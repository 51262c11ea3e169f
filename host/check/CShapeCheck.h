// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QCoreApplication>
#include <QJsonObject>
#include <QString>

#include <string>
#include <vector>

namespace Host {

class CFaultList;
class CWordFinder;
struct SJsonNode;

/**
 * Compares a document with a JSON Schema: types, keys, least values.
 *
 * A validator says where a document is not as the schema has it. What is told of that place is found by this class in
 * the part of the schema that speaks of it, in words for people, with every unknown and missing key.
 *
 * A mistyped key is told and then read as what was meant, so that it is not told again by all that follows from it.
 */
class CShapeCheck
{
    Q_DECLARE_TR_FUNCTIONS(Host::CShapeCheck)

public:
    /// \a schema: one that this program ships. All arguments outlive this object.
    CShapeCheck(const QJsonObject& schema, CFaultList& faults, CWordFinder& words);

    void check(SJsonNode& root);

private:
    using Path = std::vector<std::string>;

    bool explain(SJsonNode& root, const Path& path);
    bool explainType(const SJsonNode& node, const QJsonObject& schema);
    bool explainKeys(SJsonNode& object, const QJsonObject& schema);
    bool explainMissing(const SJsonNode& object, const QJsonObject& schema);
    bool explainValue(const SJsonNode& node, const QJsonObject& schema);
    /// The value in the arrays that are lacking around it, as text: "[[\"blur\"]]". Empty if that would not do either.
    QStringList inArrays(const SJsonNode& node, QJsonObject schema) const;
    QJsonObject resolved(const QJsonValue& schema) const;

    const QJsonObject& m_schema;
    CFaultList& m_faults;
    CWordFinder& m_words;
};

/// The schema that is shipped under that name: "chain" or "scene".
QJsonObject shippedSchema(const QString& name);

} // namespace Host
