// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CShapeCheck.h"

#include "host/base/ClosestWords.h"
#include "host/base/Shown.h"
#include "host/check/CFaultList.h"
#include "host/check/CJsonTree.h"
#include "host/check/CWordFinder.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

#include <valijson/adapters/qtjson_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validation_results.hpp>
#include <valijson/validator.hpp>

#include <algorithm>
#include <cmath>
#include <set>

// Outside of any namespace, as Qt wants it: the resource is in a static library, which is asked for it by name.
static void initResources()
{
    Q_INIT_RESOURCE(schemas);
}

namespace Host {

namespace {

// The schemas are shipped in English, for editors. So their titles are listed here, for the translators.
[[maybe_unused]] constexpr const char* knownTitles[] = {
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "a camera or a label"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "a connection"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "a converter"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "a data type"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "a label"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "a label, or an object with one"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "a model"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "a node"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "a scene"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "a unique name"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "an element"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "an id"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "an input port"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "an output port"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "arrays of what it feeds"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "the connections"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "the elements of a chain"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "the id of a type"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "the id of the node that feeds"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "the id of the node that is fed"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "the label"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "the name of a model"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "the nodes"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "the schema, for editors"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "the settings of the model"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "the short name of a type"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "the sources of each input port"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "the sources of one input port"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "what it feeds"),
    QT_TRANSLATE_NOOP("Host::SchemaTitle", "whether it is unique"),
};

QString titleOf(const QJsonObject& schema)
{
    const QByteArray title = schema.value(QLatin1String("title")).toString().toUtf8();
    return QCoreApplication::translate("Host::SchemaTitle", title.constData());
}

bool hasType(const SJsonNode& node, const QString& type)
{
    if (type == QLatin1String("array"))
        return node.isArray();
    if (type == QLatin1String("object"))
        return node.isObject();
    if (type == QLatin1String("string"))
        return node.isString();
    if (type == QLatin1String("boolean"))
        return node.type == QJsonValue::Bool;
    if (type == QLatin1String("number"))
        return node.type == QJsonValue::Double;
    return isWholeNumber(node.scalar);
}

QString typeText(const QString& type, const SJsonNode& found)
{
    if (type == QLatin1String("integer")) {
        const double number = found.scalar.toDouble(0.5);
        return std::floor(number) == number ? CShapeCheck::tr("a smaller number") : CShapeCheck::tr("a whole number");
    }
    if (type == QLatin1String("boolean"))
        return CShapeCheck::tr("true or false");
    if (type == QLatin1String("array"))
        return CShapeCheck::tr("an array");
    if (type == QLatin1String("object"))
        return CShapeCheck::tr("an object");
    return type == QLatin1String("number") ? CShapeCheck::tr("a number") : CShapeCheck::tr("a string");
}

QString typeText(const QStringList& types, const SJsonNode& found)
{
    QString text = typeText(types.first(), found);
    for (int i = 1; i < types.size(); ++i)
        text = CShapeCheck::tr("%1 or %2", "types of JSON").arg(text, typeText(types.at(i), found));
    return text;
}

QStringList texts(const QJsonValue& json)
{
    return json.isString() ? QStringList(json.toString()) : json.toVariant().toStringList();
}

QStringList missingKeys(const SJsonNode& object, const QJsonObject& schema)
{
    QStringList missing;
    const QStringList required = texts(schema.value(QLatin1String("required")));
    for (const QString& key : required) {
        if (!object.member(QLatin1String(key.toLatin1())))
            missing << key;
    }
    return missing;
}

} // namespace

CShapeCheck::CShapeCheck(const QJsonObject& schema, CFaultList& faults, CWordFinder& words)
    : m_schema(schema)
    , m_faults(faults)
    , m_words(words)
{
}

void CShapeCheck::check(SJsonNode& root)
{
    using namespace valijson;
    const QJsonValue schemaJson(m_schema);
    Schema schema;
    SchemaParser().populateSchema(adapters::QtJsonAdapter(schemaJson), schema);
    const QJsonValue document = valueOf(root);
    ValidationResults results;
    if (Validator().validate(schema, adapters::QtJsonAdapter(document), &results))
        return;

    // What encloses a faulty value is reported with it, and has nothing to explain.
    bool isExplained = false;
    std::set<Path> seen;
    for (const auto& error : results) {
        if (m_faults.isCut())
            return;
        if (seen.insert(error.context).second)
            isExplained = explain(root, error.context) || isExplained;
    }
    Q_ASSERT(isExplained);
    if (!isExplained)
        m_faults.addError(EFaultRule::WrongValue, root, QString::fromStdString(results.begin()->description));
}

bool CShapeCheck::explain(SJsonNode& root, const Path& path)
{
    // Steps are "<root>", "[3]", "[key]".
    SJsonNode* node = &root;
    QJsonObject schema = m_schema;
    for (auto step = path.begin() + 1; step != path.end(); ++step) {
        const QString key = QString::fromStdString(step->substr(1, step->size() - 2));
        if (node->isArray()) {
            node = node->children.at(key.toUInt());
            schema = resolved(schema.value(QLatin1String("items")));
            continue;
        }
        // The last of several, as the validator has it.
        const auto member = std::find_if(node->children.rbegin(), node->children.rend(),
                                         [&key](const SJsonNode* child) { return child->key == key; });
        if (member == node->children.rend())
            return false;
        node = *member;
        schema = resolved(schema.value(QLatin1String("properties"))[key]);
    }
    if (explainType(*node, schema))
        return true;
    const bool hasUnknown = node->isObject() && explainKeys(*node, schema);
    const bool hasMissing = node->isObject() && explainMissing(*node, schema);
    return explainValue(*node, schema) || hasUnknown || hasMissing;
}

bool CShapeCheck::explainType(const SJsonNode& node, const QJsonObject& schema)
{
    const QStringList types = texts(schema.value(QLatin1String("type")));
    if (types.isEmpty() ||
        std::any_of(types.begin(), types.end(), [&node](const QString& type) { return hasType(node, type); }))
        return false;
    const QString message =
        tr("%1, where %2 belongs: %3").arg(description(node), typeText(types, node), titleOf(schema));
    m_faults.addError(EFaultRule::WrongType, node, withHint(message, didYouMean(inArrays(node, schema))));
    return true;
}

QStringList CShapeCheck::inArrays(const SJsonNode& node, QJsonObject schema) const
{
    if (!node.parent) // the other kind of document
        return {};
    QJsonValue value = valueOf(node);
    QStringList types = texts(schema.value(QLatin1String("type")));
    for (; types == QStringList(QStringLiteral("array")); types = texts(schema.value(QLatin1String("type")))) {
        value = QJsonArray{value};
        schema = resolved(schema.value(QLatin1String("items")));
    }
    const bool fits =
        std::any_of(types.begin(), types.end(), [&node](const QString& type) { return hasType(node, type); });
    if (!fits || !value.isArray() || (node.isObject() && !missingKeys(node, schema).isEmpty()))
        return {};
    return {QString::fromUtf8(QJsonDocument(value.toArray()).toJson(QJsonDocument::Compact))};
}

bool CShapeCheck::explainKeys(SJsonNode& object, const QJsonObject& schema)
{
    // Where any key may stand, one is wrong only if it looks like one that is missing.
    const bool isOpen = schema.value(QLatin1String("additionalProperties")).toBool(true);
    const QStringList known = schema.value(QLatin1String("properties")).toObject().keys();
    QStringList unused = isOpen ? missingKeys(object, schema) : known;
    for (const SJsonNode* member : object.children)
        unused.removeAll(member->key);
    if (isOpen && unused.isEmpty())
        return false;

    bool isFound = false;
    for (SJsonNode* member : object.children) {
        if (known.contains(member->key))
            continue;
        const QString meant = m_words.closest(member->key, isOpen ? unused : known);
        if (isOpen && meant.isNull())
            continue;
        isFound = true;
        const QString hint = meant.isNull() ? tr("allowed are %1").arg(listAll(known)) : didYouMean(QStringList(meant));
        m_faults.addKeyError(EFaultRule::UnknownKey, *member,
                             withHint(tr("unknown key %1").arg(shown(member->key)), hint));
        if (unused.removeOne(meant))
            member->meant = meant;
    }
    return isFound;
}

bool CShapeCheck::explainMissing(const SJsonNode& object, const QJsonObject& schema)
{
    const QStringList missing = missingKeys(object, schema);
    if (missing.isEmpty())
        return false;
    m_faults.addError(EFaultRule::MissingKey, object, tr("%1 lacks %2").arg(titleOf(schema), listAll(missing)));
    return true;
}

bool CShapeCheck::explainValue(const SJsonNode& node, const QJsonObject& schema)
{
    if (node.isString() && node.text().size() < schema.value(QLatin1String("minLength")).toInt()) {
        m_faults.addError(EFaultRule::WrongValue, node, tr("%1 is empty").arg(titleOf(schema)));
        return true;
    }
    const QJsonValue least = schema.value(QLatin1String("minimum"));
    if (node.type == QJsonValue::Double && least.isDouble() && node.scalar.toDouble() < least.toDouble()) {
        m_faults.addError(
            EFaultRule::WrongValue, node,
            tr("%1, where %2 belongs, from %3").arg(description(node), titleOf(schema), least.toVariant().toString()));
        return true;
    }
    return false;
}

QJsonObject CShapeCheck::resolved(const QJsonValue& schema) const
{
    const QString reference = schema[QLatin1String("$ref")].toString();
    if (reference.isEmpty())
        return schema.toObject();
    // "#/definitions/element"
    return m_schema.value(QLatin1String("definitions"))[reference.section(QLatin1Char('/'), 2)].toObject();
}

QJsonObject shippedSchema(const QString& name)
{
    initResources();
    QFile file(QStringLiteral(":/halvex-host/schemas/%1.schema.json").arg(name));
    const bool isOpen = file.open(QIODevice::ReadOnly);
    Q_ASSERT(isOpen);
    Q_UNUSED(isOpen)
    return QJsonDocument::fromJson(file.readAll()).object();
}

} // namespace Host
